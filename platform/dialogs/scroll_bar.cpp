#include "platform/dialogs/scroll_bar.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/base/virtual_keys.h"

namespace korvane {
namespace {

ScrollGrip::Request RequestOf(std::uint8_t key) {
    switch (key) {
        case VK_LEFT:
        case VK_UP:
            return SB_LINELEFT;
        case VK_RIGHT:
        case VK_DOWN:
            return SB_LINERIGHT;
        case VK_PRIOR:
            return SB_PAGELEFT;
        case VK_NEXT:
            return SB_PAGERIGHT;
        case VK_HOME:
            return SB_LEFT;
        case VK_END:
            return SB_RIGHT;
        default:
            return std::nullopt;
    }
}

}  // namespace

void ScrollBar::SetRange(const ScrollRange& range) {
    track_.SetRange(range);
    Changed();
}

void ScrollBar::SetPlace(const RECT& place, int scale) {
    Control::SetPlace(place, scale);
    track_.SetPlace(place);
}

void ScrollBar::Paint(Canvas& canvas, const ControlState& state) const {
    track_.Paint(canvas, IsEnabled(), grip_.Held());
    const RECT thumb = track_.PlaceOf(ScrollPart::Thumb);
    if (state.focused && thumb.Width() > 6) canvas.Frame(Shrunk(thumb, 1), kFocusColour);
}

bool ScrollBar::OnKeyDown(const HostEvent& event) {
    const ScrollGrip::Request request = RequestOf(event.key);
    if (!request || (event.modifiers & kModAlt) != 0) return false;
    key_ = event.key;
    SendRequest(request);
    return true;
}

void ScrollBar::OnKeyUp(const HostEvent& event) {
    if (key_ == 0 || event.key != key_) return;
    key_ = 0;
    SendRequest(SB_ENDSCROLL);
}

void ScrollBar::OnPress(POINT at, std::uint8_t /*modifiers*/) {
    SendRequest(grip_.Press(at));
    Changed();
}

void ScrollBar::OnDrag(POINT at) {
    SendRequest(grip_.Drag(at));
    Changed();
}

void ScrollBar::OnRelease(POINT /*at*/) {
    OnDragLost();
}

void ScrollBar::OnDragLost() {
    if (!grip_.IsHeld()) return;
    SendRequest(grip_.Release());
    SendRequest(SB_ENDSCROLL);
    Changed();
}

bool ScrollBar::OnWheel(int notches) {
    constexpr int kLinesPerNotch = 3;
    constexpr int kMostNotches = 100;  // a wheel that spins freely
    const int lines = kLinesPerNotch * std::abs(std::clamp(notches, -kMostNotches, kMostNotches));
    for (int i = 0; i < lines; ++i)
        SendRequest(notches > 0 ? SB_LINELEFT : SB_LINERIGHT);
    SendRequest(SB_ENDSCROLL);
    return true;
}

void ScrollBar::SendRequest(ScrollGrip::Request request) {
    if (request) Parent().Scrolled(*this, *request, grip_.Position());
}

}  // namespace korvane
