#pragma once

#include "platform/dialogs/dialog_items.h"

namespace korvane {

/// What a control tells the dialog that it belongs to.
class ControlParent {
  public:
    /// A control looks different from now on.
    virtual void Changed() = 0;
    /// A push button was pressed.
    virtual void Pressed(Control& button) = 0;
    /// The user chose this radio button of its group.
    virtual void Chosen(Control& radio) = 0;
    virtual void Scrolled(Control& bar, ScrollRequest request, int position) = 0;
    /// It takes no input any more.
    virtual void Disabled(Control& control) = 0;

  protected:
    ~ControlParent() = default;
};

}  // namespace korvane
