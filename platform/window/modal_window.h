#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/draw/canvas.h"
#include "platform/host/host.h"
#include "platform/window/shown_picture.h"
#include "platform/window/user.h"

namespace korvane {

/// A box or dialog over the window's picture, which gets all keys and mouse events until it closes.
/// While the window is not shown, the box is alone in it. Derived classes paint it and handle
/// input.
class ModalWindow {
  public:
    ModalWindow(Window& window, Overlay overlay);
    /// One that an exception ends gives the input back as well.
    virtual ~ModalWindow();
    ModalWindow(const ModalWindow&) = delete;
    ModalWindow& operator=(const ModalWindow&) = delete;

    /// Returns when it was closed, or the program is asked to end: that message stays in the queue,
    /// and no further box opens. The window is deactivated meanwhile.
    void Run();
    /// Ends Run.
    void Close() { open_ = false; }
    bool IsOpen() const { return open_; }
    /// True when the window shows only this box, and perhaps others over it.
    bool IsAlone() const { return alone_; }
    /// Where it lies in the client area; its menu bar counts.
    RECT Place() const { return RectAt(corner_, size_); }
    /// Handles an event. True when nobody else may get it.
    bool Takes(const HostEvent& event);
    /// Paints it again if it has changed.
    void Refresh();

  protected:
    // All places count from the box's own corner.

    virtual const std::string& Title() const = 0;
    /// Lays the box out, with or without a frame and caption; returns its size. A box that can
    /// choose its size stays within `limit`.
    virtual SIZE LayOut(bool framed, SIZE limit, int scale) = 0;
    virtual Canvas Paint(int scale) const = 0;

    virtual void OnKeyDown(const HostEvent& event) = 0;
    virtual void OnKeyUp(const HostEvent& /*event*/) {}
    virtual void OnCharacter(char32_t /*character*/) {}
    /// A move, press or release of the mouse, or a turn of the wheel.
    virtual void OnPointer(const HostEvent& event, POINT at) = 0;
    /// Somebody else gets the input now: a held mouse button counts as released.
    virtual void OnInputLost() {}
    /// The close box of the window was used. False: this box cannot be closed so, and if it is
    /// alone in the window, that ends the program.
    virtual bool OnCloseBox() = 0;
    /// The window can show nothing any more; Run ends.
    virtual void OnNotShown();
    virtual bool WantsText() const { return false; }
    /// Milliseconds until Tick has something to do; it may also be called sooner.
    virtual std::optional<std::uint32_t> TimeToTick() const { return std::nullopt; }
    virtual void Tick() {}

    /// To be called when it looks different.
    void Changed() { changed_ = true; }
    /// Lays it out again and finds its place.
    void Arrange();
    /// Moves its corner to a point, or as near as the picture's edges allow.
    void MoveTo(POINT corner);
    /// To be called when WantsText has changed.
    void UpdateTextInput();

  private:
    bool FillsWindow() const { return alone_ && !outer_; }
    void Open();
    void RunLoop();
    void Leave();
    bool OnWindowEvent(const HostEvent& event);

    Window& window_;
    const Overlay overlay_;
    const bool alone_;
    ModalWindow* outer_ = nullptr;  ///< the box below, which waits until this one closes
    bool open_ = true;
    bool changed_ = true;
    bool moved_ = false;  ///< by the user
    POINT corner_;
    SIZE size_;
    int scale_ = 1;
    RECT areaBefore_;  ///< the client area before the box was alone in it
};

}  // namespace korvane
