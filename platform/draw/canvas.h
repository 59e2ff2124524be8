#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/base/types.h"
#include "platform/draw/pixel_buffer.h"
#include "platform/host/host.h"

namespace korvane {

/// A colour as 0x00RRGGBB.
using Colour = std::uint32_t;

/// The classic desktop's colours.
inline constexpr Colour kFaceColour = 0xD4D0C8;
inline constexpr Colour kLightColour = 0xFFFFFF;
inline constexpr Colour kSoftLightColour = 0xE3E1DB;
inline constexpr Colour kShadowColour = 0x808080;
inline constexpr Colour kDarkColour = 0x404040;
inline constexpr Colour kSelectionColour = 0x0A246A;
inline constexpr Colour kTextColour = 0x000000;
inline constexpr Colour kSelectedTextColour = 0xFFFFFF;

/// The two lines along a raised or sunken edge: of the left and top sides, of the right and bottom.
struct Bevel {
    Colour outerLight;
    Colour innerLight;
    Colour innerDark;
    Colour outerDark;
};

inline constexpr Bevel kWindowBevel = {kSoftLightColour, kLightColour, kShadowColour, kDarkColour};
inline constexpr Bevel kButtonBevel = {kLightColour, kSoftLightColour, kShadowColour, kDarkColour};

inline constexpr Bevel kSunkenBevel = {kShadowColour, kDarkColour, kSoftLightColour, kLightColour};

/// How text looks on the classic desktop, where greyed text is embossed.
struct TextLook {
    static constexpr std::size_t kNothing = std::string_view::npos;

    Colour colour = kTextColour;
    bool embossed = false;
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
    /// Two lines along the inside of the area's edges.
    void DrawBevel(const RECT& area, const Bevel& bevel);
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
    void TextOnce(const RECT& row, POINT offset, std::string_view utf8, Colour colour,
                  std::size_t underlined);

    SIZE size_;
    int scale_;
    PixelBuffer pixels_;
};

}  // namespace korvane
