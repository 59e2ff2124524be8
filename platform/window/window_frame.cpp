#include "platform/window/window_frame.h"

#include "platform/window/button_face.h"

namespace korvane {
namespace {

constexpr SIZE kCloseBox = {16, 14};

/// A cross 8 pixels wide, 7 high, with strokes of 2.
void PaintCross(Canvas& canvas, POINT corner, Colour colour) {
    constexpr int kSide = 7;
    for (int y = 0; y < kSide; ++y) {
        for (const int x : {y, kSide - 1 - y})
            canvas.Fill({corner.x + x, corner.y + y, corner.x + x + 2, corner.y + y + 1}, colour);
    }
}

}  // namespace

RECT CaptionOf(SIZE framed) {
    return {kFrameBorder, kFrameBorder, framed.cx - kFrameBorder, kFrameBorder + kFrameCaption};
}

RECT CloseBoxOf(const RECT& caption) {
    const int right = caption.right - 2;
    const int top = caption.top + (caption.Height() - kCloseBox.cy) / 2;
    return {right - kCloseBox.cx, top, right, top + kCloseBox.cy};
}

void PaintWindowFrame(Canvas& canvas, std::string_view title) {
    const SIZE size = canvas.Size();
    const RECT caption = CaptionOf(size);
    canvas.Frame({0, 0, size.cx, size.cy}, kEdgeColour);
    canvas.Fill(caption, kCaptionColour);
    RECT row = caption;
    row.left += kCaptionPadding;
    TextLook look;
    look.colour = kCaptionTextColour;
    canvas.Text(row, title, look);
}

void PaintCloseBox(Canvas& canvas, const RECT& place, CloseBoxLook look) {
    const int shift = look == CloseBoxLook::Down ? 1 : 0;
    PaintButtonGround(canvas, place, /*held=*/shift != 0);
    const POINT cross{place.left + 4 + shift, place.top + 3 + shift};
    PaintCross(canvas, cross, look == CloseBoxLook::Greyed ? kGreyedColour : kTextColour);
}

}  // namespace korvane
