#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/draw/pixel_buffer.h"
#include "platform/surfaces/frame_list.h"
#include "platform/surfaces/keyed_copy.h"

namespace korvane::bench {

/// A picture of 4-byte pixels with its colour key, found once.
struct KeyedPicture {
    PixelBuffer pixels;
    std::uint32_t key;
    OpaqueRuns runs;

    KeyedPicture(PixelBuffer picture, std::uint32_t keyValue)
        : pixels(std::move(picture)), key(keyValue), runs(pixels, keyValue) {}
};

/// One drawing call of a frame: a fill, or a copy of the picture's part that begins at `from`.
struct Operation {
    RECT area;                              ///< in the target, within it
    const KeyedPicture* picture = nullptr;  ///< null: a fill
    POINT from = {};
    bool keyed = false;
    std::uint32_t fill = 0;

    RECT Part() const { return RectAt(from, {area.Width(), area.Height()}); }
};

/// Everything that one frame draws, in order. The pictures must outlive it.
using RecordedFrame = std::vector<Operation>;

/// One way to draw a recorded frame in full, with everything prepared that a program would prepare
/// once.
class FrameDrawer {
  public:
    virtual ~FrameDrawer() = default;
    virtual void Draw() = 0;
    /// Pixel of what was drawn, without the bits that are no colour.
    virtual std::uint32_t Pixel(POINT point) const = 0;
};

/// Each operation at once by the layer's own copies.
class DirectDrawer : public FrameDrawer {
  public:
    DirectDrawer(SIZE size, const RecordedFrame& frame) : frame_(frame), target_(size, 4) {}
    void Draw() override;
    std::uint32_t Pixel(POINT point) const override;

  private:
    const RecordedFrame& frame_;
    PixelBuffer target_;
};

/// Through a FrameList that has lost its buffer, so that nothing is left out for being the same.
class ListDrawer : public FrameDrawer {
  public:
    ListDrawer(SIZE size, const RecordedFrame& frame) : frame_(frame), target_(size, 4) {}
    void Draw() override;
    std::uint32_t Pixel(POINT point) const override;

  private:
    const RecordedFrame& frame_;
    PixelBuffer target_;
    FrameList list_;
};

/// Records a frame's operations; a picture's version is its place in memory.
void Record(FrameList& list, const RecordedFrame& frame);

/// The least time for drawing the operations one by one with the library's copies: it moves as many
/// bytes as the frame writes, and all lengths are computed beforehand. Each row of an operation is
/// one memcpy of 4 bytes for every pixel that is written there; the opaque pixels of a keyed copy
/// are moved as if they stood side by side, so no right picture comes out. A fill is a memset, in
/// one piece where its rows adjoin.
class MemcpyFloor {
  public:
    MemcpyFloor(SIZE size, const RecordedFrame& frame);
    void Draw();

  private:
    struct Move {
        std::byte* to;
        const std::byte* from;  ///< null: memset
        std::size_t bytes;
    };

    void AddRow(const Operation& operation, int y, std::size_t bytes);

    PixelBuffer target_;
    std::vector<Move> moves_;
};

}  // namespace korvane::bench
