#pragma once

#include <cstdint>

#include "platform/user.h"

namespace korvane {

/// Which games `StartPlayers` starts.
enum class Starters { Right = 1, Left = 2, Both = 3 };

/// Leaves menu and high scores and starts games, the right player's first.
void StartPlayers(Starters starters);

/// Carries out a command of an accelerator key; false for an id that is none.
bool RunCommand(HWND window, std::uint16_t id);

}  // namespace korvane
