#pragma once

#include <string_view>

#include "platform/base/types.h"
#include "platform/draw/canvas.h"

namespace korvane {

/// Measures of the frame and caption that a box or dialog over the window's picture draws itself.
inline constexpr int kFrameBorder = 3;
inline constexpr int kFrameCaption = 18;
inline constexpr int kCaptionPadding = 5;

/// Where the caption lies in a frame of this size, and the close box in the caption.
RECT CaptionOf(SIZE framed);
RECT CloseBoxOf(const RECT& caption);

void PaintWindowFrame(Canvas& canvas, std::string_view title);

enum class CloseBoxLook { Up, Down, Greyed };
void PaintCloseBox(Canvas& canvas, const RECT& place, CloseBoxLook look);

}  // namespace korvane
