#include "platform/draw/bmp.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/bmp_writer.h"

namespace korvane {
namespace {

std::uint32_t Pattern(int x, int y) {
    return 0x102030u + static_cast<std::uint32_t>(x * 0x010003 + y * 0x000705);
}

TEST(Bmp, ReadsEveryDepthAndRowOrder) {
    const std::vector<std::uint32_t> palette = {0x112233, 0x445566};
    for (const int bits : {1, 4, 8, 24, 32}) {
        for (const int height : {3, -3}) {
            for (const int width : {1, 5, 8, 9}) {
                SCOPED_TRACE(testing::Message() << bits << " bits, " << width << " x " << height);
                BmpRecipe recipe{.width = width, .height = height, .bits = bits};
                if (bits <= 8) {
                    recipe.palette = palette;
                    recipe.pixel = [](int x, int y) {
                        return static_cast<std::uint32_t>((x + y) & 1);
                    };
                } else {
                    recipe.pixel = Pattern;
                }
                const auto bitmap = DecodeBmp(MakeBmp(recipe));
                ASSERT_TRUE(bitmap);
                ASSERT_EQ(bitmap->size, (SIZE{width, 3}));
                for (int y = 0; y < 3; ++y) {
                    for (int x = 0; x < width; ++x) {
                        const std::uint32_t value = recipe.pixel(x, y);
                        EXPECT_EQ(bitmap->pixels[static_cast<std::size_t>(y * width + x)],
                                  bits <= 8 ? palette[value] : value);
                    }
                }
            }
        }
    }
}

TEST(Bmp, TakesLaterHeadersAndUsualMasks) {
    for (const std::uint32_t infoSize : {40u, 56u, 108u, 124u}) {
        BmpRecipe recipe{.width = 2, .height = 2, .infoSize = infoSize, .pixel = Pattern};
        EXPECT_TRUE(DecodeBmp(MakeBmp(recipe))) << infoSize;
    }
    // Channel masks follow the 40 bytes, or are part of a later header: red, green, blue.
    auto masked = MakeBmp({.width = 2, .height = 2, .bits = 32, .compression = 3, .infoSize = 56});
    EXPECT_FALSE(DecodeBmp(masked)) << "masks of 0";
    masked[54 + 2] = masked[58 + 1] = masked[62] = std::byte{0xFF};
    EXPECT_TRUE(DecodeBmp(masked));
    masked[54 + 2] = std::byte{0x7F};
    EXPECT_FALSE(DecodeBmp(masked)) << "other masks";
}

TEST(Bmp, RefusesWhatItDoesNotKnow) {
    const auto good = MakeBmp({.width = 4, .height = 4});
    ASSERT_TRUE(DecodeBmp(good));
    struct Case {
        const char* what;
        std::size_t offset;
        std::int32_t value;
    };
    for (const Case& c : {
             Case{"another format", 0, 0x4D43},
             Case{"pixels behind the end", 10, 1000},
             Case{"pixels far behind the end", 10, -1},
             Case{"an old header", 14, 12},
             Case{"an unknown header", 14, 125},
             Case{"no columns", 18, 0},
             Case{"negative width", 18, -4},
             Case{"more columns than the file holds", 18, 6},
             Case{"the widest", 18, INT32_MAX},
             Case{"wider than allowed", 18, kMaxBitmapSide + 1},
             Case{"no rows", 22, 0},
             Case{"more rows than the file holds", 22, 5},
             Case{"the tallest", 22, INT32_MAX},
             Case{"the deepest", 22, INT32_MIN},
             Case{"run lengths", 30, 1},
             Case{"embedded pictures", 30, 5},
         }) {
        auto file = good;
        for (std::size_t i = 0; i < 4; ++i)
            file[c.offset + i] =
                static_cast<std::byte>(static_cast<std::uint32_t>(c.value) >> 8 * i);
        EXPECT_FALSE(DecodeBmp(file)) << c.what;
    }
    auto unknownDepth = good;
    for (const int bits : {0, 2, 16, 31, 64, 65535}) {
        unknownDepth[28] = static_cast<std::byte>(bits & 0xFF);
        unknownDepth[29] = static_cast<std::byte>(bits >> 8);
        EXPECT_FALSE(DecodeBmp(unknownDepth)) << bits;
    }
}

TEST(Bmp, RefusesEveryCutFile) {
    for (const int bits : {1, 8, 24}) {
        BmpRecipe recipe{.width = 3, .height = 2, .bits = bits};
        if (bits <= 8) recipe.palette = {0, 0xFFFFFF};
        const auto file = MakeBmp(recipe);
        ASSERT_TRUE(DecodeBmp(file));
        for (std::size_t length = 0; length < file.size(); ++length)
            EXPECT_FALSE(DecodeBmp(std::span(file).first(length))) << bits << " bits, " << length;
    }
}

TEST(Bmp, SurvivesRandomDamage) {
    std::mt19937 random(7);
    BmpRecipe recipe{.width = 9, .height = 7, .bits = 4};
    recipe.palette.assign(16, 0x00ABCDEF);
    const auto good = MakeBmp(recipe);
    int decoded = 0;
    for (int round = 0; round < 20'000; ++round) {
        auto file = good;
        for (int hits = 0; hits < 4; ++hits)
            file[random() % 60 % file.size()] = static_cast<std::byte>(random());
        if (const auto bitmap = DecodeBmp(file)) {
            ++decoded;
            ASSERT_EQ(bitmap->pixels.size(), static_cast<std::size_t>(bitmap->size.cx) *
                                                 static_cast<std::size_t>(bitmap->size.cy));
        }
    }
    EXPECT_GT(decoded, 0) << "the damage must leave some files readable";
}

}  // namespace
}  // namespace korvane
