#include "platform/draw/bmp.h"

#include <gtest/gtest.h>

#include <utility>

#include "tests/support/bmp_writer.h"
#include "tests/support/broken_files.h"

namespace korvane {
namespace {

std::uint32_t Pattern(int x, int y) {
    return 0x102030u + static_cast<std::uint32_t>(x * 0x010003 + y * 0x000705);
}

TEST(BmpTest, EveryDepthAndRowOrderIsRead) {
    const std::vector<std::uint32_t> palette = {0x112233, 0x445566};
    const auto index = [](int x, int y) { return static_cast<std::uint32_t>((x + y) & 1); };
    for (const int bits : {1, 4, 8, 24, 32}) {
        for (const int height : {3, -3}) {
            for (const int width : {1, 5, 8, 9}) {
                SCOPED_TRACE(testing::Message() << bits << " bits, " << width << " x " << height);
                BmpRecipe recipe{.width = width, .height = height, .bits = bits, .pixel = Pattern};
                if (bits <= 8) {
                    recipe.palette = palette;
                    recipe.pixel = index;
                }
                const auto bitmap = DecodeBmp(MakeBmp(recipe));
                ASSERT_TRUE(bitmap);
                ASSERT_EQ(bitmap->size, (SIZE{width, 3}));
                std::vector<std::uint32_t> wanted;
                for (int i = 0; i < 3 * width; ++i) {
                    const std::uint32_t value = recipe.pixel(i % width, i / width);
                    wanted.push_back(bits <= 8 ? palette[value] : value);
                }
                EXPECT_EQ(bitmap->pixels, wanted);
            }
        }
    }
}

TEST(BmpTest, LaterHeadersAndTheUsualMasksAreRead) {
    for (const std::uint32_t infoSize : {40u, 56u, 108u, 124u})
        EXPECT_TRUE(DecodeBmp(MakeBmp({.height = 2, .infoSize = infoSize}))) << infoSize;
    // Channel masks follow the 40 bytes, or are part of a later header: red, green, blue.
    auto masked = MakeBmp({.width = 2, .height = 2, .bits = 32, .compression = 3, .infoSize = 56});
    EXPECT_FALSE(DecodeBmp(masked)) << "masks of 0";
    masked[54 + 2] = masked[58 + 1] = masked[62] = std::byte{0xFF};
    EXPECT_TRUE(DecodeBmp(masked));
    masked[54 + 2] = std::byte{0x7F};
    EXPECT_FALSE(DecodeBmp(masked)) << "other masks";
}

TEST(BmpTest, OtherFormatsAreRefused) {
    struct Case {
        const char* what;
        std::size_t offset;
        std::int32_t value;
        bool isRead = false;
        int bits = 24;
    };
    for (const Case& c : {
             Case{"nothing changed", 2, 0, true},
             Case{"another format", 0, 0x4D43},
             Case{"pixels behind the end", 10, 1000},
             Case{"pixels far behind the end", 10, -1},
             Case{"pixels within the header", 10, 53},
             Case{"an old header", 14, 12},
             Case{"an unknown header", 14, 125},
             Case{"no columns", 18, 0},
             Case{"negative width", 18, -4},
             Case{"more columns than the file holds", 18, 6},
             Case{"the widest", 18, INT32_MAX},
             Case{"no rows", 22, 0},
             Case{"more rows than the file holds", 22, 5},
             Case{"the tallest", 22, INT32_MAX},
             Case{"the deepest", 22, INT32_MIN},
             Case{"no depth", 28, 0},
             Case{"2 bits", 28, 2},
             Case{"16 bits", 28, 16},
             Case{"31 bits", 28, 31},
             Case{"64 bits", 28, 64},
             Case{"65535 bits", 28, 65535},
             Case{"run lengths", 30, 1},
             Case{"embedded pictures", 30, 5},
             Case{"all the palette's colours", 46, 16, true, 4},
             Case{"more colours than 4 bits tell apart", 46, 17, false, 4},
         }) {
        BmpRecipe recipe{.width = 4, .height = 4, .bits = c.bits};
        if (c.bits < 24) recipe.palette.resize(17);
        auto file = MakeBmp(recipe);
        for (std::size_t i = 0; i < 4; ++i)
            file[c.offset + i] = static_cast<std::byte>(c.value >> 8 * i);
        EXPECT_EQ(DecodeBmp(file).has_value(), c.isRead) << c.what;
    }
}

TEST(BmpTest, SidesHaveALimit) {
    for (const auto& [side, isRead] :
         {std::pair(kMaxBitmapSide, true), {kMaxBitmapSide + 1, false}}) {
        EXPECT_EQ(DecodeBmp(MakeBmp({.width = side})).has_value(), isRead) << side;
        EXPECT_EQ(DecodeBmp(MakeBmp({.height = side})).has_value(), isRead) << side;
    }
}

TEST(BmpTest, CutFilesAreRefusedAndDamagedOnesDoNoHarm) {
    int decoded = 0;
    for (const int bits : {1, 4, 8, 24}) {
        BmpRecipe recipe{.width = 9, .height = 2, .bits = bits};
        if (bits <= 8) recipe.palette.assign(std::size_t{1} << bits, 0x00ABCDEF);
        const auto file = MakeBmp(recipe);
        ForEachCut(file, [](std::span<const std::byte> cut) { EXPECT_FALSE(DecodeBmp(cut)); });
        ForDamagedCopies(file, 54, 5'000, [&](std::span<const std::byte> damaged) {
            const auto bitmap = DecodeBmp(damaged);
            if (!bitmap) return;
            ++decoded;
            EXPECT_EQ(bitmap->pixels.size(),
                      static_cast<std::size_t>(bitmap->size.cx * bitmap->size.cy));
        });
    }
    EXPECT_GT(decoded, 100) << "too few damaged files are read";
}

}  // namespace
}  // namespace korvane
