#include "platform/dialogs/dialog_window.h"

#include <algorithm>
#include <utility>

#include "platform/window/desktop.h"
#include "platform/window/window_frame.h"

namespace korvane {
namespace {

// A dialog unit is a quarter of an average character's width and an eighth of its height;
// characters are 6 pixels wide and 13 high.
int PixelsAcross(int units) {
    return units * 3 / 2;
}
int PixelsDown(int units) {
    return units * 13 / 8;
}

RECT InPixels(const DLGRECT& units, POINT origin) {
    return {origin.x + PixelsAcross(units.x), origin.y + PixelsDown(units.y),
            origin.x + PixelsAcross(units.x + units.width),
            origin.y + PixelsDown(units.y + units.height)};
}

}  // namespace

Dialog::Dialog(Window& window, const DLGTEMPLATE& source, DLGPROC procedure)
    : ModalWindow(window, Overlay::Dialog),
      title_(source.title),
      clientSize_{PixelsAcross(source.width), PixelsDown(source.height)},
      procedure_(procedure) {
    for (const DLGITEMTEMPLATE& item : source.items) {
        places_.push_back(item.place);
        controls_.push_back(MakeControl(*this, item, window.icon));
    }
    // Lists must know their height when WM_INITDIALOG fills them.
    Dialog::LayOut(/*framed=*/true, {}, TheHost().Scale());
}

int Dialog::RunToEnd() {
    if (procedure_(this, WM_INITDIALOG, 0, 0)) SetFocus(NextStop(nullptr, 1), FocusBy::Keyboard);
    if (IsOpen()) Run();
    return IsEndWaiting() ? -1 : result_;
}

void Dialog::End(int result) {
    result_ = result;
    ModalWindow::Close();
}

Control* Dialog::Find(std::uint16_t id) const {
    if (id == IDC_STATIC) return nullptr;
    for (const auto& control : controls_)
        if (control->Id() == id) return control.get();
    return nullptr;
}

SIZE Dialog::LayOut(bool framed, SIZE /*limit*/, int scale) {
    POINT origin;
    SIZE size = clientSize_;
    caption_ = {};
    if (framed) {
        origin = {kFrameBorder, kFrameBorder + kFrameCaption};
        size = {clientSize_.cx + 2 * kFrameBorder,
                clientSize_.cy + 2 * kFrameBorder + kFrameCaption};
        caption_ = CaptionOf(size);
    }
    for (std::size_t i = 0; i < controls_.size(); ++i)
        controls_[i]->SetPlace(InPixels(places_[i], origin), scale);
    return size;
}

Canvas Dialog::Paint(int scale) const {
    const SIZE frame{caption_.IsEmpty() ? 0 : 2 * kFrameBorder,
                     caption_.IsEmpty() ? 0 : 2 * kFrameBorder + kFrameCaption};
    Canvas canvas({clientSize_.cx + frame.cx, clientSize_.cy + frame.cy}, scale);
    canvas.Fill({0, 0, canvas.Size().cx, canvas.Size().cy}, kFaceColour);
    if (!caption_.IsEmpty()) {
        PaintWindowFrame(canvas, title_);
        const CloseBoxLook look = !CanCancel() ? CloseBoxLook::Greyed
                                  : closeLit_  ? CloseBoxLook::Down
                                               : CloseBoxLook::Up;
        PaintCloseBox(canvas, CloseBoxOf(caption_), look);
    }
    const Control* const onReturn = ReturnButton();
    // Group boxes first: the controls that they surround may come before them in the tab order.
    for (const bool groups : {true, false}) {
        for (const auto& control : controls_) {
            if ((control->Kind() == ControlKind::GroupBox) != groups) continue;
            control->Paint(canvas, {.focused = control.get() == focus_,
                                    .isDefault = control.get() == onReturn});
        }
    }
    return canvas;
}

void Dialog::OnPointer(const HostEvent& event, POINT at) {
    switch (event.type) {
        case HostEventType::LeftButtonDown:
            return OnPress(at, event.modifiers);
        case HostEventType::LeftButtonUp:
            return OnRelease(at);
        case HostEventType::Wheel:
            return OnWheel(at, event.amount);
        default:
            return OnMove(at);
    }
}

void Dialog::OnPress(POINT at, std::uint8_t modifiers) {
    OnInputLost();  // a release may have been missed
    if (Contains(caption_, at)) {
        closeHeld_ = closeLit_ = CanCancel() && Contains(CloseBoxOf(caption_), at);
        if (!Contains(CloseBoxOf(caption_), at)) grabbed_ = at;
        return Changed();
    }
    held_ = InputControlAt(at);
    if (!held_) return;
    SetFocus(held_, FocusBy::Mouse);
    held_->OnPress(at, modifiers);
}

void Dialog::OnMove(POINT at) {
    if (grabbed_)
        return MoveTo({Place().left + at.x - grabbed_->x, Place().top + at.y - grabbed_->y});
    if (held_) return held_->OnDrag(at);
    const bool lit = closeHeld_ && Contains(CloseBoxOf(caption_), at);
    if (std::exchange(closeLit_, lit) != lit) Changed();
}

void Dialog::OnRelease(POINT at) {
    OnMove(at);
    grabbed_.reset();
    const bool closes = std::exchange(closeHeld_, false) && std::exchange(closeLit_, false);
    if (closes) {
        Changed();
        Cancel();
    }
    if (Control* const held = std::exchange(held_, nullptr)) held->OnRelease(at);
}

void Dialog::OnWheel(POINT at, int notches) {
    Control* const below = InputControlAt(at);
    if (below && below->OnWheel(notches)) return;
    if (focus_) focus_->OnWheel(notches);
}

void Dialog::OnInputLost() {
    grabbed_.reset();
    if (std::exchange(closeHeld_, false)) Changed();
    closeLit_ = false;
    if (Control* const held = std::exchange(held_, nullptr)) held->OnDragLost();
}

Control* Dialog::InputControlAt(POINT at) const {
    for (const auto& control : controls_)
        if (control->TakesKeyboard() && control->IsEnabled() && Contains(control->Place(), at))
            return control.get();
    return nullptr;
}

std::optional<std::uint32_t> Dialog::TimeToTick() const {
    return held_ ? held_->TimeToTick() : std::nullopt;
}

void Dialog::Tick() {
    if (held_) held_->Tick();
}

void Dialog::Pressed(Control& button) {
    procedure_(this, WM_COMMAND, button.Id(), reinterpret_cast<LPARAM>(&button));
}

void Dialog::Chosen(Control& radio) {
    for (RadioButton* const other : GroupOf(radio))
        other->Check(other == &radio);
}

void Dialog::Scrolled(Control& bar, ScrollRequest request, int position) {
    const bool byThumb = request == SB_THUMBTRACK || request == SB_THUMBPOSITION;
    procedure_(this, WM_HSCROLL, MakeParam(request, byThumb ? position : 0),
               reinterpret_cast<LPARAM>(&bar));
}

void Dialog::Disabled(Control& control) {
    if (held_ == &control) held_ = nullptr;
    if (focus_ == &control) SetFocus(NextStop(&control, 1), FocusBy::Keyboard);
}

}  // namespace korvane
