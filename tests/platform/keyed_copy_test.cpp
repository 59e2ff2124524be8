#include "platform/keyed_copy.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "tests/platform/test_pictures.h"

namespace korvane {
namespace {

constexpr int kDepths[] = {1, 2, 4};

/// Runs the check once with each instruction set of this machine.
void WithAllKernels(const std::function<void()>& check) {
    const CopyKernels& before = ActiveCopyKernels();
    for (const CopyKernels& kernels : AvailableCopyKernels()) {
        SCOPED_TRACE(kernels.name);
        UseCopyKernels(kernels);
        check();
    }
    UseCopyKernels(before);
}

/// All bytes, those behind the rows' last pixels too.
std::vector<std::byte> Bytes(const PixelBuffer& buffer) {
    return {buffer.Row(0), buffer.Row(0) + buffer.Pitch() * buffer.Size().cy};
}

PixelBuffer Copied(const PixelBuffer& buffer) {
    PixelBuffer copy(buffer.Size(), buffer.BytesPerPixel());
    std::memcpy(copy.Row(0), buffer.Row(0),
                static_cast<std::size_t>(buffer.Pitch() * buffer.Size().cy));
    return copy;
}

/// Pixels of value 1 where the drawing has '#', key 0 elsewhere.
PixelBuffer Drawing(const std::vector<std::string>& rows) {
    PixelBuffer picture(
        {static_cast<std::int32_t>(rows[0].size()), static_cast<std::int32_t>(rows.size())}, 4);
    for (int y = 0; y < picture.Size().cy; ++y) {
        for (int x = 0; x < picture.Size().cx; ++x) {
            const char mark = rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
            if (mark == '#') picture.SetPixel({x, y}, 1);
        }
    }
    return picture;
}

TEST(PixelBuffer, KeepsPixelsApartInAllDepths) {
    for (const int depth : kDepths) {
        PixelBuffer buffer({3, 2}, depth);
        const std::uint32_t mask = 0xFFFFFFFFu >> (32 - 8 * depth);
        buffer.SetPixel({1, 0}, 0xA1B2C3D4);
        EXPECT_EQ(buffer.Pixel({1, 0}), 0xA1B2C3D4 & mask) << depth;
        EXPECT_EQ(buffer.Pixel({0, 0}), 0u) << depth;
        EXPECT_EQ(buffer.Pixel({2, 0}), 0u) << depth;
        EXPECT_EQ(buffer.Pixel({1, 1}), 0u) << depth;
    }
}

TEST(PixelBuffer, AlignsEveryRow) {
    for (const SIZE size : {SIZE{1, 3}, SIZE{16, 3}, SIZE{17, 3}, SIZE{218, 3}}) {
        for (const int depth : kDepths) {
            const PixelBuffer buffer(size, depth);
            EXPECT_GE(buffer.Pitch(), size.cx * depth);
            for (int y = 0; y < size.cy; ++y) {
                EXPECT_EQ(
                    reinterpret_cast<std::uintptr_t>(buffer.Row(y)) % PixelBuffer::kRowAlignment,
                    0u)
                    << size.cx << " pixels of " << depth;
            }
        }
    }
}

TEST(OpaqueRuns, JoinsEqualRunsBelowEachOther) {
    struct {
        const char* what;
        std::vector<std::string> rows;
        std::size_t blocks;
    } const cases[] = {
        {"nothing opaque", {"....", "...."}, 0},
        {"all opaque", {"####", "####"}, 1},
        {"a frame", {"####", "#..#", "#..#", "####"}, 4},
        {"rounded corners", {".##.", "####", "####", ".##."}, 3},
        {"a run that only begins like the one above", {"##..", "###."}, 2},
        {"a run that only ends like the one above", {".##.", "..#."}, 2},
        {"broken by an empty row", {"#..#", "....", "#..#"}, 4},
        {"one continues, one is new", {"#.#.", "#..#"}, 3},
        {"strokes side by side", {"#.#.#", "#.#.#", "#...#"}, 3},
    };
    for (const auto& [what, rows, blocks] : cases) {
        EXPECT_EQ(OpaqueRuns(Drawing(rows), 0).Blocks(0, 0).size(), blocks) << what;
    }
}

TEST(OpaqueRuns, CutsStripsIntoCells) {
    PixelBuffer strip({128, 16}, 4);
    NaiveFill(strip, strip.Bounds(), 7);
    const OpaqueRuns runs(strip, 0);
    ASSERT_EQ(runs.TileSize().cx, 16);
    for (int cell = 0; cell < 8; ++cell) {
        ASSERT_EQ(runs.Blocks(cell, 0).size(), 1u) << cell;
        const OpaqueBlock& block = runs.Blocks(cell, 0)[0];
        EXPECT_EQ(block.left, 0);
        EXPECT_EQ(block.bytes, 64);
        EXPECT_EQ(block.rows, 16);
    }
}

TEST(OpaqueRuns, TakesOnlyTheKeyBitsThatPixelsHave) {
    for (const int depth : {1, 2}) {
        PixelBuffer picture({2, 1}, depth);
        picture.SetPixel({0, 0}, 0x5A);
        EXPECT_EQ(OpaqueRuns(picture, 0xFFFF005A).Blocks(0, 0).size(), 1u) << depth;
        EXPECT_EQ(OpaqueRuns(picture, 0xFFFF005A).Blocks(0, 0)[0].left, depth);
    }
}

TEST(OpaqueRuns, OfAPictureWithoutPixelsCopiesNothing) {
    const PixelBuffer none({0, 0}, 4);
    PixelBuffer target({4, 4}, 4);
    NaiveFill(target, target.Bounds(), 3);
    const std::vector<std::byte> before = Bytes(target);
    CopyKeyed(target, {0, 0}, none, OpaqueRuns(none, 0), none.Bounds());
    EXPECT_EQ(Bytes(target), before);
}

/// Fills and copies with every row width around the edges of the vector loops, and a byte beside
/// and rows above and below that must stay.
TEST(Copies, EveryWidthWritesExactlyItsPixels) {
    WithAllKernels([] {
        Random random(1);
        for (const int depth : kDepths) {
            const PixelBuffer source = RandomPicture(random, {300, 4}, depth, 0);
            const PixelBuffer background = RandomPicture(random, {310, 6}, depth, 0);
            for (int width = 1; width <= 300; ++width) {
                PixelBuffer wanted = Copied(background);
                PixelBuffer target = Copied(background);
                const int x = width % 7;
                NaiveCopy(wanted, {x, 1}, source, {300 - width, 0, 300, 4}, std::nullopt);
                CopyPlain(target, {x, 1}, source, {300 - width, 0, 300, 4});
                ASSERT_EQ(Bytes(target), Bytes(wanted)) << width << " of depth " << depth;

                NaiveFill(wanted, {x, 2, x + width, 5}, 0xC0FFEE11);
                FillArea(target, {x, 2, x + width, 5}, 0xC0FFEE11);
                ASSERT_EQ(Bytes(target), Bytes(wanted)) << width << " of depth " << depth;
            }
        }
    });
}

TEST(Copies, KeyedPartsOfRandomPicturesMatchSinglePixels) {
    constexpr SIZE kSizes[] = {{1, 1},    {7, 5},   {16, 16},   {56, 20},  {128, 16},
                               {416, 16}, {86, 60}, {218, 372}, {300, 70}, {20, 130}};
    WithAllKernels([&] {
        Random random(2);
        for (const SIZE size : kSizes) {
            for (const int depth : kDepths) {
                const auto key = static_cast<std::uint32_t>(Between(random, 0, 255));
                const PixelBuffer source = RandomPicture(random, size, depth, key);
                const OpaqueRuns runs(source, key);
                PixelBuffer target = RandomPicture(random, {440, 400}, depth, 0);
                PixelBuffer wanted = Copied(target);
                for (int cut = 0; cut < 12; ++cut) {
                    const RECT part = cut == 0 ? source.Bounds() : RandomPart(random, size);
                    const POINT at = {Between(random, 0, 440 - part.Width()),
                                      Between(random, 0, 400 - part.Height())};
                    NaiveCopy(wanted, at, source, part, key);
                    CopyKeyed(target, at, source, runs, part);
                    ASSERT_EQ(Bytes(target), Bytes(wanted))
                        << size.cx << " x " << size.cy << ", depth " << depth << ", part "
                        << part.left << ' ' << part.top << ' ' << part.right << ' ' << part.bottom;
                }
            }
        }
    });
}

/// More blocks in one tile than a clipped copy hands on at once.
TEST(Copies, KeyedPartOfNoiseMatchesSinglePixels) {
    WithAllKernels([] {
        Random random(3);
        PixelBuffer noise({64, 64}, 2);
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x)
                noise.SetPixel({x, y}, random() & 1);
        }
        PixelBuffer target({64, 64}, 2);
        NaiveFill(target, target.Bounds(), 9);
        PixelBuffer wanted = Copied(target);
        NaiveCopy(wanted, {1, 2}, noise, {1, 1, 63, 62}, 0u);
        CopyKeyed(target, {1, 2}, noise, OpaqueRuns(noise, 0), {1, 1, 63, 62});
        EXPECT_EQ(Bytes(target), Bytes(wanted));
    });
}

}  // namespace
}  // namespace korvane
