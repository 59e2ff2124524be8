#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogs/control.h"
#include "platform/dialogs/scroll_grip.h"
#include "platform/dialogs/scroll_track.h"

namespace korvane {

/// A list of texts, one of which can be selected.
class ListBox final : public Control {
  public:
    using Control::Control;

    void Clear();
    int Add(std::string_view text);
    int Find(std::string_view text) const;
    /// Also scrolls to the entry.
    void Select(int entry);
    int Selected() const { return selected_; }
    int Count() const { return static_cast<int>(entries_.size()); }
    /// Empty for an entry that is not there.
    const std::string& Entry(int entry) const;
    /// The first entry that is seen, and how many there is room for.
    int FirstSeen() const { return bar_.Range().position; }
    int Rows() const;

    void SetPlace(const RECT& place, int scale) override;
    bool TakesKeyboard() const override { return true; }
    bool UsesLetters() const override { return true; }
    void Paint(Canvas& canvas, const ControlState& state) const override;
    bool OnKeyDown(const HostEvent& event) override;
    void OnPress(POINT at, std::uint8_t modifiers) override;
    void OnDrag(POINT at) override;
    void OnRelease(POINT at) override;
    void OnDragLost() override;
    bool OnWheel(int notches) override;
    std::optional<std::uint32_t> TimeToTick() const override;
    void Tick() override;

  private:
    bool HasBar() const { return bar_.Range().CanMove(); }
    /// The area of the entries.
    RECT Field() const;
    int EntryAt(POINT at) const;
    void ScrollTo(int first);
    void Obey(ScrollGrip::Request request);
    void SelectNear(int entry);
    bool OnLetter(std::uint8_t key);
    void PaintEntry(Canvas& field, int entry, bool focused) const;

    std::deque<std::string> texts_;
    /// In the order shown. Pointers, because inserting into a long list moves all that follow.
    std::vector<const std::string*> entries_;
    int selected_ = LB_ERR;
    ScrollTrack bar_{ScrollAxis::Vertical};
    ScrollGrip grip_{bar_};
    bool dragging_ = false;  ///< the held mouse selects
    POINT pointer_;
    RepeatClock dragRepeat_;
};

}  // namespace korvane
