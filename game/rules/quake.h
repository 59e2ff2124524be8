#pragma once

#include <cstdint>

#include "app/state/settings.h"

namespace korvane {

enum class QuakeMode { Off, Together, Individual };

QuakeMode QuakeModeOf(const SettingsValues& settings);

/// The screen's y of each board's top row, 0 to 106; 50 at rest.
struct BoardTops {
    int right = 50;
    int left = 50;

    bool operator==(const BoardTops&) const = default;
};

/// The swing of one board.
struct Shake {
    int amplitude = 0;  ///< pixels; every step takes one away
    int phase = 0;      ///< 0 to 255; eight steps are a full swing
};

/// The shaking of both boards after completed rows. It outlives the games: a swing that a game's
/// end cuts off goes on in the next.
class QuakeState {
  public:
    /// One frame: takes a step when it is due, adds the rows that each player has completed since
    /// the last frame, and returns where the boards are now.
    BoardTops Step(QuakeMode mode, int rightRows, int leftRows);

  private:
    void TakeStep(Shake& shake);

    Shake right_;
    Shake left_;
    std::uint32_t stepTick_ = 0;
};

}  // namespace korvane
