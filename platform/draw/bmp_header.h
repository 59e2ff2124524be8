#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/base/types.h"

namespace korvane {

/// Largest side of a picture, in pixels, and largest file, in bytes.
inline constexpr std::int32_t kMaxBitmapSide = 4096;
inline constexpr std::size_t kMaxBitmapBytes = 16 * 1024 * 1024;
/// Largest picture in memory, in bytes: a small file of few bits per pixel may become much larger.
inline constexpr std::int64_t kMaxDecodedBytes = 32 * 1024 * 1024;

/// Where a colour channel lies in a pixel of 16 or 32 bits.
struct BmpChannel {
    int shift = 0;
    std::uint32_t most = 0;  ///< the value of a full channel; 0: the pixel has no such channel

    /// 0 to 255, rounded to the nearest.
    std::uint32_t Of(std::uint32_t pixel) const {
        return most == 0 ? 0 : ((pixel >> shift & most) * 255 + most / 2) / most;
    }
    bool operator==(const BmpChannel&) const = default;
};
/// Red, green and blue.
using BmpChannels = std::array<BmpChannel, 3>;

/// The channels of 0x00RRGGBB.
inline constexpr BmpChannels kUsualChannels = {{{16, 255}, {8, 255}, {0, 255}}};

/// Where a BMP file keeps its palette and its rows, checked against its length.
struct BmpLayout {
    SIZE size;
    bool topDown = false;
    unsigned bits = 0;
    /// Rows of 4 or 8 bits as runs; otherwise each row takes `rowBytes`.
    bool runLength = false;
    std::size_t paletteOffset = 0;
    std::size_t paletteCount = 0;
    std::size_t paletteEntryBytes = 4;
    std::size_t pixelOffset = 0;
    std::size_t rowBytes = 0;               ///< in the file, padded to four bytes
    BmpChannels channels = kUsualChannels;  ///< of 16 or 32 bits per pixel
};

/// Reads the headers of a BMP file: the information header of 12 bytes, the one of 40 bytes and
/// later versions. No value when they are broken or the file is shorter than they say.
std::optional<BmpLayout> ReadBmpHeader(std::span<const std::byte> file);

}  // namespace korvane
