#include "platform/draw/typeface.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstddef>
#include <map>

#include "platform/base/utf8.h"

namespace korvane {
namespace {

constexpr int kPixelSize = 13;

/// Many more than the program's own texts need. What a user types or pastes can be any character.
constexpr std::size_t kMostGlyphs = 512;

/// Where Linux distributions install the face.
constexpr const char* kFontFiles[] = {
    "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
    "/usr/share/fonts/dejavu-sans-fonts/DejaVuSans.ttf",
    "/usr/share/fonts/TTF/DejaVuSans.ttf",
};

}  // namespace

/// An open font file.
struct Typeface::FontFile {
    FT_Library library = nullptr;
    FT_Face face = nullptr;

    FontFile() = default;
    FontFile(const FontFile&) = delete;
    FontFile& operator=(const FontFile&) = delete;
    ~FontFile() {
        if (face) FT_Done_Face(face);
        if (library) FT_Done_FreeType(library);
    }

    bool Open(const char* path, int pixelSize) {
        return FT_Init_FreeType(&library) == 0 && FT_New_Face(library, path, 0, &face) == 0 &&
               FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(pixelSize)) == 0;
    }

    Glyph Load(char32_t character) const {
        if (FT_Load_Char(face, character, FT_LOAD_RENDER | FT_LOAD_TARGET_MONO) != 0) return {};
        const FT_GlyphSlot slot = face->glyph;
        const FT_Bitmap& bitmap = slot->bitmap;
        Glyph glyph;
        glyph.left = slot->bitmap_left;
        glyph.top = slot->bitmap_top;
        glyph.width = static_cast<int>(bitmap.width);
        glyph.advance = static_cast<int>(slot->advance.x >> 6);
        for (unsigned y = 0; y < bitmap.rows; ++y) {
            const unsigned char* row = bitmap.buffer + static_cast<int>(y) * bitmap.pitch;
            for (unsigned x = 0; x < bitmap.width; ++x)
                glyph.dots.push_back((row[x / 8] >> (7 - x % 8) & 1) != 0);
        }
        return glyph;
    }
};

Typeface::Typeface(int scale) : scale_(scale) {
    for (const char* path : kFontFiles) {
        auto file = std::make_unique<FontFile>();
        if (!file->Open(path, kPixelSize * scale)) continue;
        file_ = std::move(file);
        return;
    }
}

Typeface::~Typeface() = default;

const Glyph& Typeface::GlyphOf(char32_t character) {
    if (glyphs_.size() >= kMostGlyphs && !glyphs_.contains(character)) glyphs_.clear();
    const auto [entry, isNew] = glyphs_.try_emplace(character);
    if (isNew) entry->second = file_ ? file_->Load(character) : TinyGlyph(character, scale_);
    return entry->second;
}

int Typeface::Width(std::string_view utf8) {
    int width = 0;
    while (!utf8.empty())
        width += GlyphOf(TakeCharacter(utf8)).advance;
    return width;
}

int Typeface::CapitalHeight() {
    return GlyphOf('H').top;
}

void Typeface::Draw(PixelBuffer& target, POINT baseline, std::string_view utf8,
                    std::uint32_t pixel) {
    POINT pen = baseline;
    while (!utf8.empty()) {
        const Glyph& glyph = GlyphOf(TakeCharacter(utf8));
        const POINT corner{pen.x + glyph.left, pen.y - glyph.top};
        const RECT visible =
            Intersect(RectAt(corner, {glyph.width, glyph.Height()}), target.Bounds());
        for (int y = visible.top; y < visible.bottom; ++y) {
            for (int x = visible.left; x < visible.right; ++x) {
                const int dot = (y - corner.y) * glyph.width + x - corner.x;
                if (glyph.dots[static_cast<std::size_t>(dot)]) target.SetPixel({x, y}, pixel);
            }
        }
        pen.x += glyph.advance;
    }
}

Typeface& TypefaceOf(int scale) {
    static std::map<int, Typeface> typefaces;
    return typefaces.try_emplace(scale, scale).first->second;
}

}  // namespace korvane
