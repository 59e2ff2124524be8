#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/draw/canvas.h"
#include "platform/draw/pixel_format.h"
#include "platform/draw/typeface.h"

namespace korvane {
namespace {

/// How bright a colour is for the eye, 0 to 1: the relative luminance of sRGB.
double Luminance(Colour colour) {
    double sum = 0;
    for (const auto& [shift, weight] : {std::pair{16, 0.2126}, {8, 0.7152}, {0, 0.0722}}) {
        const double channel = (colour >> shift & 0xFF) / 255.0;
        sum += weight *
               (channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4));
    }
    return sum;
}

TEST(ThemeTest, WhatIsReadStandsOutFromItsGround) {
    for (const auto& [sign, ground, least] : {std::tuple{kTextColour, kFaceColour, 7.0},
                                              {kTextColour, kFieldColour, 7.0},
                                              {kTextColour, kButtonColour, 4.5},
                                              {kTextColour, kHeldButtonColour, 4.5},
                                              {kTextColour, kIdleSelectionColour, 4.5},
                                              {kSelectedTextColour, kSelectionColour, 7.0},
                                              {kCaptionTextColour, kCaptionColour, 4.5},
                                              {kGreyedColour, kFaceColour, 4.5},
                                              {kGreyedColour, kFieldColour, 4.5},
                                              {kGreyedColour, kButtonColour, 3.0},
                                              {kFocusColour, kFaceColour, 4.5},
                                              {kFocusColour, kButtonColour, 4.5},
                                              {kDefaultEdgeColour, kFaceColour, 4.5}}) {
        const auto [darker, lighter] = std::minmax({Luminance(sign), Luminance(ground)});
        EXPECT_GE((lighter + 0.05) / (darker + 0.05), least) << std::hex << sign << " " << ground;
    }
}

TEST(PixelFormatTest, EveryDepthStoresTheNearestColourItHas) {
    struct Case {
        int bits;
        std::uint32_t colour;
        std::uint32_t stored;
    };
    for (const Case& c :
         {Case{32, 0x12345678, 0x345678}, Case{16, 0xFFFFFF, 0xFFFFFF},
          Case{16, 0x080408, 0x080408}, Case{16, 0x070307, 0}, Case{8, 0xFFCC33, 0xFFCC33},
          Case{8, 0x300000, 0x330000}, Case{8, 0x808080, 0x828282}, Case{8, 0xFFFFFF, 0xFFFFFF}}) {
        const PixelFormat format = FormatOfDepth(c.bits);
        EXPECT_EQ(UnpackPixel(format, PackPixel(format, c.colour)), c.stored)
            << c.bits << " bits, " << std::hex << c.colour;
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
    struct Case {
        POINT at;
        std::vector<Colour> wanted;
    };
    for (const Case& c :
         {Case{{0, 0}, {1, 2, 3, 4}}, Case{{-1, -1}, {4, 0, 0, 0}}, Case{{1, -1}, {0, 3, 0, 0}},
          Case{{-1, 1}, {0, 0, 2, 0}}, Case{{2, 0}, {0, 0, 0, 0}}}) {
        Canvas canvas({2, 2}, 1);
        canvas.Paste(pasted, c.at);
        const PictureView view = canvas.View();
        std::vector<Colour> seen(view.pixels, view.pixels + 2);
        seen.insert(seen.end(), view.pixels + view.pitch, view.pixels + view.pitch + 2);
        EXPECT_EQ(seen, c.wanted) << c.at.x << ", " << c.at.y;
    }
}

}  // namespace
}  // namespace korvane
