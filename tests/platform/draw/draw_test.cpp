#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/draw/canvas.h"
#include "platform/draw/pixel_format.h"
#include "platform/draw/typeface.h"

namespace korvane {
namespace {

TEST(PixelFormatTest, EveryDepthStoresTheNearestColourItHas) {
    for (const auto& [bits, colour, stored] : {std::tuple(32, 0x12345678u, 0x345678u),
                                               {16, 0xFFFFFF, 0xFFFFFF},
                                               {16, 0x080408, 0x080408},
                                               {16, 0x070307, 0},
                                               {8, 0xFFCC33, 0xFFCC33},
                                               {8, 0x300000, 0x330000},
                                               {8, 0x808080, 0x828282},
                                               {8, 0xFFFFFF, 0xFFFFFF}}) {
        const PixelFormat format = FormatOfDepth(bits);
        EXPECT_EQ(UnpackPixel(format, PackPixel(format, colour)), stored)
            << bits << " bits, " << std::hex << colour;
    }
}

TEST(TinyFaceTest, CharactersHaveTheirShapes) {
    const auto shape = [](char32_t character, int dotSize) {
        const Glyph glyph = TinyGlyph(character, dotSize);
        EXPECT_EQ(glyph.width, 5 * dotSize);
        EXPECT_EQ(glyph.top, 7 * dotSize);
        EXPECT_EQ(glyph.advance, 6 * dotSize);
        std::string dots;
        for (const bool dot : glyph.dots)
            dots += dot ? '#' : '.';
        return dots;
    };
    const std::string letter = "#....#....#....#....#....#....#####";
    EXPECT_EQ(shape('L', 1), letter);
    EXPECT_EQ(shape('l', 1), letter);
    EXPECT_EQ(shape(U'\u00FC', 1), shape('?', 1));
    EXPECT_EQ(shape('L', 2).substr(100), "##........##........####################");
}

TEST(CanvasTest, APastedCanvasIsCutAtTheEdges) {
    Canvas pasted({2, 2}, 1);
    for (int i = 0; i < 4; ++i)
        pasted.Fill(RectAt({i % 2, i / 2}, {1, 1}), static_cast<Colour>(i + 1));
    using Colours = std::vector<Colour>;
    for (const auto& [at, wanted] : {std::pair(POINT{0, 0}, Colours{1, 2, 3, 4}),
                                     {{-1, -1}, {4, 0, 0, 0}},
                                     {{1, -1}, {0, 3, 0, 0}},
                                     {{-1, 1}, {0, 0, 2, 0}},
                                     {{2, 0}, {0, 0, 0, 0}}}) {
        Canvas canvas({2, 2}, 1);
        canvas.Paste(pasted, at);
        const PictureView view = canvas.View();
        Colours seen(view.pixels, view.pixels + 2);
        seen.insert(seen.end(), view.pixels + view.pitch, view.pixels + view.pitch + 2);
        EXPECT_EQ(seen, wanted) << at.x << ", " << at.y;
    }
}

}  // namespace
}  // namespace korvane
