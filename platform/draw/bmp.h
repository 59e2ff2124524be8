#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/base/types.h"
#include "platform/draw/bmp_header.h"
#include "platform/draw/bmp_runs.h"

namespace korvane {

/// A decoded picture: 0x00RRGGBB pixels, top row first, no gaps between rows.
struct DecodedBitmap {
    SIZE size;
    std::vector<std::uint32_t> pixels;
};

/// A BMP file whose rows are decoded when they are asked for: any header, 1, 4 or 8 bits per pixel
/// (palette), 16 or 32 (any channel masks) or 24, rows from the bottom up or from the top down, or
/// run-length coded.
class BmpFile {
  public:
    /// No value for anything else, and for a file that is shorter than its header says.
    static std::optional<BmpFile> Open(std::vector<std::byte> file);

    SIZE Size() const { return layout_.size; }
    /// Row y from the top as 0x00RRGGBB pixels from column 0; at most as many as the row has.
    void ReadRow(int y, std::span<std::uint32_t> pixels) const;

  private:
    BmpFile(std::vector<std::byte> file, const BmpLayout& layout, std::optional<BmpRuns> runs);
    std::span<const std::byte> Pixels() const {
        return std::span(file_).subspan(layout_.pixelOffset);
    }

    std::vector<std::byte> file_;
    BmpLayout layout_;
    std::optional<BmpRuns> runs_;  ///< of a run-length coded file
    /// All 256 entries, so that an index beyond the file's palette is black and not a fault.
    std::array<std::uint32_t, 256> palette_{};
};

/// All rows of a BMP file that BmpFile opens.
std::optional<DecodedBitmap> DecodeBmp(std::span<const std::byte> file);

}  // namespace korvane
