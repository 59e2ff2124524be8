#include "platform/sdl/sdl_host.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <set>
#include <string_view>
#include <thread>
#include <tuple>

#include "platform/sdl/heap.h"

namespace korvane {
namespace {

using Clock = std::chrono::steady_clock;

/// The pixel density that one layer pixel per screen pixel is made for.
constexpr float kOrdinaryDpi = 96;

/// By then a window that came up, or fills the screen now, has shown its first pictures.
constexpr std::uint64_t kFirstPicturesMs = 1000;

/// So long a window manager may take to give a window back its place.
constexpr std::uint64_t kManagerPatienceMs = 500;

void SetHints() {
    // The window's surface would go through OpenGL otherwise, ten times as dear without a GPU.
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    // SDL asks desktops to switch their effects off, which is for games that fill the screen.
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    // Closing is one event, not two.
    SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");
    // No text that is typed has composed letters, and reading how they are composed takes Xlib
    // two thirds of the time in which it opens the display.
    SDL_setenv("XCOMPOSEFILE", "/dev/null", /*overwrite=*/0);
}

/// Screen pixels for one layer pixel: by the display's density, as far as the window then fits.
int FittingScale(SIZE clientSize) {
    // There all sizes are in points that the compositor scales by itself.
    const char* driver = SDL_GetCurrentVideoDriver();
    if (driver != nullptr && std::string_view(driver) == "wayland") return 1;
    float dpi = 0;
    SDL_Rect usable;
    if (SDL_GetDisplayDPI(0, nullptr, &dpi, nullptr) != 0) return 1;
    if (SDL_GetDisplayUsableBounds(0, &usable) != 0) return 1;
    const int fitting = std::min(usable.w / clientSize.cx, usable.h / clientSize.cy);
    return std::clamp(static_cast<int>(std::lround(dpi / kOrdinaryDpi)), 1, std::max(1, fitting));
}

/// Without a display SDL falls back to drivers that show nothing and bring no events; they are only
/// wanted by somebody who names them.
bool DriverShowsNothing() {
    const char* driver = SDL_GetCurrentVideoDriver();
    if (driver == nullptr) return true;
    const std::string_view name = driver;
    return (name == "offscreen" || name == "dummy") && SDL_GetHint(SDL_HINT_VIDEODRIVER) == nullptr;
}

bool IsSameMode(const SDL_DisplayMode& a, const SDL_DisplayMode& b) {
    return a.w == b.w && a.h == b.h && a.refresh_rate == b.refresh_rate;
}

RECT LayerRect(const SDL_Rect& area, int scale) {
    return RectAt({area.x / scale, area.y / scale}, {area.w / scale, area.h / scale});
}

}  // namespace

Host& TheHost() {
    static SdlHost host;
    return host;
}

SdlHost::SdlHost() : files_(OpenDiskFiles("")), keys_(LayoutSymbols{}) {
    PrepareHeap();
}

SdlHost::~SdlHost() {
    sound_.Close();
    signals_.reset();  // its thread talks to SDL
    // CloseWindow has left the display. A window that is still open here, or was being closed,
    // belongs to a display that died: to ask anything of it would wait for ever.
    std::ignore = window_.release();
}

// Clock. -----------------------------------------------------------------------------------------

std::uint32_t SdlHost::Milliseconds() {
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now().time_since_epoch())
            .count());
}

std::uint64_t SdlHost::Counter() {
    return static_cast<std::uint64_t>(Clock::now().time_since_epoch().count());
}

std::uint64_t SdlHost::CounterFrequency() {
    static_assert(Clock::period::num == 1);
    return Clock::period::den;
}

std::int64_t SdlHost::UnixSeconds() {
    return std::chrono::duration_cast<std::chrono::seconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

void SdlHost::Sleep(std::uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

// Window. ----------------------------------------------------------------------------------------

bool SdlHost::StartVideo() {
    if (SDL_WasInit(SDL_INIT_VIDEO) != 0) return true;
    SetHints();
    // The queue first, as the signal watch pushes into it; the watch next, as it wants to be there
    // before any other thread.
    if (SDL_InitSubSystem(SDL_INIT_EVENTS) != 0) return false;
    if (!signals_) {
        signals_.emplace([] {
            SDL_Event event{};
            event.type = kTerminateEvent;
            SDL_PushEvent(&event);
        });
    }
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) return false;
    if (DriverShowsNothing()) {
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
        return false;
    }
    SDL_StopTextInput();  // an input method would take letters that steer
    ReadKeyboardLayout();
    return true;
}

bool SdlHost::OpenWindow(const std::string& title, SIZE clientSize) {
    if (!StartVideo()) return false;
    scale_ = FittingScale(clientSize);
    window_.reset(SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED,
                                   clientSize.cx * scale_, clientSize.cy * scale_,
                                   SDL_WINDOW_HIDDEN));
    return window_ != nullptr;
}

void SdlHost::CloseWindow() {
    window_.reset();
    fullScreen_ = shown_ = false;
    surface_ = WindowSurface();
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

void SdlHost::TrimSoon() {
    trimDue_ = SDL_GetTicks64() + kFirstPicturesMs;
}

void SdlHost::ShowWindow(bool visible) {
    shown_ = visible;
    if (visible) {
        TrimSoon();
        SDL_ShowWindow(window_.get());
        SDL_RaiseWindow(window_.get());
    } else {
        SDL_HideWindow(window_.get());
    }
}

void SdlHost::SetIcon(const PictureView& icon) {
    // SDL only reads through the pointer, and copies what it reads.
    auto* pixels = const_cast<std::uint32_t*>(icon.pixels);
    SDL_Surface* surface = SDL_CreateRGBSurfaceWithFormatFrom(
        pixels, icon.width, icon.height, 32, icon.pitch * int{sizeof(std::uint32_t)},
        SDL_PIXELFORMAT_ARGB8888);
    if (surface == nullptr) return;
    SDL_SetWindowIcon(window_.get(), surface);
    SDL_FreeSurface(surface);
}

void SdlHost::SetTitle(const std::string& title) {
    SDL_SetWindowTitle(window_.get(), title.c_str());
}

void SdlHost::SetClientSize(SIZE size) {
    SDL_Rect area = fullScreen_ ? windowed_ : WindowArea();
    area.w = size.cx * scale_;
    area.h = size.cy * scale_;
    MoveWindow(area);
}

void SdlHost::SetClientOrigin(POINT origin) {
    const SDL_Rect before = fullScreen_ ? windowed_ : WindowArea();
    SDL_Rect area = before;
    area.x = origin.x * scale_;
    area.y = origin.y * scale_;
    if (area.x == before.x && area.y == before.y) return;
    MoveWindow(area);
    Push(HostEventType::Moved);  // SDL only tells of moves by others
}

RECT SdlHost::ClientArea() {
    if (!fullScreen_) return LayerRect(WindowArea(), scale_);
    const SIZE screen = ScreenSize();
    return {0, 0, screen.cx, screen.cy};
}

SIZE SdlHost::ScreenSize() {
    SDL_Rect bounds{};
    SDL_GetDisplayBounds(DisplayIndex(), &bounds);
    return {bounds.w / scale_, bounds.h / scale_};
}

RECT SdlHost::WorkArea() {
    SDL_Rect bounds{};
    SDL_GetDisplayUsableBounds(DisplayIndex(), &bounds);
    return LayerRect(bounds, scale_);
}

int SdlHost::DisplayIndex() const {
    return window_ ? std::max(0, SDL_GetWindowDisplayIndex(window_.get())) : 0;
}

SDL_Rect SdlHost::WindowArea() const {
    SDL_Rect area{};
    SDL_GetWindowPosition(window_.get(), &area.x, &area.y);
    SDL_GetWindowSize(window_.get(), &area.w, &area.h);
    return area;
}

/// Whether a window manager has framed the window; without one nobody but us makes it as large as
/// the screen and small again.
bool SdlHost::HasFrame() const {
    int top = 0;
    int left = 0;
    return SDL_GetWindowBordersSize(window_.get(), &top, &left, nullptr, nullptr) == 0 &&
           (top != 0 || left != 0);
}

/// In full screen the window goes there when that ends.
void SdlHost::MoveWindow(const SDL_Rect& area) {
    windowed_ = area;
    if (!fullScreen_) PlaceWindow(area);
}

void SdlHost::PlaceWindow(const SDL_Rect& area) {
    const SDL_Rect now = WindowArea();
    if (now.w != area.w || now.h != area.h) SDL_SetWindowSize(window_.get(), area.w, area.h);
    if (now.x != area.x || now.y != area.y) SDL_SetWindowPosition(window_.get(), area.x, area.y);
}

// Text. ------------------------------------------------------------------------------------------

void SdlHost::AcceptText(bool accept) {
    if (SDL_WasInit(SDL_INIT_VIDEO) == 0 || (SDL_IsTextInputActive() == SDL_TRUE) == accept) return;
    accept ? SDL_StartTextInput() : SDL_StopTextInput();
}

std::string SdlHost::ClipboardText() {
    const std::unique_ptr<char, decltype(&SDL_free)> text(SDL_GetClipboardText(), SDL_free);
    return text ? text.get() : "";
}

void SdlHost::SetClipboardText(const std::string& utf8) {
    SDL_SetClipboardText(utf8.c_str());
}

// Picture out. -----------------------------------------------------------------------------------

bool SdlHost::EnterFullScreen(SIZE pictureSize) {
    if (!window_) return false;
    if (!fullScreen_) {
        windowed_ = WindowArea();
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

/// Waits until the manager has taken the window away from where it filled the screen, which it does
/// in its own time; false when that takes too long. Who takes the old place for the new one moves
/// the window into the screen's corner.
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
    fullScreen_ = false;
    SDL_EnableScreenSaver();
    const SDL_Rect full = WindowArea();
    SDL_SetWindowFullscreen(window_.get(), 0);
    // A manager puts the window back where it was; its frame, which positions depend on, is not
    // there again yet.
    if (isManaged_ && AwaitReturnFrom(full)) {
        const SDL_Rect now = WindowArea();
        windowed_.x = now.x;
        windowed_.y = now.y;
    }
    PlaceWindow(windowed_);
    surface_.Forget();
    TrimSoon();
}

/// Where full screen shows its picture: in the middle, as large as whole pixels allow. A screen
/// smaller than the picture shows its top left corner.
RECT SdlHost::FullScreenPlace() const {
    const SDL_Rect screen = WindowArea();
    const SIZE picture = fullScreenPicture_;
    const int scale = std::max(1, std::min(screen.w / picture.cx, screen.h / picture.cy));
    const SIZE shown{picture.cx * scale, picture.cy * scale};
    const POINT corner{std::max(0, (screen.w - shown.cx) / 2),
                       std::max(0, (screen.h - shown.cy) / 2)};
    return RectAt(corner, shown);
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

HRESULT SdlHost::Present(const PictureView& picture, const RECT& target,
                         std::span<const RECT> changed) {
    using enum WindowSurface::State;
    if (!window_) return E_FAIL;
    const RECT inWindow{target.left * scale_, target.top * scale_, target.right * scale_,
                        target.bottom * scale_};
    const WindowSurface::State state =
        surface_.Draw(window_.get(), picture, fullScreen_ ? FullScreenPlace() : inWindow, changed);
    if (state == Missing) return DDERR_SURFACELOST;
    // A hidden window asks for its content when it comes up; sending it before is lost time.
    if (shown_ && !surface_.Send(window_.get())) return DDERR_SURFACELOST;
    // On a new surface a part is not enough.
    const RECT whole{0, 0, picture.width, picture.height};
    const bool isWhole = std::ranges::find(changed, whole) != changed.end();
    return state == New && !isWhole ? DDERR_SURFACELOST : S_OK;
}

HRESULT SdlHost::DisplayState() {
    if (!window_ || !fullScreen_) return S_OK;
    const std::uint32_t flags = SDL_GetWindowFlags(window_.get());
    if ((flags & SDL_WINDOW_INPUT_FOCUS) == 0 || (flags & SDL_WINDOW_MINIMIZED) != 0)
        return DDERR_NOEXCLUSIVEMODE;
    const SDL_DisplayMode mode = DesktopMode();
    if (IsSameMode(mode, fullScreenMode_)) return S_OK;
    fullScreenMode_ = mode;
    return DDERR_WRONGMODE;
}

void SdlHost::Report(const std::string& caption, const std::string& text) {
    std::fprintf(stderr, "%s: %s\n", caption.c_str(), text.c_str());
}

}  // namespace korvane
