#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <random>

#include "bench/recorded_frame.h"
#include "tools/korvane-skin/stage.h"

namespace korvane::bench {

/// A match of two players who press random keys, on the headless machine with the Original skin of
/// the working directory. There can be one at a time.
class GameMatch {
  public:
    /// Plays the first half minute, so that figures lie on both boards.
    GameMatch();

    /// One frame of the rules, 10 ms after the last; a finished game starts anew.
    void Advance();
    /// What the game draws for the present frame. The pictures exist as long as the match.
    RecordedFrame Capture();

  private:
    const KeyedPicture& PictureOf(const PixelBuffer& pixels);

    std::unique_ptr<Stage> stage_;
    std::mt19937 random_{1};
    std::map<const PixelBuffer*, std::unique_ptr<KeyedPicture>> pictures_;
};

}  // namespace korvane::bench
