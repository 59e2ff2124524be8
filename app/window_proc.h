#pragma once

#include <cstdint>

#include "platform/window/user.h"

namespace korvane {

/// The main window's procedure: gives every message to the part of the program that it concerns.
LRESULT WindowProc(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);

/// Writes the high scores and the key bindings; each only while its screen exists.
void SaveScoresAndKeys();
/// Writes all that is kept, for an end that does not come by the usual way.
void SaveAll();

}  // namespace korvane
