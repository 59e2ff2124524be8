#include "gfx/surface.h"

#include <algorithm>

#include "gfx/display.h"
#include "gfx/skin.h"

namespace korvane {

Surface::Surface(const std::string& fileName) {
    Load(fileName);
}

bool Surface::Load(const std::string& fileName) {
    offscreen_.reset();
    loaded_ = false;
    width_ = height_ = 0;
    if (!currentDisplay) return false;
    SIZE size;
    const HRESULT result = currentDisplay->CreateSurfaceFromBitmap(fileName, offscreen_, size);
    if (Failed(result)) return false;
    width_ = static_cast<std::uint32_t>(size.cx);
    height_ = static_cast<std::uint32_t>(size.cy);
    SetColorKey(ColorKey(0));
    loaded_ = true;
    return true;
}

HRESULT Surface::Draw(std::uint32_t x, std::uint32_t y, std::int32_t sourceX, std::int32_t sourceY,
                      std::int32_t sourceWidth, std::int32_t sourceHeight,
                      std::uint32_t flags) const {
    if (!currentDisplay || !currentDisplay->BackBuffer() || !loaded_) return S_OK;
    const std::int32_t w = sourceWidth >= 1 ? sourceWidth : static_cast<std::int32_t>(width_);
    const std::int32_t h = sourceHeight >= 1 ? sourceHeight : static_cast<std::int32_t>(height_);
    return currentDisplay->CopyToBackBuffer(x, y, offscreen_->Get(),
                                            {sourceX, sourceY, sourceX + w, sourceY + h}, flags);
}

HRESULT Surface::DrawTiled(std::uint32_t x, std::uint32_t y, std::uint32_t areaWidth,
                           std::uint32_t areaHeight) const {
    if (!loaded_) return S_OK;
    for (std::uint32_t top = 0; top < areaHeight; top += height_) {
        const std::uint32_t tileHeight = std::min(height_, areaHeight - top);
        for (std::uint32_t left = 0; left < areaWidth; left += width_) {
            const std::uint32_t tileWidth = std::min(width_, areaWidth - left);
            Draw(x + left, y + top, 0, 0, static_cast<std::int32_t>(tileWidth),
                 static_cast<std::int32_t>(tileHeight), DDBLTFAST_NOCOLORKEY);
        }
    }
    return S_OK;
}

HRESULT Surface::SetColorKey(COLORREF colour) {
    return offscreen_ ? offscreen_->ApplyColorKey(colour) : S_OK;
}

}  // namespace korvane
