#pragma once

#include <array>
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

/// Where a file keeps its palette and its rows, checked against its length.
struct BmpLayout {
    SIZE size;
    bool topDown = false;
    unsigned bits = 0;
    std::size_t paletteOffset = 0;
    std::size_t paletteCount = 0;
    std::size_t pixelOffset = 0;
    std::size_t rowBytes = 0;  ///< in the file, padded to four bytes
};

/// A BMP file whose rows are decoded when they are asked for: an information header of 40 bytes or
/// a later version's, uncompressed, 1, 4, 8 (palette), 24 or 32 bits per pixel, rows from the
/// bottom up or from the top down.
class BmpFile {
  public:
    /// No value for anything else, and for a file that is shorter than its header says.
    static std::optional<BmpFile> Open(std::vector<std::byte> file);

    SIZE Size() const { return layout_.size; }
    /// Row y from the top as 0x00RRGGBB pixels from column 0; at most as many as the row has.
    void ReadRow(int y, std::span<std::uint32_t> pixels) const;

  private:
    BmpFile(std::vector<std::byte> file, const BmpLayout& layout);

    std::vector<std::byte> file_;
    BmpLayout layout_;
    /// All 256 entries, so that an index beyond the file's palette is black and not a fault.
    std::array<std::uint32_t, 256> palette_{};
};

/// All rows of a BMP file that BmpFile opens.
std::optional<DecodedBitmap> DecodeBmp(std::span<const std::byte> file);

}  // namespace korvane
