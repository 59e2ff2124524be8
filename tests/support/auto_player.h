#pragma once

#include <cstdint>

#include "game/rules/player.h"

namespace korvane {

/// Plays passably through the keys alone: looks for the place where the board stays lowest and
/// smoothest, turns and moves the figure there and drops it. Its presses follow from what it sees,
/// so a rule that changes changes the whole game it plays.
class AutoPlayer {
  public:
    explicit AutoPlayer(Player& player) : player_(player) {}

    /// To be called before every frame.
    void PressKeys();

  private:
    struct Placement {
        int turns = 0;
        int column = 0;
        int cost = 0;
    };

    void PlanFigure();
    Placement BestPlacement() const;
    void Press(std::uint8_t key, bool down);

    Player& player_;
    std::uint32_t plannedFigure_ = 0;
    int turnsLeft_ = 0;
    int column_ = 0;
    bool dropped_ = false;
};

}  // namespace korvane
