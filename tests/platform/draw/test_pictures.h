#pragma once

#include <cstdint>
#include <optional>
#include <random>

#include "platform/base/types.h"
#include "platform/draw/pixel_buffer.h"

namespace korvane {

using Random = std::mt19937;

inline int Between(Random& random, int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
}

/// A rectangle of at least one pixel within 0, 0, size.
inline RECT RandomPart(Random& random, SIZE size) {
    const int left = Between(random, 0, size.cx - 1);
    const int top = Between(random, 0, size.cy - 1);
    return {left, top, Between(random, left + 1, size.cx), Between(random, top + 1, size.cy)};
}

/// Rectangles of random values on top of each other, with `key` among the values, and some single
/// key pixels: long and short runs, equal and unequal neighbours.
inline PixelBuffer RandomPicture(Random& random, SIZE size, int bytesPerPixel, std::uint32_t key) {
    PixelBuffer picture(size, bytesPerPixel);
    for (int count = Between(random, 1, 12); count > 0; --count) {
        const RECT part = RandomPart(random, size);
        const bool transparent = Between(random, 0, 2) == 0;
        for (int y = part.top; y < part.bottom; ++y)
            for (int x = part.left; x < part.right; ++x)
                picture.SetPixel({x, y}, transparent ? key : static_cast<std::uint32_t>(random()));
    }
    for (int count = Between(random, 0, 8); count > 0; --count)
        picture.SetPixel({Between(random, 0, size.cx - 1), Between(random, 0, size.cy - 1)}, key);
    return picture;
}

inline void NaiveFill(PixelBuffer& target, const RECT& area, std::uint32_t value) {
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x)
            target.SetPixel({x, y}, value);
}

/// The key has no bits beyond the pixel's.
inline void NaiveCopy(PixelBuffer& target, POINT at, const PixelBuffer& source, const RECT& part,
                      std::optional<std::uint32_t> key) {
    for (int y = part.top; y < part.bottom; ++y) {
        for (int x = part.left; x < part.right; ++x) {
            const std::uint32_t pixel = source.Pixel({x, y});
            if (pixel != key) target.SetPixel({at.x + x - part.left, at.y + y - part.top}, pixel);
        }
    }
}

/// The first pixel, row by row, where the two differ.
inline std::optional<POINT> FirstDifference(const PixelBuffer& a, const PixelBuffer& b) {
    for (int y = 0; y < a.Size().cy; ++y)
        for (int x = 0; x < a.Size().cx; ++x)
            if (a.Pixel({x, y}) != b.Pixel({x, y})) return POINT{x, y};
    return std::nullopt;
}

}  // namespace korvane
