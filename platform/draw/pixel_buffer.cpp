#include "platform/draw/pixel_buffer.h"

#include <cassert>
#include <cstring>

namespace korvane {
namespace {

template <class Value>
std::uint32_t Load(const std::byte* from) {
    Value value;
    std::memcpy(&value, from, sizeof(value));
    return value;
}

template <class Value>
void Store(std::byte* to, std::uint32_t pixel) {
    const auto value = static_cast<Value>(pixel);
    std::memcpy(to, &value, sizeof(value));
}

constexpr std::size_t RoundUp(std::size_t value, std::size_t step) {
    return (value + step - 1) / step * step;
}

}  // namespace

std::uint32_t LoadPixel(const std::byte* from, int bytesPerPixel) {
    switch (bytesPerPixel) {
        case 1:
            return Load<std::uint8_t>(from);
        case 2:
            return Load<std::uint16_t>(from);
        default:
            return Load<std::uint32_t>(from);
    }
}

PixelBuffer::PixelBuffer(SIZE size, int bytesPerPixel)
    : size_(size), bytesPerPixel_(bytesPerPixel) {
    assert(size.cx >= 0 && size.cy >= 0);
    assert(bytesPerPixel == 1 || bytesPerPixel == 2 || bytesPerPixel == 4);
    const std::size_t pitch = RoundUp(
        static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(bytesPerPixel), kRowAlignment);
    const std::size_t bytes = pitch * static_cast<std::size_t>(size.cy);
    pitch_ = static_cast<std::ptrdiff_t>(pitch);
    memory_.reset(
        static_cast<std::byte*>(::operator new[](bytes, std::align_val_t{kRowAlignment})));
    std::memset(memory_.get(), 0, bytes);
}

std::uint32_t PixelBuffer::Pixel(POINT point) const {
    assert(point.x >= 0 && point.x < size_.cx && point.y >= 0 && point.y < size_.cy);
    return LoadPixel(At(point), bytesPerPixel_);
}

void PixelBuffer::SetPixel(POINT point, std::uint32_t value) {
    assert(point.x >= 0 && point.x < size_.cx && point.y >= 0 && point.y < size_.cy);
    switch (bytesPerPixel_) {
        case 1:
            return Store<std::uint8_t>(At(point), value);
        case 2:
            return Store<std::uint16_t>(At(point), value);
        default:
            return Store<std::uint32_t>(At(point), value);
    }
}

}  // namespace korvane
