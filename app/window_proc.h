#pragma once

#include <cstdint>

#include "platform/window/user.h"

namespace korvane {

/// Turns everything that happens outside into actions of the program.
LRESULT WindowProc(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);

/// Writes the high scores and the key bindings, as far as their screens still stand.
void SaveScoresAndKeys();

}  // namespace korvane
