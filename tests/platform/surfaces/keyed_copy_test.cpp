#include "platform/surfaces/keyed_copy.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <vector>

#include "tests/platform/draw/test_pictures.h"

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

/// Some tiles of them have more blocks than a clipped copy hands on at once.
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

}  // namespace
}  // namespace korvane
