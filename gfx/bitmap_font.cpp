#include "gfx/bitmap_font.h"

#include <algorithm>

namespace korvane {

std::unique_ptr<BitmapFont> theFont;

namespace {

constexpr const char* kLettersFile = "Letters.bmp";
constexpr const char* kNumbersFile = "Numbers.bmp";
constexpr std::int32_t kCell = 16;
constexpr std::int32_t kAdvance = 14;
constexpr std::int32_t kWideAdvance = 16;

void DrawCell(const Surface& picture, int cell, POINT at) {
    picture.DrawKeyed(at, RectAt({cell * kCell, 0}, {kCell, kCell}));
}

}  // namespace

BitmapFont::BitmapFont() : letters_(kLettersFile), numbers_(kNumbersFile) {}

void BitmapFont::DrawSpaced(std::string_view text, POINT pen, std::int32_t advance) const {
    for (const char character : text) {
        if (character >= '0' && character <= '@') DrawCell(numbers_, character - '0', pen);
        if (character >= 'A' && character <= 'Z') DrawCell(letters_, character - 'A', pen);
        pen.x += advance;
    }
}

void BitmapFont::DrawText(std::string_view text, std::int32_t x, std::int32_t y) const {
    DrawSpaced(text, {x, y}, kAdvance);
}

void BitmapFont::DrawTextWide(std::string_view text, std::int32_t x, std::int32_t y) const {
    DrawSpaced(text, {x, y}, kWideAdvance);
}

void BitmapFont::DrawTextRight(std::string_view text, std::int32_t right, std::int32_t y) const {
    DrawSpaced(text, {right - kAdvance * static_cast<std::int32_t>(text.size()), y}, kAdvance);
}

void BitmapFont::DrawTextWithin(std::string_view text, std::int32_t x, std::int32_t right,
                                std::int32_t y) const {
    const auto before = static_cast<std::int32_t>(text.size()) - 1;  // the last cell is drawn whole
    DrawText(text, std::min(x, right - before * kAdvance - kCell), y);
}

void BitmapFont::Reload() {
    letters_.Load(kLettersFile);
    numbers_.Load(kNumbersFile);
}

}  // namespace korvane
