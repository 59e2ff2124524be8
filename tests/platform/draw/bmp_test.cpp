#include "platform/draw/bmp.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/support/bmp_writer.h"
#include "tests/support/broken_files.h"

namespace korvane {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

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
                const auto bitmap = DecodeBmp(MakeBmp({.width = width,
                                                       .height = height,
                                                       .bits = bits,
                                                       .pixel = bits <= 8 ? index : Pattern,
                                                       .palette = palette}));
                ASSERT_TRUE(bitmap);
                ASSERT_EQ(bitmap->size, (SIZE{width, 3}));
                std::vector<std::uint32_t> wanted;
                for (int i = 0; i < 3 * width; ++i) {
                    const POINT at = {i % width, i / width};
                    wanted.push_back(bits <= 8 ? palette[index(at.x, at.y)] : Pattern(at.x, at.y));
                }
                EXPECT_EQ(bitmap->pixels, wanted);
            }
        }
    }
}

TEST(BmpTest, OldAndLaterHeadersAreRead) {
    for (const std::uint32_t infoSize : {12u, 40u, 56u, 108u, 124u}) {
        for (const int bits : {4, 24}) {
            BmpRecipe recipe{.width = 3, .height = 2, .bits = bits, .infoSize = infoSize};
            recipe.pixel = [](int x, int) { return x == 0 ? 1u : 0u; };
            if (bits == 4) recipe.palette = {0x332211, 0x665544};
            const auto bitmap = DecodeBmp(MakeBmp(recipe));
            ASSERT_TRUE(bitmap) << infoSize << " bytes, bits: " << bits;
            EXPECT_EQ(bitmap->size, (SIZE{3, 2}));
            EXPECT_EQ(bitmap->pixels[3], bits == 4 ? 0x665544u : 1u) << infoSize;
        }
    }
}

TEST(BmpTest, ChannelsMayLieAnywhere) {
    using Masks = std::vector<std::uint32_t>;
    // Masks of red, green and blue (none: the format's own), a pixel and its colour.
    const std::tuple<int, Masks, std::uint32_t, std::uint32_t> kCases[] = {
        {16, {}, 31u << 10 | 16u << 5 | 1, 0xFF8408},
        {16, {0xF800, 0x07E0, 0x001F}, 31u << 11 | 32u << 5 | 1, 0xFF8208},
        {16, {0x000F, 0x00F0, 0x0F00}, 0x0F8A, 0xAA88FF},
        {32, {0x000000FF, 0x0000FF00, 0x00FF0000}, 0x11223344, 0x443322},
        {32, {0xFF000000, 0x00FF0000, 0x0000FF00}, 0x11223344, 0x112233},
        {32, {0x3FF00000, 0x000FFC00, 0x000003FF}, 0x3FF80000, 0xFF8000},
        {32, {0x00FF0000, 0, 0x000000FF}, 0x11223344, 0x220044},
        {32, {0x00F0F000, 0x0000FF00, 0x000000FF}, 0, ~0u},  // red has a gap
        {32, {0x1FFFE000, 0, 1}, 0x10000001, 0x8000FF},
        {32, {0xFFFFFFFE, 0, 1}, 0, ~0u},  // red is too wide
    };
    for (const auto& [bits, masks, pixel, colour] : kCases) {
        const std::uint32_t stored = pixel;
        const auto bitmap = DecodeBmp(MakeBmp({.bits = bits,
                                               .compression = masks.empty() ? 0u : 3u,
                                               .masks = masks,
                                               .pixel = [=](int, int) { return stored; }}));
        EXPECT_EQ(bitmap ? bitmap->pixels[0] : ~0u, colour) << bits << ' ' << std::hex << pixel;
    }
}

TEST(BmpTest, RunsAreRead) {
    // The code, and the palette indices of the rows from the top; none: refused.
    const std::tuple<int, std::string_view, std::string_view> kCases[] = {
        {8, "\4\1\0\0\4\2\0\1"sv, "2222 1111"},
        {8, "\0\4\1\2\3\4\0\0\0\3\5\6\7\0\0\1"sv, "5670 1234"},
        {8, "\0\3\1\2\3\0\1\7\0\0\0\1"sv, "0000 1237"},  // padded
        {8, "\1\1\0\2\1\1\2\2\0\1"sv, "0022 1000"},      // right and up
        {8, "\1\1\0\2\2\0\1\3\0\0\0\1"sv, "0000 1003"},  // right
        {8, "\0\2\0\1\1\1\0\1"sv, "1000 0000"},          // up alone
        {8, "\11\1\0\0\1\2\0\1"sv, "2000 1111"},         // beyond the row
        {8, "\4\1\0\0\4\2\0\0"sv, "2222 1111"},          // without an end
        {8, "\0\1"sv, "0000 0000"},
        {8, "\0\2\0\5"sv, "0000 0000"},  // beyond the picture
        {8, "\4\1\0\0\4\2"sv, ""},       // cut
        {8, "\4\1\0"sv, ""},
        {8, "\0\2\1"sv, ""},
        {8, "\0\4\1\2\3"sv, ""},
        {4, "\4\x12\0\0\3\x34\0\1"sv, "3430 1212"},
        {4, "\0\3\x12\x30\0\0\0\4\x45\x67\0\1"sv, "4567 1230"},
    };
    for (const auto& [bits, code, rows] : kCases) {
        BmpRecipe recipe{.width = 4, .height = 2, .bits = bits, .code = std::string(code)};
        recipe.compression = bits == 8 ? 1 : 2;
        for (std::uint32_t i = 0; i < 16; ++i)
            recipe.palette.push_back(i);
        const auto bitmap = DecodeBmp(MakeBmp(recipe));
        std::string seen;
        for (std::size_t i = 0; bitmap && i < 8; ++i)
            seen += std::string(i == 4 ? " " : "") + static_cast<char>('0' + bitmap->pixels[i]);
        EXPECT_EQ(seen, rows) << bits << ' ' << testing::PrintToString(code);
        recipe.height = -2;
        EXPECT_FALSE(DecodeBmp(MakeBmp(recipe))) << "runs from the top down";
    }
}

TEST(BmpTest, OtherFormatsAreRefused) {
    struct Field {
        const char* what;
        std::size_t offset;
        std::vector<std::int32_t> refused;
    };
    const auto file = MakeBmp({.width = 4, .height = 4, .bits = 32});
    EXPECT_TRUE(DecodeBmp(file));
    for (const Field& field : {
             Field{"signature", 0, {0x4D43}},
             Field{"place of the pixels", 10, {53, 1000, -1}},
             Field{"size of the header", 14, {11, 13, 125}},
             Field{"width", 18, {-4, 0, 6, INT32_MAX}},
             Field{"height", 22, {INT32_MIN, 0, 5, INT32_MAX}},
             Field{"depth", 28, {0, 2, 31, 64, 65535}},
             Field{"compression", 30, {1, 2, 4, 5, 6}},
         }) {
        for (const std::int32_t value : field.refused) {
            auto changed = file;
            for (std::size_t i = 0; i < 4; ++i)
                changed[field.offset + i] = static_cast<std::byte>(value >> 8 * i);
            EXPECT_FALSE(DecodeBmp(changed)) << field.what << ' ' << value;
        }
    }
    auto indexed = MakeBmp({.bits = 4, .palette = std::vector<std::uint32_t>(17)});
    for (const auto& [colours, isRead] : {std::pair(16, true), {17, false}}) {
        indexed[46] = static_cast<std::byte>(colours);
        EXPECT_EQ(DecodeBmp(indexed).has_value(), isRead) << colours << " colours of 4 bits";
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
    const BmpRecipe kRecipes[] = {
        {.bits = 1},
        {.bits = 4},
        {.bits = 8},
        {.bits = 24},
        {.bits = 16, .compression = 3, .masks = {0xF00, 0xF0, 0xF}},
        {.bits = 4, .compression = 2, .code = "\11\x12\0\0\0\11\1\2\3\4\5\6\0\1"s},
        {.bits = 8, .infoSize = 12},
    };
    for (BmpRecipe recipe : kRecipes) {
        recipe.width = 9;
        recipe.height = 2;
        if (recipe.bits <= 8) recipe.palette.assign(std::size_t{1} << recipe.bits, 0x00ABCDEF);
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
