#include "platform/surfaces/keyed_copy.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cstring>

namespace korvane {
namespace {

// A strip of cells about as wide as high is divided into tiles about as wide as the strip is high,
// so that the blocks of one cell do not reach into the next. The upper limits make a copy of a
// small part of a large picture visit few blocks; rows of 256 pixels are long enough for full
// speed.
constexpr std::uint32_t kMinTileWidth = 16;
constexpr std::uint32_t kMaxTileWidth = 256;
constexpr int kTileHeightShift = 6;

void AssertCopyable([[maybe_unused]] const PixelBuffer& target, [[maybe_unused]] POINT at,
                    [[maybe_unused]] const PixelBuffer& source, [[maybe_unused]] const RECT& part) {
    assert(&target != &source && target.BytesPerPixel() == source.BytesPerPixel());
    assert(Covers(source.Bounds(), part));
    assert(Covers(target.Bounds(), RectAt(at, part.Size())));
}

/// Four bytes that hold the pixel value as often as it fits.
std::uint32_t FillPattern(std::uint32_t value, int bytesPerPixel) {
    switch (bytesPerPixel) {
        case 1:
            return (value & 0xFF) * 0x01010101u;
        case 2:
            return (value & 0xFFFF) * 0x00010001u;
        default:
            return value;
    }
}

/// Which pixels of a picture differ from the key.
class KeyMask {
  public:
    KeyMask(const PixelBuffer& pixels, std::uint32_t key)
        : size_(pixels.Size()), opaque_(static_cast<std::size_t>(size_.cx * size_.cy)) {
        if (pixels.BytesPerPixel() == 1) Find(pixels, static_cast<std::uint8_t>(key));
        if (pixels.BytesPerPixel() == 2) Find(pixels, static_cast<std::uint16_t>(key));
        if (pixels.BytesPerPixel() == 4) Find(pixels, key);
    }

    SIZE Size() const { return size_; }
    bool IsOpaque(int x, int y) const {
        return opaque_[static_cast<std::size_t>(y * size_.cx + x)] != 0;
    }

  private:
    template <class Value>
    void Find(const PixelBuffer& pixels, Value key) {
        std::uint8_t* opaque = opaque_.data();
        for (int y = 0; y < size_.cy; ++y) {
            const std::byte* pixel = pixels.Row(y);
            for (int x = 0; x < size_.cx; ++x, pixel += sizeof(Value)) {
                Value value;
                std::memcpy(&value, pixel, sizeof(value));
                *opaque++ = value != key ? 1 : 0;
            }
        }
    }

    SIZE size_;
    std::vector<std::uint8_t> opaque_;
};

/// Finds the blocks of one tile from its runs, row by row from the left. A run with the same
/// columns as a block that ends in the row above makes that block one row higher; any other run
/// begins a block.
class BlockFinder {
  public:
    /// The tile's blocks are appended to `blocks`.
    explicit BlockFinder(std::vector<OpaqueBlock>& blocks) : blocks_(blocks) {}

    void AddRun(int row, int left, int bytes) {
        while (above_ < aboveRow_.size() && blocks_[aboveRow_[above_]].left < left)
            ++above_;
        std::size_t block = blocks_.size();
        if (above_ < aboveRow_.size() && blocks_[aboveRow_[above_]].left == left &&
            blocks_[aboveRow_[above_]].bytes == bytes) {
            block = aboveRow_[above_];
            ++blocks_[block].rows;
        } else {
            blocks_.push_back({static_cast<std::uint16_t>(left), static_cast<std::uint16_t>(row),
                               static_cast<std::uint16_t>(bytes), 1});
        }
        thisRow_.push_back(block);
    }

    void EndRow() {
        aboveRow_.swap(thisRow_);
        thisRow_.clear();
        above_ = 0;
    }

  private:
    std::vector<OpaqueBlock>& blocks_;
    std::vector<std::size_t> aboveRow_;  ///< blocks that reach down to the row above, from the left
    std::vector<std::size_t> thisRow_;
    std::size_t above_ = 0;  ///< the first of aboveRow_ that does not begin left of the current run
};

/// Appends the blocks of a tile.
void FindBlocks(const KeyMask& mask, const RECT& tile, int bytesPerPixel,
                std::vector<OpaqueBlock>& blocks) {
    BlockFinder finder(blocks);
    for (std::int32_t y = tile.top; y < tile.bottom; ++y) {
        std::int32_t x = tile.left;
        while (x < tile.right) {
            while (x < tile.right && !mask.IsOpaque(x, y))
                ++x;
            const std::int32_t begin = x;
            while (x < tile.right && mask.IsOpaque(x, y))
                ++x;
            if (x == begin) break;
            finder.AddRun(y - tile.top, (begin - tile.left) * bytesPerPixel,
                          (x - begin) * bytesPerPixel);
        }
        finder.EndRow();
    }
}

/// The part of a block that lies within `window`, placed from the window's corner (the window in
/// the tile's bytes and rows); 0 rows when there is none.
OpaqueBlock Clip(const OpaqueBlock& block, const RECT& window) {
    const int left = std::max<int>(block.left, window.left);
    const int top = std::max<int>(block.top, window.top);
    const int right = std::min<int>(block.left + block.bytes, window.right);
    const int bottom = std::min<int>(block.top + block.rows, window.bottom);
    if (left >= right || top >= bottom) return {};
    return {static_cast<std::uint16_t>(left - window.left),
            static_cast<std::uint16_t>(top - window.top), static_cast<std::uint16_t>(right - left),
            static_cast<std::uint16_t>(bottom - top)};
}

/// Copies what lies within `window` of the blocks of a tile; the route begins at its corner.
void CopyClipped(const CopyKernels& kernels, const CopyRoute& route,
                 std::span<const OpaqueBlock> blocks, const RECT& window) {
    std::array<OpaqueBlock, 64> clipped;
    std::size_t count = 0;
    for (const OpaqueBlock& block : blocks) {
        if (block.top >= window.bottom) break;
        clipped[count] = Clip(block, window);
        if (clipped[count].rows != 0) ++count;
        if (count == clipped.size()) {
            kernels.copyBlocks(route, clipped);
            count = 0;
        }
    }
    kernels.copyBlocks(route, std::span(clipped).first(count));
}

/// The largest rectangle that ends with the row up to which `heights` counts, for each column, the
/// opaque pixels upwards. `bottom` is that row's lower edge.
RECT LargestEndingAt(std::span<const std::int32_t> heights, std::int32_t bottom) {
    struct Step {
        std::int32_t left;
        std::int32_t height;
    };
    std::vector<Step> steps;  // rising from left to right: rectangles that may still grow
    RECT largest;
    const auto width = static_cast<std::int32_t>(heights.size());
    for (std::int32_t x = 0; x <= width; ++x) {
        const std::int32_t height = x < width ? heights[static_cast<std::size_t>(x)] : 0;
        std::int32_t left = x;
        while (!steps.empty() && steps.back().height >= height) {
            left = steps.back().left;
            const RECT ended = {left, bottom - steps.back().height, x, bottom};
            if (ended.PixelCount() > largest.PixelCount()) largest = ended;
            steps.pop_back();
        }
        steps.push_back({left, height});
    }
    return largest;
}

RECT LargestOpaque(const KeyMask& mask) {
    const SIZE size = mask.Size();
    std::vector<std::int32_t> heights(static_cast<std::size_t>(size.cx), 0);
    RECT largest;
    for (std::int32_t y = 0; y < size.cy; ++y) {
        for (std::int32_t x = 0; x < size.cx; ++x) {
            std::int32_t& height = heights[static_cast<std::size_t>(x)];
            height = mask.IsOpaque(x, y) ? height + 1 : 0;
        }
        const RECT ended = LargestEndingAt(heights, y + 1);
        if (ended.PixelCount() > largest.PixelCount()) largest = ended;
    }
    return largest;
}

}  // namespace

OpaqueRuns::OpaqueRuns(const PixelBuffer& pixels, std::uint32_t key) : size_(pixels.Size()) {
    const auto height = static_cast<std::uint32_t>(size_.cy);
    const std::uint32_t width = std::clamp(std::bit_ceil(height), kMinTileWidth, kMaxTileWidth);
    tileShift_.x = std::countr_zero(width);
    tileShift_.y = kTileHeightShift;
    tileColumns_ = (size_.cx + TileSize().cx - 1) >> tileShift_.x;
    const KeyMask mask(pixels, key);
    for (std::int32_t y = 0; y < size_.cy; y += TileSize().cy) {
        for (std::int32_t x = 0; x < size_.cx; x += TileSize().cx) {
            firstBlock_.push_back(static_cast<std::uint32_t>(blocks_.size()));
            FindBlocks(mask, Intersect(RectAt({x, y}, TileSize()), pixels.Bounds()),
                       pixels.BytesPerPixel(), blocks_);
        }
    }
    firstBlock_.push_back(static_cast<std::uint32_t>(blocks_.size()));
    if (pixels.Bounds().PixelCount() < kLeastCore) return;
    const RECT core = LargestOpaque(mask);
    if (core.PixelCount() >= kLeastCore) core_ = core;
}

std::span<const OpaqueBlock> OpaqueRuns::Blocks(int tileColumn, int tileRow) const {
    const auto tile = static_cast<std::size_t>(tileRow * tileColumns_ + tileColumn);
    return {blocks_.data() + firstBlock_[tile], blocks_.data() + firstBlock_[tile + 1]};
}

void CopyPlain(PixelBuffer& target, POINT at, const PixelBuffer& source, const RECT& part) {
    if (part.IsEmpty()) return;
    AssertCopyable(target, at, source, part);
    const auto bytes = static_cast<std::size_t>(part.Width() * source.BytesPerPixel());
    const CopyRoute route = {target.At(at), target.Pitch(), source.At({part.left, part.top}),
                             source.Pitch()};
    ActiveCopyKernels().copyRows(route, bytes, part.Height());
}

void CopyKeyed(PixelBuffer& target, POINT at, const PixelBuffer& source, const OpaqueRuns& runs,
               const RECT& part) {
    if (part.IsEmpty()) return;
    AssertCopyable(target, at, source, part);
    assert(runs.Size() == source.Size());
    const CopyKernels& kernels = ActiveCopyKernels();
    const SIZE size = runs.TileSize();
    const POINT shift = runs.TileShift();
    const int bytesPerPixel = source.BytesPerPixel();
    for (int row = part.top >> shift.y; row * size.cy < part.bottom; ++row) {
        for (int column = part.left >> shift.x; column * size.cx < part.right; ++column) {
            const POINT corner = {column * size.cx, row * size.cy};
            const RECT tile = Intersect(RectAt(corner, size), source.Bounds());
            const RECT shown = Intersect(tile, part);
            const CopyRoute route = {
                target.At({at.x + shown.left - part.left, at.y + shown.top - part.top}),
                target.Pitch(), source.At({shown.left, shown.top}), source.Pitch()};
            if (shown == tile) {
                kernels.copyBlocks(route, runs.Blocks(column, row));
            } else {
                CopyClipped(kernels, route, runs.Blocks(column, row),
                            {(shown.left - tile.left) * bytesPerPixel, shown.top - tile.top,
                             (shown.right - tile.left) * bytesPerPixel, shown.bottom - tile.top});
            }
        }
    }
}

void FillArea(PixelBuffer& target, const RECT& area, std::uint32_t value) {
    if (area.IsEmpty()) return;
    assert(Covers(target.Bounds(), area));
    const int bytesPerPixel = target.BytesPerPixel();
    ActiveCopyKernels().fillRows(target.At({area.left, area.top}), target.Pitch(),
                                 static_cast<std::size_t>(area.Width() * bytesPerPixel),
                                 area.Height(), FillPattern(value, bytesPerPixel));
}

}  // namespace korvane
