#pragma once

#include <cstdint>
#include <optional>

#include "platform/dialogs/dialog_items.h"
#include "platform/dialogs/scroll_track.h"
#include "platform/window/repeat_clock.h"

namespace korvane {

/// The mouse on a scroll bar: what it asks for, as long as it holds the bar. Nothing moves the bar
/// but its owner.
class ScrollGrip {
  public:
    using Request = std::optional<ScrollRequest>;

    explicit ScrollGrip(const ScrollTrack& track) : track_(track) {}

    Request Press(POINT at);
    Request Drag(POINT at);
    /// An arrow or the trough asks again while it is held.
    Request Tick();
    /// SB_ENDSCROLL follows in any case.
    Request Release();

    bool IsHeld() const { return part_ != ScrollPart::Nothing; }
    /// The part that shows as pressed.
    ScrollPart Held() const;
    /// Where the thumb that is dragged would be.
    int Position() const { return position_; }
    std::optional<std::uint32_t> TimeToTick() const { return repeat_.TimeLeft(); }

  private:
    const ScrollTrack& track_;
    ScrollPart part_ = ScrollPart::Nothing;
    POINT at_;
    int grabbedAt_ = 0;  ///< from the thumb's start
    int position_ = 0;
    RepeatClock repeat_;
};

/// What the position becomes by a request that names no thumb's position.
int MovedBy(ScrollRequest request, const ScrollRange& range);

}  // namespace korvane
