#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "gfx/surface.h"

namespace korvane {

/// Capital letters, digits and : ; < = > ? @ in cells of 16 x 16 pixels. Other characters draw
/// nothing but take the same room.
class BitmapFont {
  public:
    BitmapFont();
    virtual ~BitmapFont() = default;

    /// From the left, 14 pixels per character: neighbouring cells overlap by two columns, which the
    /// glyphs leave transparent.
    void DrawText(std::string_view text, std::int32_t x, std::int32_t y) const;
    /// From the left, 16 pixels per character.
    void DrawTextWide(std::string_view text, std::int32_t x, std::int32_t y) const;
    /// 14 pixels per character, ending at `right`.
    void DrawTextRight(std::string_view text, std::int32_t right, std::int32_t y) const;
    /// 14 pixels per character from x, or from so far left of it that nothing stands right of
    /// `right`.
    void DrawTextWithin(std::string_view text, std::int32_t x, std::int32_t right,
                        std::int32_t y) const;
    /// Loads both pictures again from the current skin.
    void Reload();

  private:
    void DrawSpaced(std::string_view text, POINT pen, std::int32_t advance) const;

    Surface letters_;
    Surface numbers_;
};

/// The program's one font; null before the display exists.
extern std::unique_ptr<BitmapFont> theFont;

}  // namespace korvane
