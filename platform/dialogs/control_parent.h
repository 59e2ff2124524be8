#pragma once

#include "platform/dialogs/dialog_items.h"

namespace korvane {

/// The dialog as its controls see it.
class ControlParent {
  public:
    /// A control looks different from now on.
    virtual void Changed() = 0;
    /// A push button was pressed.
    virtual void Pressed(Control& button) = 0;
    /// The user chose this radio button.
    virtual void Chosen(Control& radio) = 0;
    /// A scroll bar asks to be moved; `position` is that of the thumb.
    virtual void Scrolled(Control& bar, ScrollRequest request, int position) = 0;
    /// A control was disabled.
    virtual void Disabled(Control& control) = 0;

  protected:
    ~ControlParent() = default;
};

}  // namespace korvane
