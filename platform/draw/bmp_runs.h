#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/draw/bmp_header.h"

namespace korvane {

/// The rows of a run-length coded picture of 4 or 8 bits per pixel.
///
/// The code is pairs of bytes: a count and a pixel to repeat (with 4 bits two, by turns), or 0 and
/// a command: 0 ends the row, 1 the picture, 2 goes right and up by the next two bytes, and a
/// higher number is that of pixels that follow, padded to two bytes.
class BmpRuns {
  public:
    /// Finds where each row begins. No value when the code ends within a pair or a command.
    static std::optional<BmpRuns> Find(std::span<const std::byte> code, const BmpLayout& layout);

    /// The palette indices of a row, counted as the file stores them. What the code leaves out is
    /// 0, what it puts beyond the row's end is dropped.
    void ReadRow(std::span<const std::byte> code, std::size_t row,
                 std::span<std::uint8_t> indices) const;

  private:
    struct RowStart {
        std::size_t at = 0;  ///< in the code
        std::size_t x = 0;
        bool coded = false;  ///< the code says nothing of other rows
    };

    explicit BmpRuns(const BmpLayout& layout)
        : bits_(layout.bits), rows_(static_cast<std::size_t>(layout.size.cy)) {}

    unsigned bits_;
    std::vector<RowStart> rows_;
};

}  // namespace korvane
