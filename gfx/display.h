#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "gfx/offscreen_surface.h"
#include "platform/surfaces/ddraw.h"

namespace korvane {

/// The display object, the front buffer (what the screen shows) and the back buffer, in which every
/// frame is composed. A Display is opened once; another mode gets a new Display.
class Display final {
  public:
    Display() = default;
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;
    ~Display() { Display::ReleaseObjects(); }

    /// Takes the whole screen. Any failing step gives E_FAIL; what was made before it stays until
    /// ReleaseObjects.
    HRESULT OpenFullScreen(HWND window, std::uint32_t width, std::uint32_t height,
                           std::uint32_t bitsPerPixel, std::uint32_t refreshRate);
    /// Gives the window a client area of this size and draws there. E_FAIL as above.
    HRESULT OpenWindowed(HWND window, std::int32_t width, std::int32_t height);
    virtual HRESULT ReleaseObjects();
    /// Follows the window's client area; called whenever it moves or changes its size.
    HRESULT UpdateWindowRect();

    /// Presents the back buffer. DDERR_SURFACELOST after restoring both buffers, E_POINTER when
    /// there is nothing to show.
    HRESULT ShowFrame();
    /// Fills the back buffer with a pixel value of its format.
    HRESULT ClearBackBuffer(std::uint32_t fill);
    /// Fills a part of the back buffer with a colour, 0x00RRGGBB. A part that does not fit is
    /// refused whole.
    HRESULT FillBackBuffer(const RECT& area, std::uint32_t rgb);
    /// Copies a rectangle of a picture into the back buffer; what does not fit is refused whole.
    HRESULT CopyToBackBuffer(std::uint32_t x, std::uint32_t y, IDirectDrawSurface7* source,
                             const RECT& sourceArea, std::uint32_t flags);

    /// Loads a picture of the current skin, or the fallback folder's, into a new surface.
    /// E_INVALIDARG without display object or name, E_FAIL when neither place has a bitmap that the
    /// picture budget allows; a surface that could be made but not filled is handed out all the
    /// same, with the error. `size` is that of the surface. With a `leastSide` the surface holds
    /// the bitmap as often side by side as it takes to make both sides that long.
    HRESULT CreateSurfaceFromBitmap(const std::string& fileName,
                                    std::unique_ptr<OffscreenSurface>& surface, SIZE& size,
                                    std::int32_t leastSide = 1);

    IDirectDraw7* DirectDraw() const { return directDraw_.get(); }
    IDirectDrawSurface7* FrontBuffer() const { return frontBuffer_.get(); }
    IDirectDrawSurface7* BackBuffer() const { return backBuffer_.get(); }

  private:
    HRESULT CreateDirectDraw(HWND window, std::uint32_t cooperativeLevel);
    HRESULT CreateFlippingChain();
    HRESULT CreateWindowedBuffers(std::int32_t width, std::int32_t height);
    HRESULT ClipToWindow(HWND window);
    bool FitsBudget(HBITMAP bitmap, bool fromSkin) const;

    UniqueInterface<IDirectDraw7> directDraw_;
    UniqueInterface<IDirectDrawSurface7> frontBuffer_;
    UniqueInterface<IDirectDrawSurface7> backBuffer_;
    HWND window_ = nullptr;
    RECT windowRect_;
    bool windowedMode_ = false;
};

/// The display that is open now; null while none exists.
extern std::unique_ptr<Display> currentDisplay;

}  // namespace korvane
