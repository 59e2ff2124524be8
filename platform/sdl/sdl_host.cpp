#include "platform/sdl/sdl_host.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <thread>
#include <tuple>
#include <utility>

#include "platform/files/game_folders.h"
#include "platform/sdl/heap.h"
#include "platform/sdl/wayland_seat.h"

namespace korvane {
namespace {

using Clock = std::chrono::steady_clock;

/// After this time a window that has come up or filled the screen has shown its first pictures.
constexpr std::uint64_t kFirstPicturesMs = 1000;

void SetHints() {
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    // SDL would ask the desktop to switch its effects off, as for a game that fills the screen.
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    // Closing is one event, not two.
    SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");
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

/// Without a display SDL falls back to drivers that show nothing and bring no events. They are used
/// only when the user names one.
bool DriverShowsNothing() {
    const char* driver = SDL_GetCurrentVideoDriver();
    if (driver == nullptr) return true;
    const std::string_view name = driver;
    return (name == "offscreen" || name == "dummy") && SDL_GetHint(SDL_HINT_VIDEODRIVER) == nullptr;
}

/// The driver that SDL tries first where the user names none.
bool StartX11() {
    // No text of ours needs composed letters, and reading the rules for them is two thirds of the
    // time that Xlib takes to open the display. On Wayland others read them, and complain.
    constexpr const char* kRules = "XCOMPOSEFILE";
    const bool isOurs = std::getenv(kRules) == nullptr;
    if (isOurs) setenv(kRules, "/dev/null", 1);
    SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11");
    const bool started = SDL_InitSubSystem(SDL_INIT_VIDEO) == 0;
    SDL_ResetHint(SDL_HINT_VIDEODRIVER);
    if (isOurs && !started) unsetenv(kRules);
    return started;
}

void PushEvent(std::uint32_t type) {
    SDL_Event event{};
    event.type = type;
    SDL_PushEvent(&event);
}

void PushTerminate() {
    PushEvent(kTerminateEvent);
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

/// Asks the compositor itself before SDL does, which does not survive one without a seat.
bool SdlHost::StartDriver() {
    const char* const named = SDL_GetHint(SDL_HINT_VIDEODRIVER);
    if ((named == nullptr || named == std::string_view("x11")) && StartX11()) return true;
    const bool mayBeWayland =
        named == nullptr || std::string_view(named).find("wayland") != std::string_view::npos;
    if (mayBeWayland && WaylandLacksSeat()) {
        Report("Korvane",
               "The Wayland compositor has no seat, that is neither keyboard nor mouse, "
               "and SDL cannot start without one.");
        return false;
    }
    return SDL_InitSubSystem(SDL_INIT_VIDEO) == 0;
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
    if (!StartDriver()) return false;
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
    scale_ = 1;
    clientSize_ = clientSize;
    window_.reset(SDL_CreateWindow(
        title.c_str(), SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, clientSize.cx,
        clientSize.cy, SDL_WINDOW_HIDDEN | SDL_WINDOW_ALLOW_HIGHDPI | SDL_WINDOW_RESIZABLE));
    if (!window_) return false;
    wasShown_ = false;
    windowed_ = WindowArea();
    unframed_ = {windowed_.x, windowed_.y};
    return true;
}

void SdlHost::CloseWindow() {
    const DisplayCall call(*this);
    window_.reset();
    fullScreen_ = shown_ = false;
    settleDue_.reset();
    dragged_.reset();
    insisted_.reset();
    surface_ = WindowSurface();
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

void SdlHost::TrimSoon() {
    trimDue_ = SDL_GetTicks64() + kFirstPicturesMs;
}

void SdlHost::ShowWindow(bool visible) {
    const DisplayCall call(*this);
    if (shown_ && !fullScreen_) windowed_ = WindowArea();
    shown_ = visible;
    wasShown_ = wasShown_ || visible;
    if (visible) {
        TrimSoon();
        SDL_ShowWindow(window_.get());
        SDL_RaiseWindow(window_.get());
        dragged_.reset();
        insisted_.reset();
        AwaitSettling();  // the window manager has framed it by then
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
