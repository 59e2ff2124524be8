#pragma once

#include <string_view>

#include "bench/recorded_frame.h"

namespace korvane::bench {

/// Pictures of the sizes and shapes that a skin has: tiles with round corners, letters of strokes,
/// frames with an open middle. Key 0.
class SampleSkin {
  public:
    /// The background is one picture of this size, repeated over each half of the screen.
    explicit SampleSkin(SIZE backgroundSize);

    const KeyedPicture background;
    const KeyedPicture board;       ///< 218 x 372
    const KeyedPicture preview;     ///< 86 x 60
    const KeyedPicture statistics;  ///< 86 x 66
    const KeyedPicture blocks;      ///< 8 cells of 16 x 16
    const KeyedPicture letters;     ///< 26 cells of 16 x 16
    const KeyedPicture numbers;     ///< 17 cells of 16 x 16
    const KeyedPicture bars;        ///< 7 columns of 8 x 20
    const KeyedPicture pause;       ///< 90 x 48
};

inline constexpr SIZE kScreenSize = {640, 480};

/// Where the falling figures of the two players stand, in pixels below their boards' tops.
struct FigureHeights {
    int right = 32;
    int left = 32;
};

/// A frame of a game for two in full swing, paused: about 400 operations.
RecordedFrame SampleFrame(const SampleSkin& skin, FigureHeights figures);

}  // namespace korvane::bench
