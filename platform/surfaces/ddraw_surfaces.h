#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/draw/pixel_buffer.h"
#include "platform/host/host.h"
#include "platform/surfaces/ddraw.h"
#include "platform/surfaces/frame_list.h"
#include "platform/surfaces/keyed_copy.h"

namespace korvane {

class BackSurface;
class PictureSurface;
class SurfaceBase;

/// What the surfaces of one display object share. It lives as long as any of them.
struct DisplayShare {
    bool fullScreen = false;
    PixelFormat format;                  ///< of every surface made from now on
    std::vector<SurfaceBase*> surfaces;  ///< all that exist
    BackSurface* back = nullptr;         ///< the one that records drawing

    /// Carries out recorded drawing: called before a picture changes or is destroyed, because the
    /// record refers to pictures.
    void FlushDrawing();
};

/// What all kinds have: the reference count, and whether the contents are lost.
class SurfaceBase : public IDirectDrawSurface7 {
  public:
    explicit SurfaceBase(std::shared_ptr<DisplayShare> share);
    SurfaceBase(const SurfaceBase&) = delete;
    SurfaceBase& operator=(const SurfaceBase&) = delete;
    virtual ~SurfaceBase();

    virtual PictureSurface* AsPicture() { return nullptr; }
    virtual BackSurface* AsBack() { return nullptr; }
    void Lose() { lost_ = true; }

    void AddRef() override { ++references_; }
    void Release() override;
    HRESULT Restore() override;

  protected:
    DisplayShare& Share() { return *share_; }
    HRESULT Describe(const PixelBuffer& pixels, DDSURFACEDESC2& description) const;

    PixelFormat format_;
    bool lost_ = false;

  private:
    std::shared_ptr<DisplayShare> share_;
    int references_ = 1;
};

/// An off-screen picture in the display's format.
class PictureSurface final : public SurfaceBase {
  public:
    PictureSurface(std::shared_ptr<DisplayShare> share, SIZE size);
    ~PictureSurface() override;

    PictureSurface* AsPicture() override { return this; }
    SIZE Size() const { return pixels_.Size(); }
    /// Between Lock and Unlock or GetDC and ReleaseDC: its pixels may change at any moment.
    bool IsOpenForDrawing() const { return locked_ || context_; }
    /// What a copy needs: the pixels, and with `keyed` the opaque runs if a key is set.
    PictureSource Source(bool keyed);

    HRESULT GetSurfaceDesc(DDSURFACEDESC2& description) override;
    HRESULT Lock(DDSURFACEDESC2& description, std::uint32_t flags) override;
    HRESULT Unlock() override;
    HRESULT GetDC(HDC& context) override;
    HRESULT ReleaseDC(HDC context) override;
    HRESULT SetColorKey(std::uint32_t flags, const DDCOLORKEY& key) override;

  private:
    void BeforeChange();
    void AfterChange();

    PixelBuffer pixels_;
    std::optional<std::uint32_t> key_;
    std::unique_ptr<OpaqueRuns> runs_;  ///< found at the first keyed copy after a change
    std::uint64_t version_ = 0;
    std::unique_ptr<DeviceContext> context_;
    bool locked_ = false;
};

/// The buffer that frames are composed in. Drawing is recorded and carried out when the frame is
/// shown, and then only where it differs from the frame before.
class BackSurface final : public SurfaceBase {
  public:
    BackSurface(std::shared_ptr<DisplayShare> share, SIZE size);
    ~BackSurface() override;

    BackSurface* AsBack() override { return this; }
    RECT Area() const { return pixels_.Bounds(); }
    /// Composes what was recorded and sends what changed to the place `target` of the client area.
    /// Nothing is sent when nothing changed.
    HRESULT Show(const RECT& target);
    void FlushDrawing() { frame_.Flush(pixels_); }
    const FrameList& Frame() const { return frame_; }

    HRESULT Blt(const RECT* destination, IDirectDrawSurface7* source, const RECT* sourceArea,
                std::uint32_t flags, const DDBLTFX* effects) override;
    HRESULT BltFast(std::uint32_t x, std::uint32_t y, IDirectDrawSurface7* source,
                    const RECT& sourceArea, std::uint32_t flags) override;
    HRESULT Restore() override;
    HRESULT GetSurfaceDesc(DDSURFACEDESC2& description) override;

  private:
    PictureView ShownView() const;
    void ConvertForHost(const std::vector<RECT>& changed);

    PixelBuffer pixels_;
    PixelBuffer converted_;  ///< 32-bit copy for the host when the surface has fewer bits
    FrameList frame_;
    std::vector<RECT> unsent_;  ///< composed, but the host has not taken it yet
    RECT lastTarget_;
};

/// What the screen shows.
class PrimarySurface final : public SurfaceBase {
  public:
    /// `back` is the back buffer of a flipping primary; null for one that does not flip.
    PrimarySurface(std::shared_ptr<DisplayShare> share, UniqueInterface<BackSurface> back);
    ~PrimarySurface() override;

    HRESULT GetAttachedSurface(const DDSCAPS2& caps, IDirectDrawSurface7*& attached) override;
    HRESULT Flip(IDirectDrawSurface7* overrideSurface, std::uint32_t flags) override;
    HRESULT Blt(const RECT* destination, IDirectDrawSurface7* source, const RECT* sourceArea,
                std::uint32_t flags, const DDBLTFX* effects) override;
    HRESULT SetClipper(IDirectDrawClipper* clipper) override;

  private:
    HRESULT ShowBuffer(BackSurface& back, const RECT& target);

    UniqueInterface<BackSurface> back_;
    UniqueInterface<IDirectDrawClipper> clipper_;
};

}  // namespace korvane
