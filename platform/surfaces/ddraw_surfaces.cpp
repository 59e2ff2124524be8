#include "platform/surfaces/ddraw_surfaces.h"

#include <algorithm>
#include <cstring>

#include "platform/window/desktop.h"

namespace korvane {
namespace {

/// A number that no earlier contents of any picture had.
std::uint64_t NextVersion() {
    static std::uint64_t version = 0;
    return ++version;
}

/// Reads and writes a picture of any pixel format as 0x00RRGGBB colours.
class SurfaceContext final : public DeviceContext {
  public:
    SurfaceContext(PixelBuffer& pixels, const PixelFormat& format)
        : pixels_(pixels), format_(format) {}

    SIZE Size() const override { return pixels_.Size(); }

    void ReadRow(int y, std::span<std::uint32_t> colours) const override {
        if (format_.bits == 32) {
            std::memcpy(colours.data(), pixels_.Row(y), colours.size_bytes());
            return;
        }
        for (int x = 0; x < static_cast<int>(colours.size()); ++x)
            colours[static_cast<std::size_t>(x)] = UnpackPixel(format_, pixels_.Pixel({x, y}));
    }

    void WriteRow(int y, std::span<const std::uint32_t> colours) override {
        if (format_.bits == 32) {
            std::memcpy(pixels_.Row(y), colours.data(), colours.size_bytes());
            return;
        }
        for (int x = 0; x < static_cast<int>(colours.size()); ++x)
            pixels_.SetPixel({x, y}, PackPixel(format_, colours[static_cast<std::size_t>(x)]));
    }

  private:
    PixelBuffer& pixels_;
    PixelFormat format_;
};

}  // namespace

void DisplayShare::FlushDrawing() {
    if (back) back->FlushDrawing();
}

SurfaceBase::SurfaceBase(std::shared_ptr<DisplayShare> share)
    : format_(share->format), share_(std::move(share)) {
    share_->surfaces.push_back(this);
}

SurfaceBase::~SurfaceBase() {
    std::erase(share_->surfaces, this);
}

void SurfaceBase::Release() {
    if (--references_ == 0) delete this;
}

HRESULT SurfaceBase::Restore() {
    lost_ = false;
    return S_OK;
}

HRESULT SurfaceBase::Describe(const PixelBuffer& pixels, DDSURFACEDESC2& description) const {
    if (description.size != kSurfaceDescSize) return E_INVALIDARG;
    description = {};
    description.flags = DDSD_HEIGHT | DDSD_WIDTH;
    description.width = static_cast<std::uint32_t>(pixels.Size().cx);
    description.height = static_cast<std::uint32_t>(pixels.Size().cy);
    description.pixelFlags = DDPF_RGB;
    description.format = format_;
    return S_OK;
}

PictureSurface::PictureSurface(std::shared_ptr<DisplayShare> share, SIZE size)
    : SurfaceBase(std::move(share)),
      pixels_(size, format_.BytesPerPixel()),
      version_(NextVersion()) {}

PictureSurface::~PictureSurface() {
    Share().FlushDrawing();
}

PictureSource PictureSurface::Source(bool keyed) {
    if (!keyed || !key_) return {&pixels_, nullptr, version_};
    if (!runs_) runs_ = std::make_unique<OpaqueRuns>(pixels_, *key_);
    return {&pixels_, runs_.get(), version_};
}

void PictureSurface::BeforeChange() {
    Share().FlushDrawing();
}

void PictureSurface::AfterChange() {
    runs_.reset();
    version_ = NextVersion();
}

HRESULT PictureSurface::GetSurfaceDesc(DDSURFACEDESC2& description) {
    return Describe(pixels_, description);
}

HRESULT PictureSurface::Lock(DDSURFACEDESC2& description, std::uint32_t /*flags*/) {
    if (IsOpenForDrawing()) return E_FAIL;
    const HRESULT result = Describe(pixels_, description);
    if (Failed(result)) return result;
    BeforeChange();
    locked_ = true;
    description.pitch = pixels_.Pitch();
    description.pixels = pixels_.Row(0);
    return S_OK;
}

HRESULT PictureSurface::Unlock() {
    if (!locked_) return E_FAIL;
    locked_ = false;
    AfterChange();
    return S_OK;
}

HRESULT PictureSurface::GetDC(HDC& context) {
    if (IsOpenForDrawing()) return E_FAIL;
    BeforeChange();
    context_ = std::make_unique<SurfaceContext>(pixels_, format_);
    context = context_.get();
    return S_OK;
}

HRESULT PictureSurface::ReleaseDC(HDC context) {
    if (!context || context != context_.get()) return E_FAIL;
    context_.reset();
    AfterChange();
    return S_OK;
}

HRESULT PictureSurface::SetColorKey(std::uint32_t flags, const DDCOLORKEY& key) {
    if (flags != DDCKEY_SRCBLT) return E_INVALIDARG;
    BeforeChange();
    key_ = key.low;
    AfterChange();
    return S_OK;
}

BackSurface::BackSurface(std::shared_ptr<DisplayShare> share, SIZE size)
    : SurfaceBase(std::move(share)), pixels_(size, format_.BytesPerPixel()) {
    if (format_.bits != 32) converted_ = PixelBuffer(size, 4);
    Share().back = this;
}

BackSurface::~BackSurface() {
    TheDesktop().picture.ForgetGame(ShownView().pixels);
    if (Share().back == this) Share().back = nullptr;
}

HRESULT BackSurface::Blt(const RECT* destination, IDirectDrawSurface7* /*source*/,
                         const RECT* /*sourceArea*/, std::uint32_t flags, const DDBLTFX* effects) {
    if (lost_) return DDERR_SURFACELOST;
    if (!(flags & DDBLT_COLORFILL)) return E_NOTIMPL;
    if (!effects || effects->size != kBltFxSize) return E_INVALIDARG;
    const RECT area = destination ? *destination : Area();
    if (!LiesWithin(area, pixels_.Size())) return DDERR_INVALIDRECT;
    frame_.Fill(area, effects->fillColor);
    return S_OK;
}

HRESULT BackSurface::BltFast(std::uint32_t x, std::uint32_t y, IDirectDrawSurface7* source,
                             const RECT& sourceArea, std::uint32_t flags) {
    if (lost_) return DDERR_SURFACELOST;
    auto* base = static_cast<SurfaceBase*>(source);
    PictureSurface* picture = base ? base->AsPicture() : nullptr;
    if (!picture || picture->IsOpenForDrawing()) return E_INVALIDARG;
    const auto width = static_cast<std::uint32_t>(pixels_.Size().cx);
    const auto height = static_cast<std::uint32_t>(pixels_.Size().cy);
    // Nothing is added to x and y, which may be huge unsigned numbers: sums could wrap around.
    if (!LiesWithin(sourceArea, picture->Size()) || x >= width || y >= height ||
        static_cast<std::uint32_t>(sourceArea.Width()) > width - x ||
        static_cast<std::uint32_t>(sourceArea.Height()) > height - y)
        return DDERR_INVALIDRECT;
    frame_.Copy(picture->Source((flags & DDBLTFAST_SRCCOLORKEY) != 0),
                {static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)}, sourceArea);
    return S_OK;
}

HRESULT BackSurface::Restore() {
    if (lost_) {
        frame_.Invalidate();
        unsent_.clear();
    }
    return SurfaceBase::Restore();
}

HRESULT BackSurface::GetSurfaceDesc(DDSURFACEDESC2& description) {
    return Describe(pixels_, description);
}

PictureView BackSurface::ShownView() const {
    const PixelBuffer& shown = format_.bits == 32 ? pixels_ : converted_;
    return {reinterpret_cast<const std::uint32_t*>(shown.Row(0)), shown.Size().cx, shown.Size().cy,
            static_cast<int>(shown.Pitch()) / int{sizeof(std::uint32_t)}};
}

void BackSurface::ConvertForHost(const std::vector<RECT>& changed) {
    if (format_.bits == 32) return;
    for (const RECT& area : changed)
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x)
                converted_.SetPixel({x, y}, UnpackPixel(format_, pixels_.Pixel({x, y})));
}

HRESULT BackSurface::Show(const RECT& target) {
    if (lost_) return DDERR_SURFACELOST;
    const auto changed = frame_.Compose(pixels_);
    unsent_.insert(unsent_.end(), changed.begin(), changed.end());
    if (target != lastTarget_) unsent_.assign(1, Area());
    if (unsent_.empty()) return S_OK;
    ConvertForHost(unsent_);
    const HRESULT result = TheDesktop().picture.ShowGame(ShownView(), target, unsent_);
    if (Failed(result)) return result;
    lastTarget_ = target;
    unsent_.clear();
    return S_OK;
}

PrimarySurface::PrimarySurface(std::shared_ptr<DisplayShare> share,
                               UniqueInterface<BackSurface> back)
    : SurfaceBase(std::move(share)), back_(std::move(back)) {}

PrimarySurface::~PrimarySurface() = default;

HRESULT PrimarySurface::GetAttachedSurface(const DDSCAPS2& caps, IDirectDrawSurface7*& attached) {
    if (caps.caps != DDSCAPS_BACKBUFFER || !back_) return E_FAIL;
    attached = back_.get();
    return S_OK;
}

HRESULT PrimarySurface::ShowBuffer(BackSurface& back, const RECT& target) {
    if (lost_) return DDERR_SURFACELOST;
    const HRESULT result = back.Show(target);
    if (result == DDERR_SURFACELOST) {
        Lose();
        back.Lose();
    }
    return result;
}

HRESULT PrimarySurface::Flip(IDirectDrawSurface7* overrideSurface, std::uint32_t /*flags*/) {
    if (overrideSurface || !back_) return E_INVALIDARG;
    return ShowBuffer(*back_, back_->Area());  // full screen shows the picture as it is
}

HRESULT PrimarySurface::Blt(const RECT* destination, IDirectDrawSurface7* source,
                            const RECT* /*sourceArea*/, std::uint32_t /*flags*/,
                            const DDBLTFX* /*effects*/) {
    auto* base = static_cast<SurfaceBase*>(source);
    BackSurface* back = base ? base->AsBack() : nullptr;
    if (!back || !destination || !clipper_) return E_INVALIDARG;
    if (destination->IsEmpty()) return S_OK;  // the window has no room for the picture
    const RECT client = TheHost().ClientArea();
    return ShowBuffer(*back, {destination->left - client.left, destination->top - client.top,
                              destination->right - client.left, destination->bottom - client.top});
}

HRESULT PrimarySurface::SetClipper(IDirectDrawClipper* clipper) {
    if (clipper) clipper->AddRef();
    clipper_.reset(clipper);
    return S_OK;
}

}  // namespace korvane
