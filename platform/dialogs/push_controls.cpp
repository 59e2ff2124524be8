#include "platform/dialogs/push_controls.h"

#include <array>
#include <utility>

#include "platform/base/virtual_keys.h"
#include "platform/window/button_face.h"

namespace korvane {
namespace {

constexpr int kMarkSide = 13;
constexpr int kMarkGap = 5;

}  // namespace

bool PushControl::OnKeyDown(const HostEvent& event) {
    if (event.key != VK_SPACE || (event.modifiers & kModAlt) != 0) return false;
    if (!event.repeat) Press();
    return true;
}

void PushControl::OnPress(POINT /*at*/, std::uint8_t /*modifiers*/) {
    ShowHeld(true);
}

void PushControl::OnDrag(POINT at) {
    ShowHeld(Contains(Place(), at));
}

void PushControl::OnRelease(POINT at) {
    ShowHeld(false);
    if (Contains(Place(), at)) Press();
}

void PushControl::ShowHeld(bool held) {
    if (std::exchange(held_, held) != held) Changed();
}

void PushButton::Paint(Canvas& canvas, const ControlState& state) const {
    PaintButton(canvas, Place(),
                {.text = Label(),
                 .underlined = LabelLook().underlined,
                 .look = IsHeld() ? ButtonLook::Down : ButtonLook::Up,
                 .isDefault = state.isDefault,
                 .focused = state.focused,
                 .enabled = IsEnabled()});
}

void CheckControl::Check(bool checked) {
    if (std::exchange(checked_, checked) != checked) Changed();
}

void CheckControl::Paint(Canvas& canvas, const ControlState& state) const {
    RECT row = Place();
    const int top = row.top + (row.Height() - kMarkSide) / 2;
    PaintMark(canvas, RectAt({row.left, top}, {kMarkSide, kMarkSide}));
    row.left += kMarkSide + kMarkGap;
    canvas.Text(row, Label(), LabelLook());
    if (!state.focused || Label().empty()) return;
    const int right = row.left + TextWidth(Label(), canvas.Scale());
    canvas.DottedFrame({row.left - 2, top - 1, right + 2, top + kMarkSide + 2}, kFocusColour);
}

void CheckBox::PaintMark(Canvas& canvas, const RECT& square) const {
    canvas.Fill(square, IsHeld() || !IsEnabled() ? kFaceColour : kFieldColour);
    canvas.Frame(square, kEdgeColour);
    if (!IsChecked()) return;
    // The check mark: columns of three pixels; each number is a column's distance from the third
    // row.
    constexpr std::array kTick = {2, 3, 4, 3, 2, 1, 0};
    const Colour colour = IsEnabled() ? kSelectionColour : kGreyedColour;
    for (int i = 0; i < static_cast<int>(kTick.size()); ++i) {
        const int x = square.left + 3 + i;
        const int y = square.top + 3 + kTick[static_cast<std::size_t>(i)];
        canvas.Fill({x, y, x + 1, y + 3}, colour);
    }
}

void RadioButton::PaintMark(Canvas& canvas, const RECT& square) const {
    const RECT outer{square.left, square.top, square.right - 1, square.bottom - 1};
    canvas.Disc(outer, kEdgeColour);
    canvas.Disc(Shrunk(outer, 1), IsHeld() || !IsEnabled() ? kFaceColour : kFieldColour);
    if (IsChecked()) canvas.Disc(Shrunk(outer, 4), IsEnabled() ? kSelectionColour : kGreyedColour);
}

}  // namespace korvane
