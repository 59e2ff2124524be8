#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/types.h"
#include "platform/host/files.h"
#include "platform/host/sound_source.h"

namespace korvane {

/// Modifier keys held while a key event happened.
enum : std::uint8_t { kModShift = 1, kModControl = 2, kModAlt = 4 };

enum class HostEventType : std::uint8_t {
    KeyDown,         ///< key, modifiers, repeat
    KeyUp,           ///< key, modifiers
    MouseMove,       ///< x, y
    LeftButtonDown,  ///< x, y
    LeftButtonUp,    ///< x, y
    Wheel,           ///< x, y; amount in notches, positive away from the user
    Text,            ///< character; only after AcceptText(true)
    Activated,
    Deactivated,
    Minimized,
    Restored,
    Moved,
    Resized,
    EdgeDragged,     ///< x, y: the client area that was asked for, in screen pixels; amount 1: the
                     ///< desktop insists on this size
    CloseRequested,  ///< the window's close box, or the session asked for it
    Terminate,       ///< SIGTERM, SIGINT or SIGHUP: the program is asked to end
    SoundFound,      ///< there is a sound device now, after OpenSound has found none
};

/// Something that happened outside the program. Points are in layer pixels (the screen's pixels
/// divided by Host::Scale): in a window from the client area's top left corner, in full screen from
/// the shown picture's top left corner, so that they name the picture's pixel under the pointer;
/// they may lie outside.
struct HostEvent {
    HostEventType type = HostEventType::KeyDown;
    std::uint8_t key = 0;        ///< virtual-key code, see platform/base/virtual_keys.h
    std::uint8_t modifiers = 0;  ///< kMod... after the event
    bool repeat = false;         ///< the keyboard's automatic repeat
    int x = 0;
    int y = 0;
    int amount = 0;
    char32_t character = 0;
};

/// A picture in memory that somebody else owns: 0x00RRGGBB pixels, rows `pitch` pixels apart.
struct PictureView {
    const std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    int pitch = 0;
};

/// A display mode that full screen can be asked for.
struct DisplayMode {
    int width = 0;
    int height = 0;
    int bitsPerPixel = 0;
    int refreshHz = 0;
};

/// What the desktop says about how large things are to be; nothing where it does not say.
struct DesktopDensity {
    std::optional<double> scale;       ///< the desktop's own, 1 where it enlarges windows by itself
    std::optional<double> fontDpi;     ///< dots per inch that its fonts are made for
    std::optional<double> monitorDpi;  ///< as the monitor tells
};

/// The machine under the game: clock, the one window and its events, picture and sound out, files.
///
/// Every size and point is in layer pixels: screen pixels divided by Scale(), a whole number from 1
/// (an ordinary monitor) upwards. All calls come from one thread. Where the screen has not even
/// room for one screen pixel each, the machine shows everything smaller, and nobody notices.
class Host {
  public:
    virtual ~Host() = default;

    /// Milliseconds since some start; wraps around after 2^32.
    virtual std::uint32_t Milliseconds() = 0;
    /// High-resolution counter, and its frequency in counts per second (0: there is none). Both
    /// may be asked from any thread.
    virtual std::uint64_t Counter() = 0;
    virtual std::uint64_t CounterFrequency() = 0;
    /// Seconds since 1970-01-01 UTC.
    virtual std::int64_t UnixSeconds() = 0;
    virtual void Sleep(std::uint32_t milliseconds) = 0;

    /// Makes the one window, hidden, with a client area of the given size. False: no display.
    virtual bool OpenWindow(const std::string& title, SIZE clientSize) = 0;
    virtual void CloseWindow() = 0;
    virtual void ShowWindow(bool visible) = 0;
    virtual void SetTitle(const std::string& title) = 0;
    /// The icon that the desktop shows for the window: 0xAARRGGBB pixels, which are copied.
    virtual void SetIcon(const PictureView& icon) = 0;
    virtual void SetClientSize(SIZE size) = 0;
    /// Moves the client area's top left corner to a point of the screen.
    virtual void SetClientOrigin(POINT origin) = 0;
    /// The client area on the screen; in full screen the whole screen.
    virtual RECT ClientArea() = 0;
    virtual SIZE ScreenSize() = 0;
    /// The screen without panels and docks.
    virtual RECT WorkArea() = 0;
    virtual int Scale() = 0;
    /// Each layer pixel takes so many screen pixels from now on; the client area keeps its layer
    /// pixels, and so changes its size on the screen. Resized follows where something has changed.
    virtual void SetScale(int scale) = 0;
    virtual DesktopDensity Density() = 0;
    /// The largest client area that the work area holds in a frame, in screen pixels.
    virtual SIZE ClientLimit() = 0;
    /// Takes the next waiting event; false when none waits. Never blocks.
    virtual bool NextEvent(HostEvent& event) = 0;
    /// Blocks until an event waits or the time has passed; no time means without limit.
    virtual void WaitForEvent(std::optional<std::uint32_t> milliseconds) = 0;

    /// True: typing also comes as Text events, through an input method if there is one. At the
    /// start it does not, and no input method takes keys away.
    virtual void AcceptText(bool accept) = 0;
    /// The desktop's clipboard as UTF-8, empty when it holds no text.
    virtual std::string ClipboardText() = 0;
    virtual void SetClipboardText(const std::string& utf8) = 0;

    /// Full screen shows a picture of the given size at the largest whole-number scale that fits,
    /// centred, with black bars; the monitor's own mode stays. False: it could not be entered.
    virtual bool EnterFullScreen(SIZE pictureSize) = 0;
    virtual void LeaveFullScreen() = 0;
    /// The modes that full screen can show, best first.
    virtual std::vector<DisplayMode> DisplayModes() = 0;
    /// Shows `changed` parts (in picture pixels; nothing else differs from what was shown there
    /// before) of a picture. `target` is the place of the whole picture in the client area; a
    /// target of another size than the picture stretches it. In full screen `target` is ignored.
    /// Returns 0, DDERR_SURFACELOST when everything shown is gone and must be sent again, or
    /// DDERR_WASSTILLDRAWING when it cannot be done at this moment.
    virtual HRESULT Present(const PictureView& picture, const RECT& target,
                            std::span<const RECT> changed) = 0;
    /// 0, or DDERR_NOEXCLUSIVEMODE (full screen has lost the screen to somebody else),
    /// DDERR_EXCLUSIVEMODEALREADYSET, or DDERR_WRONGMODE (somebody else has changed the display's
    /// mode).
    virtual HRESULT DisplayState() = 0;
    /// Tells the user something on the terminal, where no window can show it or none is to.
    virtual void Report(const std::string& caption, const std::string& text) = 0;

    /// What saves the program's data in an emergency: the program was asked to end (Terminate), and
    /// its thread has been waiting for the display since. Another thread calls `save`, at most
    /// once, and then ends the process. `save` may read whatever the program's thread owns, since
    /// that stays in its wait, and must not use the display. An empty one takes it back, before
    /// what it saves ends.
    virtual void SetEmergencySave(std::function<void()> save) = 0;

    /// Opens the sound device, which from then on asks `source` for frames until CloseSound
    /// returns. A device that vanishes meanwhile is looked for again without the caller noticing.
    /// False: there is no device. SoundFound comes when there is one, unless CloseSound was called,
    /// and OpenSound is true when it is then called again; the source must live until CloseSound
    /// has returned. True also when that cannot be told at once; frames are then asked for as soon
    /// as there is one.
    virtual bool OpenSound(SoundSource& source) = 0;
    /// The source is not asked any more when this returns, and no device is looked for.
    virtual void CloseSound() = 0;

    virtual Files& GameFiles() = 0;
};

/// The machine that this program was linked with: each of platform/sdl and platform/headless
/// defines it. Made at the first call, so that objects constructed before `main` can read files.
Host& TheHost();

}  // namespace korvane
