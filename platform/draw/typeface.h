#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/base/types.h"
#include "platform/draw/pixel_buffer.h"

namespace korvane {

/// One character's shape, in pixels.
struct Glyph {
    int left = 0;            ///< from the pen to the shape's left edge
    int top = 0;             ///< from the baseline up to the shape's top edge
    int width = 0;           ///< of the shape
    int advance = 0;         ///< from this pen position to the next character's
    std::vector<bool> dots;  ///< row by row, `width` in each

    int Height() const { return width == 0 ? 0 : static_cast<int>(dots.size()) / width; }
};

/// A glyph of the layer's own small face of 5 x 7 dots, each dot `dotSize` pixels wide and high.
/// Small letters look like capitals; characters that the face lacks look like a question mark.
Glyph TinyGlyph(char32_t character, int dotSize);

/// The text of menus and message boxes in one size. It is drawn without smoothing, to be as crisp
/// as the 1-pixel lines around it.
class Typeface {
  public:
    /// The desktop's usual face at 13 pixels times `scale`, or the tiny one where it is missing.
    explicit Typeface(int scale);
    ~Typeface();
    Typeface(const Typeface&) = delete;
    Typeface& operator=(const Typeface&) = delete;

    /// Pixels from the first character's pen position to where the next one would stand. Bytes that
    /// are no UTF-8 count as one replacement character each.
    int Width(std::string_view utf8);
    /// The height of capitals above the baseline, in pixels.
    int CapitalHeight();
    /// Draws on a buffer of 32-bit pixels, clipped to it.
    void Draw(PixelBuffer& target, POINT baseline, std::string_view utf8, std::uint32_t pixel);

  private:
    struct FontFile;

    /// Valid until the next call.
    const Glyph& GlyphOf(char32_t character);

    int scale_;
    std::unique_ptr<FontFile> file_;  ///< null: the tiny face
    std::unordered_map<char32_t, Glyph> glyphs_;
};

/// The one typeface of a scale.
Typeface& TypefaceOf(int scale);

}  // namespace korvane
