#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "gfx/button.h"
#include "platform/base/types.h"

namespace korvane {

/// Whether the screens show where their focus is. The first key that would move a focus shows it;
/// a press of the mouse and the start of a game hide it.
extern bool focusShowing;

/// The buttons of one view, one of which the keyboard presses.
class KeyboardFocus {
  public:
    /// `stops` in the order of Tab; they outlive the focus. A focus that comes to be seen stands on
    /// the stop number `first`.
    explicit KeyboardFocus(std::vector<const Button*> stops, std::size_t first = 0);

    /// Tab goes round, an arrow to the nearest button in its direction, if there is one. A hidden
    /// focus is only shown. False for any other key, which changes nothing.
    bool Move(std::uint8_t key, bool backwards);
    /// Back to the first stop.
    void Restart() { at_ = first_; }
    /// The middle of the button that has the focus.
    POINT Centre() const { return stops_[at_]->Centre(); }
    /// A frame round that button, amber between dark lines: it is seen on any picture. Draws
    /// nothing while the focus is hidden.
    void Draw() const;

  private:
    std::size_t NextInRing(bool backwards) const;
    std::size_t NearestTowards(POINT direction) const;

    std::vector<const Button*> stops_;
    std::size_t first_;
    std::size_t at_;
};

}  // namespace korvane
