#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/base/types.h"

namespace korvane {

/// A decoded picture: 0x00RRGGBB pixels, top row first, no gaps between rows.
struct DecodedBitmap {
    SIZE size;
    std::vector<std::uint32_t> pixels;
};

/// Largest side of a picture, in pixels, and largest file, in bytes.
inline constexpr std::int32_t kMaxBitmapSide = 4096;
inline constexpr std::size_t kMaxBitmapBytes = 16 * 1024 * 1024;
/// Largest picture in memory, in bytes: a small file of few bits per pixel may become much larger.
inline constexpr std::int64_t kMaxDecodedBytes = 32 * 1024 * 1024;

/// Decodes a BMP file: an information header of 40 bytes or a later version's, uncompressed, 1, 4,
/// 8 (palette), 24 or 32 bits per pixel, rows from the bottom up or from the top down. No value for
/// anything else and for a file that is shorter than its header says. Memory is taken only after
/// the header has been checked against the file.
std::optional<DecodedBitmap> DecodeBmp(std::span<const std::byte> file);

}  // namespace korvane
