#include "platform/dialogs/list_box.h"

#include <algorithm>
#include <utility>

#include "platform/base/ascii.h"
#include "platform/base/floor_divide.h"
#include "platform/base/virtual_keys.h"

namespace korvane {
namespace {

constexpr int kRowHeight = 15;
constexpr int kRowPadding = 2;
constexpr int kRowsPerNotch = 3;

/// Alphabetical order without regard to letter case, which only decides between equal names.
bool ComesBefore(std::string_view a, std::string_view b) {
    const auto order = [](char x, char y) {
        return static_cast<unsigned char>(AsciiLower(x)) <=>
               static_cast<unsigned char>(AsciiLower(y));
    };
    const auto found =
        std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end(), order);
    return found != 0 ? found < 0 : a < b;
}

}  // namespace

void ListBox::Clear() {
    entries_.clear();
    texts_.clear();
    selected_ = LB_ERR;
    ScrollTo(0);
}

int ListBox::Add(std::string_view text) {
    auto place = entries_.end();
    if (Has(kSorted))
        place = std::upper_bound(
            entries_.begin(), entries_.end(), text,
            [](std::string_view a, const std::string* b) { return ComesBefore(a, *b); });
    const int entry = static_cast<int>(place - entries_.begin());
    entries_.insert(place, &texts_.emplace_back(text));
    if (selected_ >= entry) ++selected_;
    ScrollTo(FirstSeen());
    return entry;
}

int ListBox::Find(std::string_view text) const {
    const auto found = std::ranges::find_if(entries_, [text](const std::string* entry) {
        return AsciiEqualsIgnoringCase(*entry, text);
    });
    return found == entries_.end() ? LB_ERR : static_cast<int>(found - entries_.begin());
}

void ListBox::Select(int entry) {
    selected_ = entry >= 0 && entry < Count() ? entry : LB_ERR;
    if (selected_ != LB_ERR) ScrollTo(std::clamp(FirstSeen(), selected_ - Rows() + 1, selected_));
    Changed();
}

const std::string& ListBox::Entry(int entry) const {
    static const std::string nothing;
    return entry >= 0 && entry < Count() ? *entries_[static_cast<std::size_t>(entry)] : nothing;
}

int ListBox::Rows() const {
    return std::max(1, (Place().Height() - 4) / kRowHeight);
}

RECT ListBox::Field() const {
    RECT field = Shrunk(Place(), 2);
    if (HasBar()) field.right -= ScrollTrack::kThickness;
    return field;
}

/// The entry at a point's height; also beyond the rows that are seen and beyond the entries.
int ListBox::EntryAt(POINT at) const {
    return FirstSeen() + FloorDivide(at.y - Field().top, kRowHeight);
}

void ListBox::SetPlace(const RECT& place, int scale) {
    Control::SetPlace(place, scale);
    const RECT inside = Shrunk(place, 2);
    bar_.SetPlace(
        {inside.right - ScrollTrack::kThickness, inside.top, inside.right, inside.bottom});
    ScrollTo(FirstSeen());
}

void ListBox::ScrollTo(int first) {
    bar_.SetRange({.min = 0, .max = std::max(0, Count() - 1), .page = Rows(), .position = first});
    Changed();
}

void ListBox::SelectNear(int entry) {
    if (Count() != 0) Select(std::clamp(entry, 0, Count() - 1));
}

bool ListBox::OnKeyDown(const HostEvent& event) {
    if ((event.modifiers & kModAlt) != 0) return false;
    switch (event.key) {
        case VK_UP:
        case VK_LEFT:
            SelectNear(selected_ - 1);
            return true;
        case VK_DOWN:
        case VK_RIGHT:
            SelectNear(selected_ + 1);
            return true;
        case VK_PRIOR:
            SelectNear(selected_ - (Rows() - 1));
            return true;
        case VK_NEXT:
            SelectNear(selected_ + std::max(1, Rows() - 1));
            return true;
        case VK_HOME:
            SelectNear(0);
            return true;
        case VK_END:
            SelectNear(Count() - 1);
            return true;
        default:
            return event.modifiers != kModControl && OnLetter(event.key);
    }
}

bool ListBox::OnLetter(std::uint8_t key) {
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9)
        key = static_cast<std::uint8_t>(key - VK_NUMPAD0 + '0');
    const bool isLetter = (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
    if (!isLetter) return false;
    const char wanted = AsciiLower(static_cast<char>(key));
    for (int i = 1; i <= Count(); ++i) {
        const int entry = (selected_ + i) % Count();
        if (Entry(entry).empty() || AsciiLower(Entry(entry).front()) != wanted) continue;
        Select(entry);
        break;
    }
    return true;
}

void ListBox::OnPress(POINT at, std::uint8_t /*modifiers*/) {
    if (HasBar() && Contains(bar_.Place(), at)) return Obey(grip_.Press(at));
    pointer_ = at;
    const int entry = EntryAt(at);
    if (entry < 0 || entry >= Count() || entry >= FirstSeen() + Rows()) return;
    dragging_ = true;
    dragRepeat_.Start();
    Select(entry);
}

void ListBox::OnDrag(POINT at) {
    if (grip_.IsHeld()) return Obey(grip_.Drag(at));
    pointer_ = at;
    // Outside the list Tick scrolls at an even pace, however the pointer moves.
    if (dragging_ && EntryAt(at) >= FirstSeen() && EntryAt(at) < FirstSeen() + Rows())
        SelectNear(EntryAt(at));
}

void ListBox::OnRelease(POINT /*at*/) {
    OnDragLost();
}

void ListBox::OnDragLost() {
    dragging_ = false;
    dragRepeat_.Stop();
    if (grip_.IsHeld()) Obey(grip_.Release());
}

bool ListBox::OnWheel(int notches) {
    if (!HasBar()) return false;
    ScrollTo(FirstSeen() - std::clamp(notches, -Count(), Count()) * kRowsPerNotch);
    return true;
}

void ListBox::Obey(ScrollGrip::Request request) {
    Changed();
    if (!request) return;
    const bool byThumb = *request == SB_THUMBTRACK || *request == SB_THUMBPOSITION;
    ScrollTo(byThumb ? grip_.Position() : MovedBy(*request, bar_.Range()));
}

std::optional<std::uint32_t> ListBox::TimeToTick() const {
    return grip_.IsHeld() ? grip_.TimeToTick() : dragRepeat_.TimeLeft();
}

void ListBox::Tick() {
    if (const ScrollGrip::Request request = grip_.Tick()) Obey(request);
    if (!dragRepeat_.TakeDue()) return;
    if (EntryAt(pointer_) < FirstSeen()) SelectNear(FirstSeen() - 1);
    if (EntryAt(pointer_) >= FirstSeen() + Rows()) SelectNear(FirstSeen() + Rows());
}

void ListBox::Paint(Canvas& canvas, const ControlState& state) const {
    canvas.Frame(Place(), kEdgeColour);
    const RECT place = Field();
    if (place.IsEmpty()) return;
    Canvas field(place.Size(), canvas.Scale());
    field.Fill({0, 0, place.Width(), place.Height()}, IsEnabled() ? kFieldColour : kFaceColour);
    const int end = std::min(Count(), FirstSeen() + Rows());
    for (int entry = FirstSeen(); entry < end; ++entry)
        PaintEntry(field, entry, state.focused);
    // Without a selection the first row shows the focus.
    if (state.focused && selected_ == LB_ERR)
        field.DottedFrame({0, 0, place.Width(), kRowHeight}, kFocusColour);
    canvas.Paste(field, {place.left, place.top});
    if (HasBar()) bar_.Paint(canvas, IsEnabled(), grip_.Held());
}

void ListBox::PaintEntry(Canvas& field, int entry, bool focused) const {
    const int top = (entry - FirstSeen()) * kRowHeight;
    const RECT row{0, top, field.Size().cx, top + kRowHeight};
    TextLook look;
    if (!IsEnabled()) look.colour = kGreyedColour;
    if (entry == selected_ && IsEnabled()) {
        field.Fill(row, focused ? kSelectionColour : kIdleSelectionColour);
        if (focused) look.colour = kSelectedTextColour;
    }
    field.Text({kRowPadding, row.top, row.right, row.bottom}, Entry(entry), look);
}

}  // namespace korvane
