#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/base/types.h"
#include "platform/draw/pixel_buffer.h"
#include "platform/draw/theme.h"
#include "platform/host/host.h"

namespace korvane {

struct TextLook {
    static constexpr std::size_t kNothing = std::string_view::npos;

    Colour colour = kTextColour;
    std::size_t underlined = kNothing;  ///< index of the byte that is the mnemonic
};

/// Height and width of a line of text in layer pixels, rounded up.
inline constexpr int kTextLineHeight = 16;
int TextWidth(std::string_view utf8, int scale);

/// A picture that is drawn in layer pixels but holds `scale` x `scale` screen pixels for each, so
/// that text and thin lines are as fine as the screen. Drawing is clipped to it.
class Canvas {
  public:
    /// Black.
    Canvas(SIZE size, int scale);

    SIZE Size() const { return size_; }
    int Scale() const { return scale_; }
    PictureView View() const;

    /// Copies a canvas of the same scale to a point.
    void Paste(const Canvas& canvas, POINT at);
    void Fill(const RECT& area, Colour colour);
    /// A 1-pixel line along the inside of the area's edges.
    void Frame(const RECT& area, Colour leftTop, Colour rightBottom);
    void Frame(const RECT& area, Colour colour) { Frame(area, colour, colour); }
    /// A 1-pixel line of alternating dots inside the area's edges.
    void DottedFrame(const RECT& area, Colour colour);
    /// One line of text from the row's left edge, its capitals in the middle of the row's height.
    void Text(const RECT& row, std::string_view utf8, const TextLook& look);
    /// A picture of 0xAARRGGBB pixels, stretched to an area.
    void Picture(const RECT& area, const PictureView& picture);
    /// The largest disc in a square area, with one colour for its left top half and one for the
    /// other.
    void Disc(const RECT& square, Colour leftTop, Colour rightBottom);
    void Disc(const RECT& square, Colour colour) { Disc(square, colour, colour); }
    /// A cross of two strokes in a square area.
    void Cross(const RECT& square, int stroke, Colour colour);

  private:
    RECT InScreenPixels(const RECT& area) const;

    SIZE size_;
    int scale_;
    PixelBuffer pixels_;
};

}  // namespace korvane
