#pragma once

#include "game/rules/player.h"

namespace korvane {

/// What must hold for a player at any time: cells, figure, counters and clock in their ranges. A
/// failure is fatal.
void ExpectSoundPlayer(const Player& player);

}  // namespace korvane
