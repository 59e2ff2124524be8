#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <random>
#include <vector>

#include "platform/base/types.h"
#include "platform/dialogs/dialog_items.h"
#include "platform/host/host.h"

namespace korvane {

/// Does one step each time that the program waits, while it lives: a dialog or message box is open
/// then, if the program has one. Whatever still waits after the last step is ended from outside.
class DialogScript {
  public:
    explicit DialogScript(std::vector<std::function<void()>> steps);
    ~DialogScript();
    DialogScript(const DialogScript&) = delete;
    DialogScript& operator=(const DialogScript&) = delete;

    /// Every step was done, and none was missing.
    bool WentAsWritten() const { return next_ == steps_.size() && !missed_; }

  private:
    std::vector<std::function<void()>> steps_;
    std::size_t next_ = 0;
    bool missed_ = false;
};

/// The dialog that has keys and mouse; null for none.
HDLG ShownDialog();
/// The centre of the shown dialog's control, as a place of the mouse.
POINT CentreOfItem(std::uint16_t id);
/// A left press and release there.
void ClickItem(std::uint16_t id);
/// Presses and releases keys, one after the other.
void PressKeys(std::initializer_list<std::uint8_t> keys, std::uint8_t modifiers = 0);

/// Anything that can come in while a dialog is open, but for the program's end; most of it means
/// something to some control.
HostEvent RandomDialogEvent(std::mt19937& random);

}  // namespace korvane
