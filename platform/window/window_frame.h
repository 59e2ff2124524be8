#pragma once

#include <string_view>

#include "platform/base/types.h"
#include "platform/draw/canvas.h"

namespace korvane {

/// The frame and caption that a box or dialog within the window's picture draws by itself.
inline constexpr int kFrameBorder = 3;
inline constexpr int kFrameCaption = 18;
inline constexpr int kCaptionPadding = 5;

/// Where the caption lies in a frame of this size, and its close box in that.
RECT CaptionOf(SIZE framed);
RECT CloseBoxOf(const RECT& caption);

void PaintWindowFrame(Canvas& canvas, std::string_view title);

enum class CloseBoxLook { Up, Down, Greyed };
void PaintCloseBox(Canvas& canvas, const RECT& place, CloseBoxLook look);

}  // namespace korvane
