#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/base/types.h"
#include "platform/draw/pixel_buffer.h"
#include "platform/surfaces/copy_kernels.h"

namespace korvane {

/// Where a picture differs from its colour key.
///
/// Found once, when the pixels or the key change, so that a copy does not look at single pixels:
/// runs of opaque pixels that stand below each other in the same columns form one block, and a
/// copy moves whole blocks. The picture is divided into tiles that no block crosses; a copy of a
/// part visits only the tiles that it touches, so a cell of a long strip costs no more than a
/// picture of the cell's size.
class OpaqueRuns {
  public:
    /// The least number of pixels in a core.
    static constexpr std::int64_t kLeastCore = 128 * 128;

    /// Of a picture without pixels.
    OpaqueRuns() = default;
    /// Pixels whose value equals the key are transparent. Of the key only the bits count that a
    /// pixel has.
    OpaqueRuns(const PixelBuffer& pixels, std::uint32_t key);

    /// The size of the picture.
    SIZE Size() const { return size_; }
    /// Tiles have this size, powers of two, but for the last column and row, which end with the
    /// picture.
    SIZE TileSize() const { return {1 << tileShift_.x, 1 << tileShift_.y}; }
    /// The exponents of both.
    POINT TileShift() const { return tileShift_; }
    /// A large rectangle without a transparent pixel, empty when the picture has none that is worth
    /// knowing: what lies under it need not be drawn.
    const RECT& Core() const { return core_; }
    /// The blocks of one tile, from top to bottom, placed from the tile's top left corner.
    std::span<const OpaqueBlock> Blocks(int tileColumn, int tileRow) const;

  private:
    SIZE size_;
    POINT tileShift_;
    int tileColumns_ = 0;
    RECT core_;
    std::vector<OpaqueBlock> blocks_;
    /// Index of each tile's first block, row of tiles by row of tiles, and one past the last.
    std::vector<std::uint32_t> firstBlock_;
};

// All of these need: the areas and parts lie within their buffers (clipped once by the caller; an
// empty one draws nothing), both buffers have pixels of the same size and are not the same one.

/// Copies `part` of the source to `at`.
void CopyPlain(PixelBuffer& target, POINT at, const PixelBuffer& source, const RECT& part);

/// Copies the opaque pixels of `part` of the source to `at`. `runs` were made from the source as
/// it is now.
void CopyKeyed(PixelBuffer& target, POINT at, const PixelBuffer& source, const OpaqueRuns& runs,
               const RECT& part);

/// Gives every pixel of the area the value; bits beyond the pixel's bytes are dropped.
void FillArea(PixelBuffer& target, const RECT& area, std::uint32_t value);

}  // namespace korvane
