// A picture from a skin: decoded, searched for opaque runs, and copied with its key.

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

#include "fuzz/expect.h"
#include "platform/draw/bmp.h"
#include "platform/draw/pixel_buffer.h"
#include "platform/surfaces/keyed_copy.h"

namespace korvane::fuzz {
namespace {

PixelBuffer BufferOf(const DecodedBitmap& bitmap) {
    PixelBuffer pixels(bitmap.size, 4);
    const std::uint32_t* from = bitmap.pixels.data();
    for (int y = 0; y < bitmap.size.cy; ++y, from += bitmap.size.cx)
        std::memcpy(pixels.Row(y), from, static_cast<std::size_t>(bitmap.size.cx) * sizeof *from);
    return pixels;
}

/// The keyed copy of a part must be what copying pixel by pixel gives.
void CheckKeyedCopy(const PixelBuffer& pixels, const RECT& part) {
    const std::uint32_t key = pixels.Pixel({0, 0});
    const std::uint32_t ground = ~key;
    const OpaqueRuns runs(pixels, key);
    PixelBuffer target({part.Width(), part.Height()}, 4);
    FillArea(target, target.Bounds(), ground);
    CopyKeyed(target, {0, 0}, pixels, runs, part);
    for (int y = 0; y < part.Height(); ++y) {
        for (int x = 0; x < part.Width(); ++x) {
            const std::uint32_t from = pixels.Pixel({part.left + x, part.top + y});
            Expect(target.Pixel({x, y}) == (from == key ? ground : from));
        }
    }
}

void Try(std::span<const std::byte> input) {
    const std::optional<DecodedBitmap> bitmap = DecodeBmp(input);
    if (!bitmap) return;
    const SIZE size = bitmap->size;
    Expect(size.cx >= 1 && size.cx <= kMaxBitmapSide && size.cy >= 1 && size.cy <= kMaxBitmapSide);
    const std::int64_t count = std::int64_t{size.cx} * size.cy;
    Expect(std::cmp_equal(bitmap->pixels.size(), count));
    Expect(count * 4 <= kMaxDecodedBytes);
    Expect(std::ranges::all_of(bitmap->pixels, [](std::uint32_t p) { return p <= 0xFFFFFF; }));
    // Larger pictures take long and find nothing more.
    constexpr std::int64_t kSmall = 256 * 256;
    if (count > kSmall) return;
    const PixelBuffer pixels = BufferOf(*bitmap);
    CheckKeyedCopy(pixels, pixels.Bounds());
    CheckKeyedCopy(pixels, {size.cx / 3, size.cy / 3, size.cx, size.cy});
}

}  // namespace
}  // namespace korvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvane::fuzz::Try(korvane::fuzz::InputBytes(data, size));
    return 0;
}
