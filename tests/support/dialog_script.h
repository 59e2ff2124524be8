#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <random>
#include <utility>
#include <vector>

#include "platform/base/types.h"
#include "platform/dialogs/dialog_items.h"
#include "platform/host/host.h"

namespace korvane {

HostEvent Key(std::uint8_t key, bool down, std::uint8_t modifiers = 0, bool repeat = false);
HostEvent Mouse(HostEventType type, POINT at);
/// Presses and releases keys, one after the other.
void PressKeys(std::initializer_list<std::uint8_t> keys, std::uint8_t modifiers = 0);

/// One thing that a user does: presses and releases a key, types a text, or anything else.
class Act {
  public:
    Act(int key, std::uint8_t modifiers = 0)
        : do_([=] { PressKeys({static_cast<std::uint8_t>(key)}, modifiers); }) {}
    Act(const char32_t* text);
    template <std::invocable Function>
    Act(Function function) : do_(std::move(function)) {}

    void operator()() const { do_(); }

  private:
    std::function<void()> do_;
};

using Acts = std::vector<Act>;

Act Alt(int key);
Act Ctrl(int key);
Act Shift(int key);
Act Times(int count, int key);

/// A place of the mouse that is only known when the dialog is open.
using MousePlace = std::function<POINT()>;

/// The centre of a control of the shown dialog.
MousePlace Item(std::uint16_t id);
Act ClickOn(const MousePlace& at);
Act ClickOn(std::uint16_t id);
/// Presses at one place and releases at another.
Act Drag(const MousePlace& from, const MousePlace& to);
/// Presses at a place and releases there after some milliseconds.
Act Hold(const MousePlace& at, std::uint32_t time);

/// Does one act each time that the program waits: a dialog or message box is open then, if the
/// program has one. What still waits after the last act is ended as if by a signal.
class DialogScript {
  public:
    explicit DialogScript(Acts acts);
    ~DialogScript();
    DialogScript(const DialogScript&) = delete;
    DialogScript& operator=(const DialogScript&) = delete;

    /// True when every act was done, and no more were needed.
    bool WentAsWritten() const { return next_ == acts_.size() && !missed_; }

  private:
    Acts acts_;
    std::size_t next_ = 0;
    bool missed_ = false;
};

/// The dialog that has keys and mouse; null for none.
HDLG ShownDialog();

/// Anything that can come in while a dialog is open, but for the program's end; most of it means
/// something to some control.
HostEvent RandomDialogEvent(std::mt19937& random);

}  // namespace korvane
