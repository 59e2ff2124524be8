#pragma once

#include <cstdint>

#include "game/rules/side.h"
#include "platform/window/user.h"

namespace korvane {

/// Carries out a command of the window menu or of an accelerator key; false for an id that is none.
/// A changed setting shows on the menu's buttons at once.
bool RunCommand(HWND window, std::uint16_t id);

/// Which way a player's figures turn, in the settings and on the menu.
void SetClockwise(Side side, bool clockwise);

}  // namespace korvane
