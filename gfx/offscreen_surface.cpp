#include "gfx/offscreen_surface.h"

#include <bit>

#include "platform/draw/pixel_buffer.h"

namespace korvane {
namespace {

/// An 8-bit channel value, cut to the mask's width and moved to its place. Masks wider than 8 bits
/// are not supported; an empty mask gives 0.
std::uint32_t ToChannel(std::uint32_t value, std::uint32_t mask) {
    if (mask == 0) return 0;
    return (value & 0xFF) >> (8 - std::popcount(mask)) << std::countr_zero(mask);
}

}  // namespace

HRESULT OffscreenSurface::Create(IDirectDraw7* directDraw, const DDSURFACEDESC2& wanted) {
    IDirectDrawSurface7* created = nullptr;
    const HRESULT result = directDraw->CreateSurface(wanted, created);
    if (Failed(result)) return result;
    surface_.reset(created);
    surface_->GetSurfaceDesc(description_);
    return result;
}

HRESULT OffscreenSurface::CopyBitmap(HBITMAP bitmap, SIZE copies) {
    if (!bitmap || !surface_) return E_INVALIDARG;
    HRESULT result = surface_->Restore();
    if (Failed(result)) return result;
    result = surface_->GetSurfaceDesc(description_);
    if (Failed(result)) return result;
    if (description_.pixelFlags == DDPF_FOURCC) return E_NOTIMPL;

    const UniqueContext memory(CreateCompatibleDC());
    if (!memory) return E_FAIL;
    SelectObject(memory.get(), bitmap);
    const BITMAP size = GetObjectA(bitmap);

    HDC context = nullptr;
    result = surface_->GetDC(context);
    if (Failed(result)) return result;
    const SIZE copy{static_cast<std::int32_t>(description_.width) / copies.cx,
                    static_cast<std::int32_t>(description_.height) / copies.cy};
    for (int y = 0; y < copies.cy; ++y)
        for (int x = 0; x < copies.cx; ++x)
            StretchBlt(context, RectAt({x * copy.cx, y * copy.cy}, copy), memory.get(),
                       {0, 0, size.width, size.height});
    return surface_->ReleaseDC(context);
}

HRESULT OffscreenSurface::ApplyColorKey(COLORREF colour) {
    if (!surface_) return E_POINTER;
    const std::uint32_t pixel =
        description_.format.bits == 8 ? PixelFromGdi(colour) : ColorToPixel(surface_.get(), colour);
    return surface_->SetColorKey(DDCKEY_SRCBLT, {pixel, pixel});
}

/// Draws the colour at 0, 0 and returns what stood there; CLR_INVALID when it could not.
COLORREF OffscreenSurface::ExchangeFirstPixel(COLORREF colour) {
    HDC context = nullptr;
    if (Failed(surface_->GetDC(context))) return CLR_INVALID;
    const COLORREF before = GetPixel(context, 0, 0);
    SetPixel(context, 0, 0, colour);
    surface_->ReleaseDC(context);
    return before;
}

std::uint32_t OffscreenSurface::PixelFromGdi(COLORREF colour) {
    if (!surface_) return 0;
    const bool draws = colour != CLR_INVALID;
    const COLORREF before = draws ? ExchangeFirstPixel(colour) : CLR_INVALID;
    std::uint32_t pixel = CLR_INVALID;
    DDSURFACEDESC2 locked;
    if (!Failed(surface_->Lock(locked, DDLOCK_WAIT))) {
        pixel = LoadPixel(locked.pixels, locked.format.BytesPerPixel());
        surface_->Unlock();
    }
    if (draws) ExchangeFirstPixel(before);
    return pixel;
}

std::uint32_t ColorToPixel(IDirectDrawSurface7* surface, COLORREF colour) {
    DDSURFACEDESC2 description;
    surface->GetSurfaceDesc(description);
    return ToChannel(colour, description.format.redMask) |
           ToChannel(colour >> 8, description.format.greenMask) |
           ToChannel(colour >> 16, description.format.blueMask);
}

}  // namespace korvane
