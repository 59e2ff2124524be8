#pragma once

#include <SDL_events.h>
#include <SDL_video.h>

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/host.h"
#include "platform/sdl/sdl_keys.h"
#include "platform/sdl/sdl_sound.h"
#include "platform/sdl/signal_watch.h"
#include "platform/sdl/window_surface.h"

namespace korvane {

/// The event that the signal watch pushes into SDL's queue.
inline constexpr std::uint32_t kTerminateEvent = SDL_USEREVENT;
/// The event that the sound's thread pushes when it has found a device at last.
inline constexpr std::uint32_t kSoundFoundEvent = SDL_USEREVENT + 1;

/// The desktop: one SDL window whose surface takes the picture, the system's clock, and the files
/// of the user's folder with the installed ones behind them.
///
/// SDL is started by OpenWindow; clock and files work before that and after CloseWindow.
class SdlHost final : public Host {
  public:
    SdlHost();
    ~SdlHost() override;

    std::uint32_t Milliseconds() override;
    std::uint64_t Counter() override;
    std::uint64_t CounterFrequency() override;
    std::int64_t UnixSeconds() override;
    void Sleep(std::uint32_t milliseconds) override;

    bool OpenWindow(const std::string& title, SIZE clientSize) override;
    void CloseWindow() override;
    void ShowWindow(bool visible) override;
    void SetTitle(const std::string& title) override;
    void SetIcon(const PictureView& icon) override;
    void SetClientSize(SIZE size) override;
    void SetClientOrigin(POINT origin) override;
    RECT ClientArea() override;
    SIZE ScreenSize() override;
    RECT WorkArea() override;
    int Scale() override { return scale_; }
    void SetScale(int scale) override;
    DesktopDensity Density() override;
    SIZE ClientLimit() override;
    bool NextEvent(HostEvent& event) override;
    void WaitForEvent(std::optional<std::uint32_t> milliseconds) override;

    void AcceptText(bool accept) override;
    std::string ClipboardText() override;
    void SetClipboardText(const std::string& utf8) override;

    bool EnterFullScreen(SIZE pictureSize) override;
    void LeaveFullScreen() override;
    std::vector<DisplayMode> DisplayModes() override;
    HRESULT Present(const PictureView& picture, const RECT& target,
                    std::span<const RECT> changed) override;
    HRESULT DisplayState() override;
    void Report(const std::string& caption, const std::string& text) override;

    void SetEmergencySave(std::function<void()> save) override;

    bool OpenSound(SoundSource& source) override { return sound_.Open(source); }
    void CloseSound() override { sound_.Close(); }

    Files& GameFiles() override { return *files_; }

  private:
    struct WindowDeleter {
        void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
    };

    /// Around what may wait for the display: the program's data keeps still meanwhile, so that it
    /// can be saved in an emergency. When the display dies, Xlib ends the process out of such a
    /// call, and what ends then makes others.
    class DisplayCall {
      public:
        explicit DisplayCall(SdlHost& host) : host_(host), isOuter_(host.holdsData_.owns_lock()) {
            if (isOuter_) host_.holdsData_.unlock();
        }
        ~DisplayCall() {
            if (isOuter_) host_.holdsData_.lock();
        }
        DisplayCall(const DisplayCall&) = delete;
        DisplayCall& operator=(const DisplayCall&) = delete;

      private:
        SdlHost& host_;
        const bool isOuter_;
    };

    bool StartVideo();
    bool StartDriver();
    /// False when there is nothing to save any more.
    bool SaveInEmergency();
    bool AwaitReturnFrom(const SDL_Rect& full) const;
    SDL_DisplayMode DesktopMode() const;
    /// A surface that has been missing for too long will not come any more.
    HRESULT WithoutSurface();
    void FollowScreen();
    /// To be called after pictures were loaded: once they are shown, much of the heap is unused.
    void TrimSoon();

    // In sdl_window.cpp.

    /// What the window manager's frame takes on each side, in screen pixels.
    struct Borders {
        int left = 0, top = 0, right = 0, bottom = 0;
    };

    static SIZE SizeOf(const SDL_Rect& area) { return {area.w, area.h}; }
    int DisplayIndex() const;
    Borders FrameBorders() const;
    bool HasFrame() const;
    /// The window's inside, in screen pixels.
    SDL_Rect WindowArea() const;
    SDL_Rect PlacedArea() const;
    SDL_Rect ClientRoom() const;
    SDL_Rect MovedIntoRoom(SDL_Rect area) const;
    void CentreWindow();
    /// The client area in screen pixels, and what of that the screen holds.
    SIZE FullSize() const;
    SIZE FittedSize() const;
    void ResizeWindow();
    void MoveWindow(const SDL_Rect& area);
    void PlaceWindow(const SDL_Rect& area);
    /// To be called when the window's size or frame may have changed.
    void SettleSoon();
    /// The next size that is not ours is not one that somebody has dragged the window to.
    void AwaitSettling();
    void Settle();
    WindowSurface::Frame ShownFrame() const;
    int ShownScale(const WindowSurface::Frame& frame) const;

    // In sdl_events.cpp.

    void PumpEvents();
    int SoonerToSettle(int milliseconds) const;
    void Translate(const SDL_Event& event);
    void OnWindowEvent(const SDL_WindowEvent& event);
    void OnKey(const SDL_KeyboardEvent& event);
    void OnText(std::string_view utf8);
    void PushMouse(HostEventType type, int x, int y, int amount = 0);
    void Push(HostEventType type) { pending_.push_back({.type = type}); }
    void ReadKeyboardLayout();

    std::unique_ptr<Files> files_;
    std::unique_ptr<SDL_Window, WindowDeleter> window_;
    int scale_ = 1;
    SIZE clientSize_;                         ///< in layer pixels
    std::optional<std::uint64_t> settleDue_;  ///< SDL's milliseconds
    std::optional<SIZE> dragged_;             ///< the window's size when the game was last told
    std::optional<SIZE> insisted_;            ///< the size that the desktop does not let go of
    WindowSurface surface_;
    std::optional<std::uint64_t> missingSince_;  ///< the surface; SDL's milliseconds
    bool wasShown_ = false;
    bool isNew_ = false;                    ///< since it was shown its size has not settled
    POINT unframed_;                        ///< its place before it had a frame
    bool shown_ = false;                    ///< the window is on the screen
    std::optional<std::uint64_t> trimDue_;  ///< SDL's milliseconds
    bool exposed_ = false;                  ///< the screen no longer shows it

    bool fullScreen_ = false;
    SIZE fullScreenPicture_;
    SDL_DisplayMode fullScreenMode_{};
    std::uint64_t nextLook_ = 0;  ///< at the screen's size; SDL's milliseconds
    /// Where the window was, or is to be, while it is hidden or fills the screen; in screen pixels.
    SDL_Rect windowed_{};
    bool isManaged_ = false;  ///< it had a window manager's frame there

    SdlSound sound_;

    std::deque<HostEvent> pending_;
    KeyTable keys_;
    /// The code that each held key went down as: it comes up as the same, also when NumLock or the
    /// layout has changed meanwhile.
    std::array<std::uint8_t, SDL_NUM_SCANCODES> held_{};
    /// Held by the program's thread, but for its calls of the display, once there is something to
    /// save.
    std::timed_mutex data_;
    std::unique_lock<std::timed_mutex> holdsData_{data_, std::defer_lock};
    std::mutex saveMutex_;  ///< guards emergencySave_, also while that runs
    std::function<void()> emergencySave_;
    std::optional<SignalWatch> signals_;
};

}  // namespace korvane
