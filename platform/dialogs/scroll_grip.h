#pragma once

#include <cstdint>
#include <optional>

#include "platform/dialogs/dialog_items.h"
#include "platform/dialogs/scroll_track.h"
#include "platform/window/repeat_clock.h"

namespace korvane {

/// Follows the mouse while it holds a part of a scroll bar, and turns that into requests. The owner
/// of the bar carries them out.
class ScrollGrip {
  public:
    using Request = std::optional<ScrollRequest>;

    explicit ScrollGrip(const ScrollTrack& track) : track_(track) {}

    Request Press(POINT at);
    Request Drag(POINT at);
    /// A held arrow or trough repeats its request.
    Request Tick();
    /// The owner adds SB_ENDSCROLL where it is wanted.
    Request Release();

    bool IsHeld() const { return part_ != ScrollPart::Nothing; }
    /// The part to be drawn as pressed.
    ScrollPart Held() const;
    /// Where the dragged thumb would be.
    int Position() const { return position_; }
    std::optional<std::uint32_t> TimeToTick() const { return repeat_.TimeLeft(); }

  private:
    const ScrollTrack& track_;
    ScrollPart part_ = ScrollPart::Nothing;
    POINT at_;
    int grabbedAt_ = 0;  ///< the pointer's distance from the thumb's start
    int position_ = 0;
    RepeatClock repeat_;
};

/// The position after a request other than those of the thumb, which name their position.
int MovedBy(ScrollRequest request, const ScrollRange& range);

}  // namespace korvane
