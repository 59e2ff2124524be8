#pragma once

#include "platform/box_face.h"
#include "platform/host.h"
#include "platform/user.h"

namespace korvane {

/// A message box over the window's picture, or alone in the window while that is not shown, from
/// Run to the answer. Keys and mouse are the box's meanwhile.
class MessageBoxWindow {
  public:
    MessageBoxWindow(Window& window, BoxText text);

    /// Returns when the user has answered, or somebody ends the program: that message waits then.
    void Run();
    /// Ends Run.
    void Close() { open_ = false; }

    /// The box is all that the window shows.
    bool IsAlone() const { return alone_; }
    /// True when the event is the box's, and so nobody else's.
    bool Takes(const HostEvent& event);

  private:
    void Open();
    void RunLoop();
    void Leave();
    void OnKeyDown(const HostEvent& event);
    void OnPointer(const HostEvent& event);
    void LayOut();
    void Show();

    Window& window_;
    BoxText text_;
    BoxFace face_;
    POINT corner_;
    int scale_ = 1;
    ButtonLook button_ = ButtonLook::Up;
    bool pressed_ = false;  ///< the button went down on the box's button and is held
    bool open_ = true;
    const bool alone_;
    SIZE sizeBefore_;  ///< of the window whose place the box takes
};

}  // namespace korvane
