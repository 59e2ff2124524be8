#pragma once

#include "platform/dialogs/control.h"
#include "platform/dialogs/scroll_grip.h"
#include "platform/dialogs/scroll_track.h"

namespace korvane {

/// A horizontal scroll bar. It does not move by itself: it sends its dialog requests.
class ScrollBar final : public Control {
  public:
    using Control::Control;

    const ScrollRange& Range() const { return track_.Range(); }
    void SetRange(const ScrollRange& range);

    void SetPlace(const RECT& place, int scale) override;
    bool TakesKeyboard() const override { return true; }
    void Paint(Canvas& canvas, const ControlState& state) const override;
    bool OnKeyDown(const HostEvent& event) override;
    void OnKeyUp(const HostEvent& event) override;
    void OnPress(POINT at, std::uint8_t modifiers) override;
    void OnDrag(POINT at) override;
    void OnRelease(POINT at) override;
    void OnDragLost() override;
    bool OnWheel(int notches) override;
    std::optional<std::uint32_t> TimeToTick() const override { return grip_.TimeToTick(); }
    void Tick() override { SendRequest(grip_.Tick()); }

  private:
    void SendRequest(ScrollGrip::Request request);

    ScrollTrack track_{ScrollAxis::Horizontal};
    ScrollGrip grip_{track_};
    std::uint8_t key_ = 0;  ///< the held key that scrolls; 0 for none
};

}  // namespace korvane
