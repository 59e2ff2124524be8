#pragma once

#include <cstdint>

#include "platform/surfaces/ddraw.h"

namespace korvane {

/// Owns one off-screen picture surface.
class OffscreenSurface {
  public:
    /// Makes the surface and reads its description back; the display's error on failure.
    HRESULT Create(IDirectDraw7* directDraw, const DDSURFACEDESC2& wanted);

    /// Fills the surface with so many copies of a bitmap side by side, stretched if the sizes
    /// differ; colours are converted to the surface's format. E_INVALIDARG without bitmap or
    /// surface, E_NOTIMPL for a surface without plain pixels, else the error of the failing step.
    HRESULT CopyBitmap(HBITMAP bitmap, SIZE copies = {1, 1});
    /// Makes pixels of this colour transparent in keyed copies. E_POINTER without a surface.
    HRESULT ApplyColorKey(COLORREF colour);
    /// The raw pixel value that drawing in this colour gives (CLR_INVALID: that of the pixel which
    /// stands at 0, 0 already). 0 without a surface.
    std::uint32_t PixelFromGdi(COLORREF colour);

    IDirectDrawSurface7* Get() const { return surface_.get(); }

  private:
    COLORREF ExchangeFirstPixel(COLORREF colour);

    UniqueInterface<IDirectDrawSurface7> surface_;
    DDSURFACEDESC2 description_;
};

/// The pixel value of a colour on a surface with channel masks: each channel cut to its width.
std::uint32_t ColorToPixel(IDirectDrawSurface7* surface, COLORREF colour);

}  // namespace korvane
