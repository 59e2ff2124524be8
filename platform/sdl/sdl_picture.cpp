#include <SDL.h>

#include <algorithm>
#include <functional>
#include <set>

#include "platform/sdl/sdl_host.h"
#include "platform/sdl/xlib.h"

namespace korvane {
namespace {

/// How long a window manager may take to give a window back its place.
constexpr std::uint64_t kManagerPatienceMs = 500;

/// Between two looks at the size of the screen.
constexpr std::uint64_t kLookMs = 1000;

/// How long the window may be without a surface to draw on.
constexpr std::uint64_t kSurfacePatienceMs = 1000;

bool IsSameMode(const SDL_DisplayMode& a, const SDL_DisplayMode& b) {
    return a.w == b.w && a.h == b.h && a.refresh_rate == b.refresh_rate;
}

}  // namespace

bool SdlHost::EnterFullScreen(SIZE pictureSize) {
    if (!window_) return false;
    const DisplayCall call(*this);
    if (!fullScreen_) {
        windowed_ = PlacedArea();
        isManaged_ = HasFrame();
        SDL_Rect screen = windowed_;
        SDL_GetDisplayBounds(DisplayIndex(), &screen);
        if (!isManaged_) PlaceWindow(screen);
        if (SDL_SetWindowFullscreen(window_.get(), SDL_WINDOW_FULLSCREEN_DESKTOP) != 0) {
            PlaceWindow(windowed_);
            return false;
        }
    }
    fullScreen_ = true;
    fullScreenPicture_ = pictureSize;
    fullScreenMode_ = DesktopMode();
    SDL_DisableScreenSaver();
    surface_.Forget();
    TrimSoon();
    return true;
}

/// Waits until the window manager has moved the window away from where it filled the screen; false
/// when that takes too long. Taking the old place for the new one would move the window into the
/// screen's corner.
bool SdlHost::AwaitReturnFrom(const SDL_Rect& full) const {
    const auto hasLeft = [&] {
        const SDL_Rect now = WindowArea();
        return (now.w != full.w || now.h != full.h) && (now.x != full.x || now.y != full.y);
    };
    for (std::uint64_t end = SDL_GetTicks64() + kManagerPatienceMs; SDL_GetTicks64() < end;) {
        if (hasLeft()) return true;
        SDL_Delay(1);
        SDL_PumpEvents();
    }
    return hasLeft();
}

void SdlHost::LeaveFullScreen() {
    if (!fullScreen_) return;
    const DisplayCall call(*this);
    fullScreen_ = false;
    SDL_EnableScreenSaver();
    const SDL_Rect full = WindowArea();
    SDL_SetWindowFullscreen(window_.get(), 0);
    // A window manager puts the window back where it was. Its frame, on which positions depend,
    // comes back later.
    if (isManaged_ && AwaitReturnFrom(full)) {
        const SDL_Rect now = WindowArea();
        windowed_.x = now.x;
        windowed_.y = now.y;
    }
    PlaceWindow(windowed_);
    AwaitSettling();  // the manager may still be at it
    surface_.Forget();
    TrimSoon();
}

std::vector<DisplayMode> SdlHost::DisplayModes() {
    const int display = DisplayIndex();
    SDL_DisplayMode mode{};
    if (SDL_GetDesktopDisplayMode(display, &mode) != 0) return {};
    std::set<int, std::greater<>> rates = {mode.refresh_rate};
    for (int i = 0; i < SDL_GetNumDisplayModes(display); ++i)
        if (SDL_GetDisplayMode(display, i, &mode) == 0) rates.insert(mode.refresh_rate);
    std::vector<DisplayMode> modes;
    for (const int rate : rates)
        for (const int bits : {32, 16})
            modes.push_back({640, 480, bits, rate});
    return modes;
}

SDL_DisplayMode SdlHost::DesktopMode() const {
    SDL_DisplayMode mode{};
    SDL_GetDesktopDisplayMode(DisplayIndex(), &mode);
    return mode;
}

HRESULT SdlHost::WithoutSurface() {
    const std::uint64_t now = SDL_GetTicks64();
    if (!missingSince_) missingSince_ = now;
    return now - *missingSince_ < kSurfacePatienceMs ? DDERR_SURFACELOST : E_FAIL;
}

HRESULT SdlHost::Present(const PictureView& picture, const RECT& target,
                         std::span<const RECT> changed) {
    using enum WindowSurface::State;
    if (!window_) return E_FAIL;
    const DisplayCall call(*this);
    const WindowSurface::Frame frame = ShownFrame();
    const int scale = ShownScale(frame);
    RECT place{0, 0, frame.size.cx, frame.size.cy};
    if (!fullScreen_)
        place = {target.left * scale, target.top * scale, target.right * scale,
                 target.bottom * scale};
    const WindowSurface::State state = surface_.Draw(window_.get(), frame, picture, place, changed);
    if (state == Missing) return WithoutSurface();
    missingSince_.reset();
    // A hidden window asks for its content when it is shown; sending it before is wasted.
    if (shown_ && !surface_.Send(window_.get())) return DDERR_SURFACELOST;
    // A new surface must get the whole picture.
    const RECT whole{0, 0, picture.width, picture.height};
    const bool isWhole = std::ranges::find(changed, whole) != changed.end();
    return state == New && !isWhole ? DDERR_SURFACELOST : S_OK;
}

/// Without a window manager nobody else makes the window smaller when the screen becomes so. Looks
/// once a second.
void SdlHost::FollowScreen() {
    const std::uint64_t now = SDL_GetTicks64();
    if (isManaged_ || now < nextLook_) return;
    nextLook_ = now + kLookMs;
    const DisplayCall call(*this);
    const std::optional<SIZE> screen = WholeScreenSize(window_.get());
    SDL_Rect known{};
    if (!screen || SDL_GetDisplayBounds(DisplayIndex(), &known) != 0) return;
    const SIZE wanted{std::min(known.w, screen->cx - known.x),
                      std::min(known.h, screen->cy - known.y)};
    if (wanted.cx > 0 && wanted.cy > 0 && wanted != SizeOf(WindowArea()))
        ResizeFullScreen(window_.get(), wanted);
}

HRESULT SdlHost::DisplayState() {
    if (!window_ || !fullScreen_) return S_OK;
    FollowScreen();
    const std::uint32_t flags = SDL_GetWindowFlags(window_.get());
    if ((flags & SDL_WINDOW_INPUT_FOCUS) == 0 || (flags & SDL_WINDOW_MINIMIZED) != 0)
        return DDERR_NOEXCLUSIVEMODE;
    const SDL_DisplayMode mode = DesktopMode();
    if (IsSameMode(mode, fullScreenMode_)) return S_OK;
    fullScreenMode_ = mode;
    return DDERR_WRONGMODE;
}

}  // namespace korvane
