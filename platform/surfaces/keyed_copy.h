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
/// This is found once, when the pixels or the key change, so that a copy does not look at single
/// pixels. Runs of opaque pixels below each other in the same columns form a block, and a copy
/// moves whole blocks. The picture is divided into tiles that no block crosses. A copy of a part
/// visits only the tiles that it touches, so that a cell of a long strip costs as much as a picture
/// of its size.
class OpaqueRuns {
  public:
    /// The least number of pixels in a core.
    static constexpr std::int64_t kLeastCore = 128 * 128;

    /// Of a picture without pixels.
    OpaqueRuns() = default;
    /// Pixels whose value equals the key are transparent. Bits of the key beyond those of a pixel
    /// are ignored.
    OpaqueRuns(const PixelBuffer& pixels, std::uint32_t key);

    /// The size of the picture.
    SIZE Size() const { return size_; }
    /// Both sides of a tile are powers of two. Those of the last column and row end with the
    /// picture.
    SIZE TileSize() const { return {1 << tileShift_.x, 1 << tileShift_.y}; }
    /// The exponents of both.
    POINT TileShift() const { return tileShift_; }
    /// The largest rectangle without a transparent pixel: what lies under it need not be drawn.
    /// Empty when it would have fewer than kLeastCore pixels.
    const RECT& Core() const { return core_; }
    /// The blocks of one tile, from top to bottom, relative to the tile's top left corner.
    std::span<const OpaqueBlock> Blocks(int tileColumn, int tileRow) const;

  private:
    SIZE size_;
    POINT tileShift_;
    int tileColumns_ = 0;
    RECT core_;
    std::vector<OpaqueBlock> blocks_;
    /// The index of each tile's first block, row by row of tiles, and the number of all blocks.
    std::vector<std::uint32_t> firstBlock_;
};

// For all of these the caller has clipped areas and parts to their buffers; an empty one draws
// nothing. Source and target are two buffers with pixels of the same size.

/// Copies `part` of the source to `at`.
void CopyPlain(PixelBuffer& target, POINT at, const PixelBuffer& source, const RECT& part);

/// Copies the opaque pixels of `part` of the source to `at`. `runs` were made from the present
/// contents of the source.
void CopyKeyed(PixelBuffer& target, POINT at, const PixelBuffer& source, const OpaqueRuns& runs,
               const RECT& part);

/// Gives every pixel of the area the value; bits beyond the pixel's bytes are dropped.
void FillArea(PixelBuffer& target, const RECT& area, std::uint32_t value);

}  // namespace korvane
