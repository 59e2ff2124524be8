#include "platform/sdl/sdl_host.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <thread>
#include <tuple>
#include <utility>

#include "platform/files/game_folders.h"
#include "platform/sdl/heap.h"

namespace korvane {
namespace {

using Clock = std::chrono::steady_clock;

/// The pixel density that one layer pixel per screen pixel is made for.
constexpr float kOrdinaryDpi = 96;

/// After this time a window that has come up or filled the screen has shown its first pictures.
constexpr std::uint64_t kFirstPicturesMs = 1000;

void SetHints() {
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    // SDL would ask the desktop to switch its effects off, as for a game that fills the screen.
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    // Closing is one event, not two.
    SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");
    // No text of ours needs composed letters, and reading the rules for them is two thirds of the
    // time that Xlib takes to open the display.
    SDL_setenv("XCOMPOSEFILE", "/dev/null", /*overwrite=*/0);
}

/// A Wayland compositor, which scales by itself, so that all sizes are before that.
bool IsWayland() {
    const char* driver = SDL_GetCurrentVideoDriver();
    return driver != nullptr && std::string_view(driver) == "wayland";
}

/// Decides how the window's surface gets to the screen, which must be known before the surface is
/// first asked for.
void ChooseWayToScreen() {
    // Everywhere else SDL would send the surface through OpenGL, which takes ten times as long
    // without a graphics card. On Wayland there is no other way.
    if (!IsWayland()) SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
}

/// Screen pixels for one layer pixel: by the display's density, as far as the window then fits.
int FittingScale(SIZE clientSize) {
    if (IsWayland()) return 1;
    float dpi = 0;
    SDL_Rect usable;
    if (SDL_GetDisplayDPI(0, nullptr, &dpi, nullptr) != 0) return 1;
    if (SDL_GetDisplayUsableBounds(0, &usable) != 0) return 1;
    const int fitting = std::min(usable.w / clientSize.cx, usable.h / clientSize.cy);
    return std::clamp(static_cast<int>(std::lround(dpi / kOrdinaryDpi)), 1, std::max(1, fitting));
}

/// Without a display SDL falls back to drivers that show nothing and bring no events. They are used
/// only when the user names one.
bool DriverShowsNothing() {
    const char* driver = SDL_GetCurrentVideoDriver();
    if (driver == nullptr) return true;
    const std::string_view name = driver;
    return (name == "offscreen" || name == "dummy") && SDL_GetHint(SDL_HINT_VIDEODRIVER) == nullptr;
}

void PushEvent(std::uint32_t type) {
    SDL_Event event{};
    event.type = type;
    SDL_PushEvent(&event);
}

void PushTerminate() {
    PushEvent(kTerminateEvent);
}

RECT LayerRect(const SDL_Rect& area, int scale) {
    return RectAt({area.x / scale, area.y / scale}, {area.w / scale, area.h / scale});
}

}  // namespace

Host& TheHost() {
    static SdlHost host;
    return host;
}

SdlHost::SdlHost() : files_(OpenGameFiles(ReadSurroundings())), keys_(LayoutSymbols{}) {
    PrepareHeap();
    sound_.WhenFound([] { PushEvent(kSoundFoundEvent); });
}

SdlHost::~SdlHost() {
    sound_.Close();
    if (holdsData_.owns_lock()) holdsData_.unlock();  // the thread may be waiting for it
    signals_.reset();                                 // its thread uses SDL
    // CloseWindow has closed the window. One that is still here belongs to a display that has died:
    // any call for it would wait for ever.
    std::ignore = window_.release();
}

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

bool SdlHost::StartVideo() {
    if (SDL_WasInit(SDL_INIT_VIDEO) != 0) return true;
    SetHints();
    // The queue first, as the signal watch pushes into it; the watch next, as it must be made
    // before any other thread.
    if (SDL_InitSubSystem(SDL_INIT_EVENTS) != 0) return false;
    if (!signals_) {
        signals_.emplace(SignalWatch::Actions{.ask = PushTerminate,
                                              .save = [this] { return SaveInEmergency(); }});
    }
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) return false;
    if (DriverShowsNothing()) {
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
        return false;
    }
    ChooseWayToScreen();
    SDL_StopTextInput();  // an input method would take letters that steer
    ReadKeyboardLayout();
    return true;
}

void SdlHost::SetEmergencySave(std::function<void()> save) {
    const std::lock_guard lock(saveMutex_);
    emergencySave_ = std::move(save);
    if (emergencySave_ && !holdsData_.owns_lock()) holdsData_.lock();
}

/// A thread that hangs somewhere else does not let go of the data. What it was doing to them then
/// counts less than losing them.
bool SdlHost::SaveInEmergency() {
    constexpr std::chrono::seconds kPatience{1};
    std::ignore = data_.try_lock_for(kPatience);  // kept until the process ends
    const std::lock_guard lock(saveMutex_);
    if (emergencySave_) emergencySave_();
    return static_cast<bool>(emergencySave_);
}

bool SdlHost::OpenWindow(const std::string& title, SIZE clientSize) {
    const DisplayCall call(*this);
    if (!StartVideo()) return false;
    scale_ = FittingScale(clientSize);
    window_.reset(SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED,
                                   clientSize.cx * scale_, clientSize.cy * scale_,
                                   SDL_WINDOW_HIDDEN | SDL_WINDOW_ALLOW_HIGHDPI));
    return window_ != nullptr;
}

void SdlHost::CloseWindow() {
    const DisplayCall call(*this);
    window_.reset();
    fullScreen_ = shown_ = false;
    surface_ = WindowSurface();
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

void SdlHost::TrimSoon() {
    trimDue_ = SDL_GetTicks64() + kFirstPicturesMs;
}

void SdlHost::ShowWindow(bool visible) {
    const DisplayCall call(*this);
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

/// In full screen the window goes there when full screen ends.
void SdlHost::MoveWindow(const SDL_Rect& area) {
    windowed_ = area;
    if (!fullScreen_) PlaceWindow(area);
}

void SdlHost::PlaceWindow(const SDL_Rect& area) {
    const SDL_Rect now = WindowArea();
    if (now.w != area.w || now.h != area.h) SDL_SetWindowSize(window_.get(), area.w, area.h);
    if (now.x != area.x || now.y != area.y) SDL_SetWindowPosition(window_.get(), area.x, area.y);
}

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

void SdlHost::Report(const std::string& caption, const std::string& text) {
    std::fprintf(stderr, "%s: %s\n", caption.c_str(), text.c_str());
}

}  // namespace korvane
