#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/base/types.h"
#include "platform/draw/pixel_format.h"
#include "platform/surfaces/gdi.h"
#include "platform/window/user.h"

namespace korvane {

inline constexpr std::uint32_t DDSCL_FULLSCREEN = 0x01;
inline constexpr std::uint32_t DDSCL_NORMAL = 0x08;
inline constexpr std::uint32_t DDSCL_EXCLUSIVE = 0x10;

inline constexpr std::uint32_t DDSD_CAPS = 0x01;
inline constexpr std::uint32_t DDSD_HEIGHT = 0x02;
inline constexpr std::uint32_t DDSD_WIDTH = 0x04;
inline constexpr std::uint32_t DDSD_BACKBUFFERCOUNT = 0x20;

inline constexpr std::uint32_t DDSCAPS_BACKBUFFER = 0x0004;
inline constexpr std::uint32_t DDSCAPS_COMPLEX = 0x0008;
inline constexpr std::uint32_t DDSCAPS_FLIP = 0x0010;
inline constexpr std::uint32_t DDSCAPS_OFFSCREENPLAIN = 0x0040;
inline constexpr std::uint32_t DDSCAPS_PRIMARYSURFACE = 0x0200;
inline constexpr std::uint32_t DDSCAPS_3DDEVICE = 0x2000;

inline constexpr std::uint32_t DDPF_FOURCC = 0x04;
inline constexpr std::uint32_t DDPF_RGB = 0x40;

inline constexpr std::uint32_t DDBLT_COLORFILL = 0x00000400;
inline constexpr std::uint32_t DDBLT_WAIT = 0x01000000;
inline constexpr std::uint32_t DDBLTFAST_NOCOLORKEY = 0;
inline constexpr std::uint32_t DDBLTFAST_SRCCOLORKEY = 1;
inline constexpr std::uint32_t DDCKEY_SRCBLT = 8;
inline constexpr std::uint32_t DDLOCK_WAIT = 1;
inline constexpr std::uint32_t DDEDM_REFRESHRATES = 1;

/// The sizes that the two structures below must state. They are numbers of the interface and have
/// nothing to do with the size of our structures.
inline constexpr std::uint32_t kSurfaceDescSize = 124;
inline constexpr std::uint32_t kBltFxSize = 100;

/// Describes a surface to be made, a surface that exists, or a display mode.
struct DDSURFACEDESC2 {
    std::uint32_t size = kSurfaceDescSize;  ///< any other number is refused
    std::uint32_t flags = 0;                ///< DDSD_: which of the fields below count
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t backBufferCount = 0;
    std::uint32_t refreshRate = 0;  ///< of a display mode, in Hz; 0: unknown
    std::uint32_t caps = 0;         ///< DDSCAPS_
    std::uint32_t pixelFlags = 0;   ///< DDPF_
    PixelFormat format;             ///< bits per pixel and channel masks
    std::ptrdiff_t pitch = 0;       ///< bytes from row to row, while locked
    std::byte* pixels = nullptr;    ///< row 0, while locked
};

/// Which attached surface is asked for.
struct DDSCAPS2 {
    std::uint32_t caps = 0;
};

/// The parameters of a fill.
struct DDBLTFX {
    std::uint32_t size = kBltFxSize;
    std::uint32_t fillColor = 0;  ///< a pixel value in the surface's format
};

/// The pixel value `low` is transparent. `high` would end a range, but single values are all that
/// is supported (low = high).
struct DDCOLORKEY {
    std::uint32_t low = 0;
    std::uint32_t high = 0;
};

/// Ties a primary surface to the client area of a window.
class IDirectDrawClipper {
  public:
    virtual void AddRef() = 0;
    virtual void Release() = 0;
    virtual HRESULT SetHWnd(std::uint32_t flags, HWND window) = 0;

  protected:
    ~IDirectDrawClipper() = default;
};

/// A rectangle of pixels: a picture, the back buffer, or what the screen shows. A kind of surface
/// overrides what it can do; everything else is E_NOTIMPL.
class IDirectDrawSurface7 {
  public:
    virtual void AddRef() = 0;
    virtual void Release() = 0;

    /// The back buffer of a flipping primary; not a new reference.
    virtual HRESULT GetAttachedSurface(const DDSCAPS2& /*caps*/,
                                       IDirectDrawSurface7*& /*attached*/) {
        return E_NOTIMPL;
    }
    /// Shows the back buffer. DDERR_SURFACELOST: nothing was shown, Restore first.
    virtual HRESULT Flip(IDirectDrawSurface7* /*overrideSurface*/, std::uint32_t /*flags*/) {
        return E_NOTIMPL;
    }
    /// On a back buffer a fill (DDBLT_COLORFILL, null rectangle: all of it); on the primary the
    /// whole back buffer stretched onto a rectangle of the screen.
    virtual HRESULT Blt(const RECT* /*destination*/, IDirectDrawSurface7* /*source*/,
                        const RECT* /*sourceArea*/, std::uint32_t /*flags*/,
                        const DDBLTFX* /*effects*/) {
        return E_NOTIMPL;
    }
    /// Copies a rectangle of a picture to a place of the back buffer. Never clips: what does not
    /// lie inside both surfaces is refused with DDERR_INVALIDRECT.
    virtual HRESULT BltFast(std::uint32_t /*x*/, std::uint32_t /*y*/,
                            IDirectDrawSurface7* /*source*/, const RECT& /*sourceArea*/,
                            std::uint32_t /*flags*/) {
        return E_NOTIMPL;
    }
    /// Gives a lost surface its memory back, with undefined contents.
    virtual HRESULT Restore() = 0;
    virtual HRESULT SetClipper(IDirectDrawClipper* /*clipper*/) { return E_NOTIMPL; }
    virtual HRESULT GetSurfaceDesc(DDSURFACEDESC2& /*description*/) { return E_NOTIMPL; }
    virtual HRESULT Lock(DDSURFACEDESC2& /*description*/, std::uint32_t /*flags*/) {
        return E_NOTIMPL;
    }
    virtual HRESULT Unlock() { return E_NOTIMPL; }
    /// A context for drawing into the surface until ReleaseDC.
    virtual HRESULT GetDC(HDC& /*context*/) { return E_NOTIMPL; }
    virtual HRESULT ReleaseDC(HDC /*context*/) { return E_NOTIMPL; }
    virtual HRESULT SetColorKey(std::uint32_t /*flags*/, const DDCOLORKEY& /*key*/) {
        return E_NOTIMPL;
    }

  protected:
    ~IDirectDrawSurface7() = default;
};

/// Called with one display mode; false ends the enumeration.
using LPDDENUMMODESCALLBACK2 = bool (*)(const DDSURFACEDESC2& mode, void* context);

/// The display: cooperative level, display mode and the surfaces made for them.
class IDirectDraw7 {
  public:
    virtual void AddRef() = 0;
    virtual void Release() = 0;

    /// DDSCL_EXCLUSIVE with DDSCL_FULLSCREEN before SetDisplayMode; DDSCL_NORMAL leaves full
    /// screen.
    virtual HRESULT SetCooperativeLevel(HWND window, std::uint32_t flags) = 0;
    /// Takes the whole screen with surfaces of 8, 16 or 32 bits per pixel. The monitor keeps its
    /// own mode, so the refresh rate (Hz, 0: any) is ignored.
    virtual HRESULT SetDisplayMode(std::uint32_t width, std::uint32_t height,
                                   std::uint32_t bitsPerPixel, std::uint32_t refreshRate,
                                   std::uint32_t flags) = 0;
    virtual HRESULT CreateSurface(const DDSURFACEDESC2& description,
                                  IDirectDrawSurface7*& surface) = 0;
    virtual HRESULT CreateClipper(std::uint32_t flags, IDirectDrawClipper*& clipper) = 0;
    virtual HRESULT RestoreAllSurfaces() = 0;
    /// Calls back with every mode that full screen can have and its refresh rate. `flags` has to be
    /// DDEDM_REFRESHRATES and `wanted` null.
    virtual HRESULT EnumDisplayModes(std::uint32_t flags, const DDSURFACEDESC2* wanted,
                                     void* context, LPDDENUMMODESCALLBACK2 callback) = 0;
    virtual HRESULT TestCooperativeLevel() = 0;

  protected:
    ~IDirectDraw7() = default;
};

HRESULT DirectDrawCreateEx(IDirectDraw7*& directDraw);

struct ReleaseInterface {
    template <typename Interface>
    void operator()(Interface* pointer) const {
        pointer->Release();
    }
};

/// Owns one reference.
template <typename Interface>
using UniqueInterface = std::unique_ptr<Interface, ReleaseInterface>;

}  // namespace korvane
