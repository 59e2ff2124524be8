#include "platform/dialogs/control.h"

#include "platform/dialogs/edit_box.h"
#include "platform/dialogs/label_controls.h"
#include "platform/dialogs/list_box.h"
#include "platform/dialogs/push_controls.h"
#include "platform/dialogs/scroll_bar.h"
#include "platform/window/menu.h"

namespace korvane {

Control::Control(ControlParent& parent, const DLGITEMTEMPLATE& source)
    : parent_(parent),
      id_(source.id),
      kind_(source.kind),
      style_(source.style),
      enabled_((source.style & kDisabled) == 0) {
    Control::SetText(source.text);
}

void Control::Enable(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    if (!enabled) {
        OnDragLost();
        parent_.Disabled(*this);
    }
    Changed();
}

void Control::SetPlace(const RECT& place, int scale) {
    place_ = place;
    scale_ = scale;
}

void Control::SetText(std::string_view text) {
    text_ = text;
    const MenuLabel label(text_);
    label_ = label.text;
    const bool hasMnemonic = label.underlined < label.text.size();
    underlined_ = hasMnemonic ? label.underlined : TextLook::kNothing;
    mnemonic_ = hasMnemonic ? label.mnemonic : '\0';
    Changed();
}

TextLook Control::LabelLook() const {
    TextLook look;
    if (!enabled_) look.colour = kGreyedColour;
    look.underlined = underlined_;
    return look;
}

std::unique_ptr<Control> MakeControl(ControlParent& parent, const DLGITEMTEMPLATE& source,
                                     std::span<const std::uint32_t> icon) {
    switch (source.kind) {
        case ControlKind::Text:
            return std::make_unique<StaticText>(parent, source);
        case ControlKind::GroupBox:
            return std::make_unique<GroupBox>(parent, source);
        case ControlKind::Icon:
            return std::make_unique<StaticIcon>(parent, source, icon);
        case ControlKind::PushButton:
            return std::make_unique<PushButton>(parent, source);
        case ControlKind::CheckBox:
            return std::make_unique<CheckBox>(parent, source);
        case ControlKind::RadioButton:
            return std::make_unique<RadioButton>(parent, source);
        case ControlKind::Edit:
            return std::make_unique<EditBox>(parent, source);
        case ControlKind::ListBox:
            return std::make_unique<ListBox>(parent, source);
        case ControlKind::HorizontalScrollBar:
            return std::make_unique<ScrollBar>(parent, source);
    }
    return nullptr;
}

}  // namespace korvane
