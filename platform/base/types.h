#pragma once

#include <cstdint>

namespace korvane {

/// Result of display, picture and start-up operations: 0 for success, negative for failure.
using HRESULT = std::int32_t;

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057);

inline constexpr HRESULT DDERR_SURFACELOST = static_cast<HRESULT>(0x887601C2);
inline constexpr HRESULT DDERR_WASSTILLDRAWING = static_cast<HRESULT>(0x8876021C);
inline constexpr HRESULT DDERR_EXCLUSIVEMODEALREADYSET = static_cast<HRESULT>(0x88760245);
inline constexpr HRESULT DDERR_WRONGMODE = static_cast<HRESULT>(0x8876024B);
inline constexpr HRESULT DDERR_NOEXCLUSIVEMODE = static_cast<HRESULT>(0x887600E1);
inline constexpr HRESULT DDERR_INVALIDRECT = static_cast<HRESULT>(0x88760096);

constexpr bool Failed(HRESULT result) {
    return result < 0;
}

/// A point in pixels; x grows to the right, y downwards.
struct POINT {
    std::int32_t x = 0;
    std::int32_t y = 0;

    bool operator==(const POINT&) const = default;
};

/// A size in pixels.
struct SIZE {
    std::int32_t cx = 0;
    std::int32_t cy = 0;

    bool operator==(const SIZE&) const = default;
};

/// Left and top are inside, right and bottom just outside.
struct RECT {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    bool operator==(const RECT&) const = default;

    constexpr std::int32_t Width() const { return right - left; }
    constexpr std::int32_t Height() const { return bottom - top; }
    constexpr SIZE Size() const { return {Width(), Height()}; }
    constexpr bool IsEmpty() const { return left >= right || top >= bottom; }
    constexpr std::int64_t PixelCount() const {
        return IsEmpty() ? 0 : std::int64_t{Width()} * Height();
    }
};

/// The rectangle of a size whose left upper corner is given.
constexpr RECT RectAt(POINT corner, SIZE size) {
    return {corner.x, corner.y, corner.x + size.cx, corner.y + size.cy};
}

/// The part that two rectangles share; empty (but possibly with crossed edges) when none.
constexpr RECT Intersect(const RECT& a, const RECT& b) {
    return {a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top,
            a.right < b.right ? a.right : b.right, a.bottom < b.bottom ? a.bottom : b.bottom};
}

/// True when all of the inner rectangle lies within the outer one.
constexpr bool Covers(const RECT& outer, const RECT& inner) {
    return Intersect(outer, inner) == inner;
}

/// True for an area that is not empty and lies within a picture of this size.
constexpr bool LiesWithin(const RECT& area, SIZE size) {
    return !area.IsEmpty() && Covers({0, 0, size.cx, size.cy}, area);
}

/// A rectangle inside another, so many pixels from its edges.
constexpr RECT Shrunk(const RECT& area, int by) {
    return {area.left + by, area.top + by, area.right - by, area.bottom - by};
}

constexpr bool Contains(const RECT& area, POINT point) {
    return point.x >= area.left && point.x < area.right && point.y >= area.top &&
           point.y < area.bottom;
}

struct Window;
/// The main window; null for none.
using HWND = Window*;

/// A colour as 0x00BBGGRR.
using COLORREF = std::uint32_t;

inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16;
}

}  // namespace korvane
