#include "platform/dialogs/scroll_grip.h"

#include <utility>

namespace korvane {
namespace {

ScrollGrip::Request RequestOf(ScrollPart part) {
    switch (part) {
        case ScrollPart::LineBack:
            return SB_LINELEFT;
        case ScrollPart::PageBack:
            return SB_PAGELEFT;
        case ScrollPart::PageForward:
            return SB_PAGERIGHT;
        case ScrollPart::LineForward:
            return SB_LINERIGHT;
        default:
            return std::nullopt;
    }
}

}  // namespace

ScrollGrip::Request ScrollGrip::Press(POINT at) {
    at_ = at;
    part_ = track_.PartAt(at);
    position_ = track_.Range().position;
    if (part_ == ScrollPart::Thumb) {
        const RECT thumb = track_.PlaceOf(part_);
        grabbedAt_ = track_.Along(at) - track_.Along({thumb.left, thumb.top});
    } else if (IsHeld()) {
        repeat_.Start();
    }
    return RequestOf(part_);
}

ScrollGrip::Request ScrollGrip::Drag(POINT at) {
    at_ = at;
    if (part_ != ScrollPart::Thumb) return std::nullopt;
    const int position = track_.PositionOf(track_.Along(at) - grabbedAt_);
    if (std::exchange(position_, position) == position) return std::nullopt;
    return SB_THUMBTRACK;
}

ScrollGrip::Request ScrollGrip::Tick() {
    // No repeat while the pointer is not on the held part: it has left the arrow, or the thumb has
    // come to it in the trough.
    if (!repeat_.TakeDue() || track_.PartAt(at_) != part_) return std::nullopt;
    return RequestOf(part_);
}

ScrollGrip::Request ScrollGrip::Release() {
    repeat_.Stop();
    const ScrollPart part = std::exchange(part_, ScrollPart::Nothing);
    return part == ScrollPart::Thumb ? Request(SB_THUMBPOSITION) : std::nullopt;
}

ScrollPart ScrollGrip::Held() const {
    return IsHeld() && track_.PartAt(at_) == part_ ? part_ : ScrollPart::Nothing;
}

int MovedBy(ScrollRequest request, const ScrollRange& range) {
    switch (request) {
        case SB_LINELEFT:
            return range.position - 1;
        case SB_LINERIGHT:
            return range.position + 1;
        case SB_PAGELEFT:
            return range.position - range.page;
        case SB_PAGERIGHT:
            return range.position + range.page;
        case SB_LEFT:
            return range.min;
        case SB_RIGHT:
            return range.Highest();
        default:
            return range.position;
    }
}

}  // namespace korvane
