#include "gfx/surface.h"

#include <algorithm>

#include "gfx/display.h"
#include "gfx/skin.h"

namespace korvane {

namespace {

/// Tiles of this size fill a screen in fewer than a hundred copies.
constexpr std::int32_t kLeastTileSide = 64;

}  // namespace

Surface::Surface(const std::string& fileName, Use use) {
    Load(fileName, use);
}

bool Surface::Load(const std::string& fileName, Use use) {
    offscreen_.reset();
    loaded_ = false;
    width_ = height_ = 0;
    if (!currentDisplay) return false;
    SIZE size;
    const HRESULT result = currentDisplay->CreateSurfaceFromBitmap(
        fileName, offscreen_, size, use == Use::Tile ? kLeastTileSide : 1);
    if (Failed(result)) return false;
    width_ = size.cx;
    height_ = size.cy;
    SetColorKey(ColorKey(0));
    loaded_ = true;
    return true;
}

HRESULT Surface::Draw(std::int32_t x, std::int32_t y, std::int32_t sourceX, std::int32_t sourceY,
                      std::int32_t sourceWidth, std::int32_t sourceHeight,
                      std::uint32_t flags) const {
    if (!currentDisplay || !currentDisplay->BackBuffer() || !loaded_) return S_OK;
    const std::int32_t w = sourceWidth >= 1 ? sourceWidth : width_;
    const std::int32_t h = sourceHeight >= 1 ? sourceHeight : height_;
    // A point left of or above the buffer becomes one far outside it, which is refused as well.
    return currentDisplay->CopyToBackBuffer(static_cast<std::uint32_t>(x),
                                            static_cast<std::uint32_t>(y), offscreen_->Get(),
                                            RectAt({sourceX, sourceY}, {w, h}), flags);
}

HRESULT Surface::DrawKeyed(POINT at, const RECT& part) const {
    return Draw(at.x, at.y, part.left, part.top, part.Width(), part.Height(),
                DDBLTFAST_SRCCOLORKEY);
}

HRESULT Surface::DrawTiled(std::int32_t x, std::int32_t y, std::int32_t areaWidth,
                           std::int32_t areaHeight) const {
    if (!loaded_) return S_OK;
    for (std::int32_t top = 0; top < areaHeight; top += height_)
        for (std::int32_t left = 0; left < areaWidth; left += width_)
            Draw(x + left, y + top, 0, 0, std::min(width_, areaWidth - left),
                 std::min(height_, areaHeight - top), DDBLTFAST_NOCOLORKEY);
    return S_OK;
}

HRESULT Surface::SetColorKey(COLORREF colour) {
    return offscreen_ ? offscreen_->ApplyColorKey(colour) : S_OK;
}

}  // namespace korvane
