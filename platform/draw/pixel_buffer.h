#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

#include "platform/base/types.h"

namespace korvane {

/// A pixel of 1, 2 or 4 bytes in the machine's byte order, at any address.
std::uint32_t LoadPixel(const std::byte* from, int bytesPerPixel);

/// The memory of one surface: rows of pixels from top to bottom, each pixel a number of 1, 2 or 4
/// bytes in the machine's byte order. The owner knows what the numbers mean (palette entries,
/// colour bits).
///
/// A buffer that was moved from may only be assigned to or destroyed.
class PixelBuffer {
  public:
    /// Rows start at multiples of this many bytes: one cache line, so that wide copies stay fast.
    static constexpr std::size_t kRowAlignment = 64;

    /// Without pixels: 0 x 0.
    PixelBuffer() = default;
    /// All pixels 0. Neither side may be negative; bytesPerPixel is 1, 2 or 4.
    /// Throws std::bad_alloc when there is not enough memory.
    PixelBuffer(SIZE size, int bytesPerPixel);

    SIZE Size() const { return size_; }
    RECT Bounds() const { return {0, 0, size_.cx, size_.cy}; }
    int BytesPerPixel() const { return bytesPerPixel_; }
    /// Bytes from one row to the next, a multiple of kRowAlignment.
    std::ptrdiff_t Pitch() const { return pitch_; }

    /// The first byte of row y, 0 <= y < height.
    std::byte* Row(int y) { return memory_.get() + y * pitch_; }
    const std::byte* Row(int y) const { return memory_.get() + y * pitch_; }

    /// The first byte of the pixel at a point inside the buffer.
    std::byte* At(POINT point) { return Row(point.y) + OffsetInRow(point.x); }
    const std::byte* At(POINT point) const { return Row(point.y) + OffsetInRow(point.x); }

    /// One pixel. Slow: not for loops over whole pictures. Bits beyond the pixel's bytes read as 0
    /// and are dropped when written.
    std::uint32_t Pixel(POINT point) const;
    void SetPixel(POINT point, std::uint32_t value);

  private:
    struct Free {
        void operator()(std::byte* memory) const {
            ::operator delete[](memory, std::align_val_t{kRowAlignment});
        }
    };

    std::ptrdiff_t OffsetInRow(int x) const {
        return static_cast<std::ptrdiff_t>(x) * bytesPerPixel_;
    }

    SIZE size_;
    int bytesPerPixel_ = 4;
    std::ptrdiff_t pitch_ = 0;
    std::unique_ptr<std::byte[], Free> memory_;
};

}  // namespace korvane
