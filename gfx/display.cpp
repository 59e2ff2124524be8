#include "gfx/display.h"

#include "gfx/skin.h"

namespace korvane {

std::unique_ptr<Display> currentDisplay;

namespace {

/// Gives the window an ordinary frame round a client area of this size.
void ShapeWindow(HWND window, std::int32_t width, std::int32_t height) {
    const std::uint32_t style = (GetWindowLong(window, GWL_STYLE) & ~WS_POPUP) | WS_CAPTION |
                                WS_THICKFRAME | WS_MINIMIZEBOX;
    SetWindowLong(window, GWL_STYLE, style);
    const RECT outer = AdjustWindowRectEx({0, 0, width, height}, style, GetMenu(window) != nullptr,
                                          GetWindowLong(window, GWL_EXSTYLE));
    SetWindowPos(window, {0, 0}, outer.Size(), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Moves a window that begins left of or above the work area to its edge. One that reaches beyond
/// the right or lower edge stays.
void KeepCornerInWorkArea(HWND window) {
    RECT workArea;
    if (!SystemParametersInfoA(SPI_GETWORKAREA, workArea)) return;
    const RECT outer = GetWindowRect(window);
    const POINT corner{outer.left < workArea.left ? workArea.left : outer.left,
                       outer.top < workArea.top ? workArea.top : outer.top};
    if (corner == POINT{outer.left, outer.top}) return;
    SetWindowPos(window, corner, {}, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

HRESULT Display::CreateDirectDraw(HWND window, std::uint32_t cooperativeLevel) {
    IDirectDraw7* created = nullptr;
    if (Failed(DirectDrawCreateEx(created))) return E_FAIL;
    directDraw_.reset(created);
    window_ = window;
    return Failed(directDraw_->SetCooperativeLevel(window, cooperativeLevel)) ? E_FAIL : S_OK;
}

HRESULT Display::OpenFullScreen(HWND window, std::uint32_t width, std::uint32_t height,
                                std::uint32_t bitsPerPixel, std::uint32_t refreshRate) {
    ReleaseObjects();
    if (Failed(CreateDirectDraw(window, DDSCL_EXCLUSIVE | DDSCL_FULLSCREEN))) return E_FAIL;
    if (Failed(directDraw_->SetDisplayMode(width, height, bitsPerPixel, refreshRate, 0)))
        return E_FAIL;
    if (Failed(CreateFlippingChain())) return E_FAIL;
    windowedMode_ = false;
    UpdateWindowRect();
    return S_OK;
}

HRESULT Display::CreateFlippingChain() {
    DDSURFACEDESC2 description;
    description.flags = DDSD_CAPS | DDSD_BACKBUFFERCOUNT;
    description.backBufferCount = 1;
    description.caps = DDSCAPS_PRIMARYSURFACE | DDSCAPS_FLIP | DDSCAPS_COMPLEX | DDSCAPS_3DDEVICE;
    IDirectDrawSurface7* surface = nullptr;
    if (Failed(directDraw_->CreateSurface(description, surface))) return E_FAIL;
    frontBuffer_.reset(surface);
    if (Failed(frontBuffer_->GetAttachedSurface({DDSCAPS_BACKBUFFER}, surface))) return E_FAIL;
    surface->AddRef();  // so that it is released like the other buffers
    backBuffer_.reset(surface);
    return S_OK;
}

HRESULT Display::OpenWindowed(HWND window, std::int32_t width, std::int32_t height) {
    ReleaseObjects();
    if (Failed(CreateDirectDraw(window, DDSCL_NORMAL))) return E_FAIL;
    ShapeWindow(window, width, height);
    KeepCornerInWorkArea(window);
    if (Failed(CreateWindowedBuffers(width, height))) return E_FAIL;
    if (Failed(ClipToWindow(window))) return E_FAIL;
    windowedMode_ = true;
    UpdateWindowRect();
    return S_OK;
}

HRESULT Display::CreateWindowedBuffers(std::int32_t width, std::int32_t height) {
    DDSURFACEDESC2 description;
    description.flags = DDSD_CAPS;
    description.caps = DDSCAPS_PRIMARYSURFACE;
    IDirectDrawSurface7* surface = nullptr;
    if (Failed(directDraw_->CreateSurface(description, surface))) return E_FAIL;
    frontBuffer_.reset(surface);

    description.flags = DDSD_CAPS | DDSD_HEIGHT | DDSD_WIDTH;
    description.width = static_cast<std::uint32_t>(width);
    description.height = static_cast<std::uint32_t>(height);
    description.caps = DDSCAPS_OFFSCREENPLAIN | DDSCAPS_3DDEVICE;
    if (Failed(directDraw_->CreateSurface(description, surface))) return E_FAIL;
    backBuffer_.reset(surface);
    return S_OK;
}

HRESULT Display::ClipToWindow(HWND window) {
    IDirectDrawClipper* created = nullptr;
    if (Failed(directDraw_->CreateClipper(0, created))) return E_FAIL;
    const UniqueInterface<IDirectDrawClipper> clipper(created);
    if (Failed(clipper->SetHWnd(0, window))) return E_FAIL;
    return Failed(frontBuffer_->SetClipper(clipper.get())) ? E_FAIL : S_OK;
}

HRESULT Display::ReleaseObjects() {
    backBuffer_.reset();
    frontBuffer_.reset();
    if (directDraw_) {
        directDraw_->SetCooperativeLevel(window_, DDSCL_NORMAL);
        directDraw_.reset();
    }
    return S_OK;
}

HRESULT Display::UpdateWindowRect() {
    if (!windowedMode_) {
        windowRect_ = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
        return S_OK;
    }
    const RECT client = GetClientRect(window_);
    const POINT topLeft = ClientToScreen(window_, {client.left, client.top});
    const POINT bottomRight = ClientToScreen(window_, {client.right, client.bottom});
    windowRect_ = {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
    return S_OK;
}

HRESULT Display::ShowFrame() {
    if (!frontBuffer_ || !backBuffer_) return E_POINTER;
    HRESULT result;
    do {
        result = windowedMode_ ? frontBuffer_->Blt(&windowRect_, backBuffer_.get(), nullptr,
                                                   DDBLT_WAIT, nullptr)
                               : frontBuffer_->Flip(nullptr, 0);
    } while (result == DDERR_WASSTILLDRAWING);
    if (result == DDERR_SURFACELOST) {
        frontBuffer_->Restore();
        backBuffer_->Restore();
    }
    return result;
}

HRESULT Display::ClearBackBuffer(std::uint32_t fill) {
    if (!backBuffer_) return E_POINTER;
    DDBLTFX effects;
    effects.fillColor = fill;
    return backBuffer_->Blt(nullptr, nullptr, nullptr, DDBLT_COLORFILL, &effects);
}

HRESULT Display::FillBackBuffer(const RECT& area, std::uint32_t rgb) {
    if (!backBuffer_) return E_POINTER;
    DDSURFACEDESC2 description;
    backBuffer_->GetSurfaceDesc(description);
    DDBLTFX effects;
    effects.fillColor = PackPixel(description.format, rgb);
    return backBuffer_->Blt(&area, nullptr, nullptr, DDBLT_COLORFILL, &effects);
}

HRESULT Display::CopyToBackBuffer(std::uint32_t x, std::uint32_t y, IDirectDrawSurface7* source,
                                  const RECT& sourceArea, std::uint32_t flags) {
    if (!backBuffer_) return E_POINTER;
    return backBuffer_->BltFast(x, y, source, sourceArea, flags);
}

bool Display::FitsBudget(HBITMAP bitmap, bool fromSkin) const {
    if (!bitmap || !backBuffer_) return bitmap != nullptr;
    DDSURFACEDESC2 description;
    backBuffer_->GetSurfaceDesc(description);
    const BITMAP size = GetObjectA(bitmap);
    const auto pixels =
        static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    return pictureBudget.Take(pixels * static_cast<std::size_t>(description.format.bits) / 8,
                              fromSkin);
}

HRESULT Display::CreateSurfaceFromBitmap(const std::string& fileName,
                                         std::unique_ptr<OffscreenSurface>& surface, SIZE& size,
                                         std::int32_t leastSide) {
    surface.reset();
    if (!directDraw_ || fileName.empty()) return E_INVALIDARG;
    UniqueBitmap bitmap(LoadImageA(SkinPath(fileName)));
    if (!FitsBudget(bitmap.get(), /*fromSkin=*/true)) {
        bitmap.reset(LoadImageA(FallbackPicturePath(fileName)));
        if (!FitsBudget(bitmap.get(), /*fromSkin=*/false)) return E_FAIL;
    }
    const BITMAP information = GetObjectA(bitmap.get());
    const SIZE copies{(leastSide + information.width - 1) / information.width,
                      (leastSide + information.height - 1) / information.height};
    size = {copies.cx * information.width, copies.cy * information.height};

    DDSURFACEDESC2 description;
    description.flags = DDSD_CAPS | DDSD_HEIGHT | DDSD_WIDTH;
    description.caps = DDSCAPS_OFFSCREENPLAIN;
    description.width = static_cast<std::uint32_t>(size.cx);
    description.height = static_cast<std::uint32_t>(size.cy);
    auto created = std::make_unique<OffscreenSurface>();
    const HRESULT result = created->Create(directDraw_.get(), description);
    if (Failed(result)) return result;
    surface = std::move(created);
    return surface->CopyBitmap(bitmap.get(), copies);
}

}  // namespace korvane
