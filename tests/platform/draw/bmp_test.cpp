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
             Field{"size of the header", 14, {12, 125}},
             Field{"width", 18, {-4, 0, 6, INT32_MAX}},
             Field{"height", 22, {INT32_MIN, 0, 5, INT32_MAX}},
             Field{"depth", 28, {0, 2, 16, 31, 64, 65535}},
             Field{"compression", 30, {1, 5}},
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
