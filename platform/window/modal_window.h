#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/draw/canvas.h"
#include "platform/host/host.h"
#include "platform/window/shown_picture.h"
#include "platform/window/user.h"

namespace korvane {

/// Something over the window's picture that has keys and mouse until it closes; alone in the window
/// while that is not shown. Derived classes say what it looks like and what input does.
class ModalWindow {
  public:
    ModalWindow(Window& window, Overlay overlay);
    virtual ~ModalWindow() = default;
    ModalWindow(const ModalWindow&) = delete;
    ModalWindow& operator=(const ModalWindow&) = delete;

    /// Returns when it was closed, or somebody ends the program: that message waits then, and
    /// nothing opens any more. The window is deactivated meanwhile.
    void Run();
    /// Ends Run.
    void Close() { open_ = false; }
    bool IsOpen() const { return open_; }

    /// It is, perhaps with others over it, all that the window shows.
    bool IsAlone() const { return alone_; }
    /// Its top left corner in client coordinates, the menu bar included.
    POINT Corner() const { return corner_; }
    /// True when the event is this one's, and so nobody else's.
    bool Takes(const HostEvent& event);
    /// Hands what looks different to the shown picture.
    void Refresh();

  protected:
    // What it looks like. All places count from its own corner.
    virtual const std::string& Title() const = 0;
    /// Arranges itself within `limit`, with a frame and caption of its own or without.
    virtual SIZE LayOut(bool framed, SIZE limit, int scale) = 0;
    virtual Canvas Paint(int scale) const = 0;

    // What input does.
    virtual void OnKeyDown(const HostEvent& event) = 0;
    virtual void OnKeyUp(const HostEvent& /*event*/) {}
    virtual void OnCharacter(char32_t /*character*/) {}
    /// A move, press or release of the mouse, or a turn of the wheel.
    virtual void OnPointer(const HostEvent& event, POINT at) = 0;
    /// The pointer's button counts as let go: somebody else has the input now.
    virtual void OnInputLost() {}
    /// The close box of the window that it is alone in; false: that ends the program.
    virtual bool OnCloseBox() = 0;
    virtual bool WantsText() const { return false; }
    /// Milliseconds until something happens by itself; Tick is called then, and sooner.
    virtual std::optional<std::uint32_t> TimeToTick() const { return std::nullopt; }
    virtual void Tick() {}

    /// It looks different from now on.
    void Changed() { changed_ = true; }
    /// Lays it out anew.
    void Arrange();
    /// As near to a point as the picture's edges allow.
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
    ModalWindow* outer_ = nullptr;  ///< the one below, which waits
    bool open_ = true;
    bool changed_ = true;
    bool moved_ = false;  ///< by the user
    POINT corner_;
    SIZE size_;
    int scale_ = 1;
    RECT areaBefore_;  ///< of the window that it fills
};

}  // namespace korvane
