#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/host/host.h"

namespace korvane {

/// A machine without screen, keyboard and time of its own: the caller sets the clock, scripts the
/// events and reads the picture. Tests, benches and tools run on it.
///
/// `TheHost()` of this library returns the one `Headless()`. Until `UseFolder` names a folder it
/// has no files at all.
class HeadlessHost final : public Host {
  public:
    HeadlessHost();

    // What the caller sets and sees.

    /// Everything as after the program's start: clock 0, no events, no window, no files, no faults.
    void Reset();
    void SetMilliseconds(std::uint32_t now) { milliseconds_ = now; }
    void Advance(std::uint32_t milliseconds);
    void SetUnixSeconds(std::int64_t seconds) { unixSeconds_ = seconds; }
    /// The folder that paths are resolved beneath.
    void UseFolder(const std::string& folder);
    /// Files of the caller's take the folder's place.
    void UseFiles(std::unique_ptr<Files> files) { files_ = std::move(files); }
    void Push(const HostEvent& event) { events_.push_back(event); }
    void PushKey(std::uint8_t key, bool down, std::uint8_t modifiers = 0);
    /// Typing: one Text event for each character; the program gets those that it accepts.
    void PushText(std::u32string_view text);
    /// An event that comes so many milliseconds from now, if the program waits then.
    void PushLater(std::uint32_t milliseconds, const HostEvent& event);
    /// Called when the program waits without limit and there is no event. It must push one: a
    /// program that nothing can wake is a fault, which ends the process.
    void WhenWaiting(std::function<void()> wake) { wake_ = std::move(wake); }

    /// The client area as it is shown now, in screen pixels, 0x00RRGGBB, row by row.
    const std::vector<std::uint32_t>& Picture() const { return picture_; }
    SIZE PictureSize() const;
    std::uint32_t PixelAt(int x, int y) const;
    /// How often something was presented, and how many pixels in all.
    int Presents() const { return presents_; }
    std::uint64_t PresentedPixels() const { return presentedPixels_; }
    bool IsFullScreen() const { return fullScreen_; }
    bool IsVisible() const { return visible_; }
    bool IsOpen() const { return open_; }
    bool AcceptsText() const { return acceptsText_; }
    const std::vector<std::string>& Reports() const { return reports_; }
    /// Plays for so many frames, a device's buffer at a time; returns the interleaved stereo
    /// samples that were heard. Silence while there is no device.
    std::vector<std::int16_t> Hear(std::size_t frames);
    /// A device is open, or would be looked for.
    bool IsSoundOpen() const { return sound_ != nullptr || looksForSound_; }
    /// Saves as when the display never answers.
    void SaveInEmergency() const { emergencySave_(); }

    // Faults on request.

    /// The results of the next presents, then 0 again. DDERR_SURFACELOST makes the picture black.
    void FailPresents(std::initializer_list<HRESULT> results);
    /// What DisplayState returns from now on.
    void SetDisplayState(HRESULT state) { displayState_ = state; }
    void RefuseWindow(bool refuse) { refuseWindow_ = refuse; }
    void RefuseFullScreen(bool refuse) { refuseFullScreen_ = refuse; }
    /// There is no sound device.
    void RefuseSound(bool refuse) { refuseSound_ = refuse; }
    void SetDisplayModes(std::vector<DisplayMode> modes) { modes_ = std::move(modes); }
    /// What the desktop says, and what it has room for. Full screen shows its picture 1:1 always.
    void SetDensity(const DesktopDensity& density) { density_ = density; }
    void SetClientLimit(SIZE limit) { clientLimit_ = limit; }

    std::uint32_t Milliseconds() override { return milliseconds_; }
    std::uint64_t Counter() override;
    std::uint64_t CounterFrequency() override { return kCounterFrequency; }
    std::int64_t UnixSeconds() override { return unixSeconds_; }
    void Sleep(std::uint32_t milliseconds) override { Advance(milliseconds); }
    bool OpenWindow(const std::string& title, SIZE clientSize) override;
    void CloseWindow() override;
    void ShowWindow(bool visible) override;
    void SetTitle(const std::string& title) override { title_ = title; }
    void SetIcon(const PictureView& icon) override { iconSize_ = {icon.width, icon.height}; }
    void SetClientSize(SIZE size) override;
    void SetClientOrigin(POINT origin) override;
    RECT ClientArea() override;
    SIZE ScreenSize() override { return kScreen; }
    RECT WorkArea() override { return RectAt({}, kScreen); }
    int Scale() override { return scale_; }
    void SetScale(int scale) override;
    DesktopDensity Density() override { return density_; }
    SIZE ClientLimit() override { return clientLimit_; }
    bool NextEvent(HostEvent& event) override;
    void WaitForEvent(std::optional<std::uint32_t> milliseconds) override;
    void AcceptText(bool accept) override { acceptsText_ = accept; }
    std::string ClipboardText() override { return clipboard_; }
    void SetClipboardText(const std::string& utf8) override { clipboard_ = utf8; }
    bool EnterFullScreen(SIZE pictureSize) override;
    void LeaveFullScreen() override;
    std::vector<DisplayMode> DisplayModes() override { return modes_; }
    HRESULT Present(const PictureView& picture, const RECT& target,
                    std::span<const RECT> changed) override;
    HRESULT DisplayState() override { return displayState_; }
    void Report(const std::string& caption, const std::string& text) override;
    void SetEmergencySave(std::function<void()> save) override { emergencySave_ = std::move(save); }
    bool OpenSound(SoundSource& source) override;
    void CloseSound() override;
    Files& GameFiles() override;

    const std::string& Title() const { return title_; }
    /// 0 x 0 when the window has none.
    SIZE IconSize() const { return iconSize_; }

  private:
    int ShownScale() const { return fullScreen_ ? 1 : scale_; }
    void Resize(SIZE size);
    void CopyPart(const PictureView& picture, const RECT& place, const RECT& part);

    std::uint32_t milliseconds_ = 0;
    static constexpr std::uint64_t kCounterFrequency = 1'000'000;

    std::int64_t unixSeconds_ = 1'000'000'000;
    struct LaterEvent {
        std::uint32_t due = 0;
        HostEvent event;
    };

    std::deque<HostEvent> events_;
    std::deque<LaterEvent> later_;  ///< in the order of their times
    bool acceptsText_ = false;
    std::string clipboard_;
    std::function<void()> wake_;
    std::function<void()> emergencySave_;
    std::unique_ptr<Files> files_;

    bool open_ = false;
    bool visible_ = false;
    bool fullScreen_ = false;
    std::string title_;
    SIZE iconSize_;
    POINT clientOrigin_{100, 100};
    SIZE clientSize_;
    int scale_ = 1;
    DesktopDensity density_;
    SIZE windowedSize_;
    static constexpr SIZE kScreen = {1280, 1024};
    SIZE clientLimit_ = kScreen;
    std::vector<DisplayMode> modes_;
    std::vector<std::uint32_t> picture_;
    int presents_ = 0;
    std::uint64_t presentedPixels_ = 0;
    std::vector<std::string> reports_;

    std::deque<HRESULT> presentResults_;
    HRESULT displayState_ = S_OK;
    bool refuseWindow_ = false;
    bool refuseFullScreen_ = false;

    SoundSource* sound_ = nullptr;
    bool refuseSound_ = false;
    bool looksForSound_ = false;
};

/// The machine of this process.
HeadlessHost& Headless();

}  // namespace korvane
