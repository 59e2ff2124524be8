#include "platform/surfaces/ddraw.h"

#include "platform/host/host.h"
#include "platform/surfaces/ddraw_surfaces.h"
#include "platform/window/desktop.h"

namespace korvane {
namespace {

constexpr std::uint32_t kLargestSide = 4096;

class Clipper final : public IDirectDrawClipper {
  public:
    void AddRef() override { ++references_; }
    void Release() override {
        if (--references_ == 0) delete this;
    }
    HRESULT SetHWnd(std::uint32_t /*flags*/, HWND window) override {
        return window ? S_OK : E_INVALIDARG;
    }

  private:
    ~Clipper() = default;

    int references_ = 1;
};

class DirectDraw final : public IDirectDraw7 {
  public:
    void AddRef() override { ++references_; }
    void Release() override {
        if (--references_ == 0) delete this;
    }

    HRESULT SetCooperativeLevel(HWND window, std::uint32_t flags) override;
    HRESULT SetDisplayMode(std::uint32_t width, std::uint32_t height, std::uint32_t bitsPerPixel,
                           std::uint32_t refreshRate, std::uint32_t flags) override;
    HRESULT CreateSurface(const DDSURFACEDESC2& description,
                          IDirectDrawSurface7*& surface) override;
    HRESULT CreateClipper(std::uint32_t flags, IDirectDrawClipper*& clipper) override;
    HRESULT RestoreAllSurfaces() override;
    HRESULT EnumDisplayModes(std::uint32_t flags, const DDSURFACEDESC2* wanted, void* context,
                             LPDDENUMMODESCALLBACK2 callback) override;
    HRESULT TestCooperativeLevel() override { return TheHost().DisplayState(); }

  private:
    ~DirectDraw() = default;

    void LeaveFullScreen();
    HRESULT CreatePrimary(const DDSURFACEDESC2& description, IDirectDrawSurface7*& surface);
    HRESULT CreateOffscreen(const DDSURFACEDESC2& description, IDirectDrawSurface7*& surface);

    int references_ = 1;
    std::uint32_t level_ = DDSCL_NORMAL;
    SIZE mode_;
    std::shared_ptr<DisplayShare> share_ = std::make_shared<DisplayShare>();
};

HRESULT DirectDraw::SetCooperativeLevel(HWND window, std::uint32_t flags) {
    const bool exclusive = flags == (DDSCL_EXCLUSIVE | DDSCL_FULLSCREEN);
    if (!exclusive && flags != DDSCL_NORMAL) return E_INVALIDARG;
    if (exclusive && !window) return E_INVALIDARG;
    level_ = flags;
    if (!exclusive) LeaveFullScreen();
    return S_OK;
}

void DirectDraw::LeaveFullScreen() {
    if (!share_->fullScreen) return;
    share_->fullScreen = false;
    TheHost().LeaveFullScreen();
    SetFullScreenPicture(std::nullopt);
}

HRESULT DirectDraw::SetDisplayMode(std::uint32_t width, std::uint32_t height,
                                   std::uint32_t bitsPerPixel, std::uint32_t /*refreshRate*/,
                                   std::uint32_t /*flags*/) {
    if (level_ == DDSCL_NORMAL) return DDERR_NOEXCLUSIVEMODE;
    const bool knownDepth = bitsPerPixel == 8 || bitsPerPixel == 16 || bitsPerPixel == 32;
    if (!knownDepth || width < 1 || height < 1 || width > kLargestSide || height > kLargestSide)
        return E_INVALIDARG;
    mode_ = {static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
    if (!TheHost().EnterFullScreen(mode_)) return E_FAIL;
    share_->format = FormatOfDepth(static_cast<int>(bitsPerPixel));
    share_->fullScreen = true;
    SetFullScreenPicture(mode_);
    return S_OK;
}

HRESULT DirectDraw::CreateSurface(const DDSURFACEDESC2& description,
                                  IDirectDrawSurface7*& surface) {
    surface = nullptr;
    if (description.size != kSurfaceDescSize || !(description.flags & DDSD_CAPS))
        return E_INVALIDARG;
    if (description.caps & DDSCAPS_PRIMARYSURFACE) return CreatePrimary(description, surface);
    if (description.caps & DDSCAPS_OFFSCREENPLAIN) return CreateOffscreen(description, surface);
    return E_INVALIDARG;
}

HRESULT DirectDraw::CreatePrimary(const DDSURFACEDESC2& description,
                                  IDirectDrawSurface7*& surface) {
    UniqueInterface<BackSurface> back;
    if (description.caps & DDSCAPS_FLIP) {
        if (!share_->fullScreen || description.backBufferCount != 1) return E_INVALIDARG;
        back.reset(new BackSurface(share_, mode_));
    }
    surface = new PrimarySurface(share_, std::move(back));
    return S_OK;
}

HRESULT DirectDraw::CreateOffscreen(const DDSURFACEDESC2& description,
                                    IDirectDrawSurface7*& surface) {
    if ((description.flags & (DDSD_WIDTH | DDSD_HEIGHT)) != (DDSD_WIDTH | DDSD_HEIGHT))
        return E_INVALIDARG;
    if (description.width < 1 || description.height < 1 || description.width > kLargestSide ||
        description.height > kLargestSide)
        return E_INVALIDARG;
    const SIZE size{static_cast<std::int32_t>(description.width),
                    static_cast<std::int32_t>(description.height)};
    if (description.caps & DDSCAPS_3DDEVICE) {
        surface = new BackSurface(share_, size);
    } else {
        surface = new PictureSurface(share_, size);
    }
    return S_OK;
}

HRESULT DirectDraw::CreateClipper(std::uint32_t /*flags*/, IDirectDrawClipper*& clipper) {
    clipper = new Clipper;
    return S_OK;
}

HRESULT DirectDraw::RestoreAllSurfaces() {
    for (SurfaceBase* surface : share_->surfaces)
        surface->Restore();
    return S_OK;
}

DDSURFACEDESC2 Describe(const DisplayMode& mode) {
    DDSURFACEDESC2 description;
    description.flags = DDSD_HEIGHT | DDSD_WIDTH;
    description.width = static_cast<std::uint32_t>(mode.width);
    description.height = static_cast<std::uint32_t>(mode.height);
    description.format = FormatOfDepth(mode.bitsPerPixel);
    description.refreshRate = static_cast<std::uint32_t>(mode.refreshHz);
    return description;
}

HRESULT DirectDraw::EnumDisplayModes(std::uint32_t flags, const DDSURFACEDESC2* wanted,
                                     void* context, LPDDENUMMODESCALLBACK2 callback) {
    if (flags != DDEDM_REFRESHRATES || wanted || !callback) return E_INVALIDARG;
    for (const DisplayMode& mode : TheHost().DisplayModes())
        if (!callback(Describe(mode), context)) break;
    return S_OK;
}

}  // namespace

HRESULT DirectDrawCreateEx(IDirectDraw7*& directDraw) {
    directDraw = new DirectDraw;
    return S_OK;
}

}  // namespace korvane
