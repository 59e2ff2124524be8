#include <algorithm>

#include "platform/base/ascii.h"
#include "platform/dialogs/dialog_window.h"
#include "platform/window/desktop.h"

namespace korvane {
namespace {

/// The key of a letter, digit or blank; 0 for other characters.
std::uint8_t KeyOf(char32_t character) {
    if (character > 'z') return 0;
    const char key = AsciiUpper(static_cast<char>(character));
    const bool isKey = (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9') || key == ' ';
    return isKey ? static_cast<std::uint8_t>(key) : std::uint8_t{0};
}

}  // namespace

void Dialog::OnKeyDown(const HostEvent& event) {
    const bool alt = (event.modifiers & kModAlt) != 0;
    usedKey_ = event.key;
    if (OnDialogKey(event)) return;
    if (alt && !event.repeat && OnMnemonic(event.key)) return;
    if (focus_ && focus_->OnKeyDown(event)) return;
    if (!alt && OnRadioArrow(event.key)) return;
    const bool types = focus_ && focus_->UsesLetters();
    if (!types && event.modifiers == 0 && !event.repeat && OnMnemonic(event.key)) return;
    if (!alt) usedKey_ = 0;
}

bool Dialog::OnDialogKey(const HostEvent& event) {
    const bool alt = (event.modifiers & kModAlt) != 0;
    if (event.key == VK_F4 && event.modifiers == kModAlt) {
        if (!event.repeat && !Cancel() && IsAlone())
            PostMessage(TheDesktop().window.get(), WM_SYSCOMMAND, SC_CLOSE, 0);
        return true;
    }
    if (alt) return false;
    switch (event.key) {
        case VK_TAB:
            SetFocus(NextStop(focus_, (event.modifiers & kModShift) != 0 ? -1 : 1),
                     FocusBy::Keyboard);
            return true;
        case VK_ESCAPE:
            if (!event.repeat) Cancel();
            return true;
        case VK_RETURN:
            if (Control* const button = event.repeat ? nullptr : ReturnButton()) Pressed(*button);
            return true;
        default:
            return false;
    }
}

void Dialog::OnKeyUp(const HostEvent& event) {
    if (focus_) focus_->OnKeyUp(event);
}

void Dialog::OnCharacter(char32_t character) {
    // A key that was used as a command (Alt and a letter, say) may also come as a character.
    const std::uint8_t key = KeyOf(character);
    if (!focus_ || (key != 0 && key == usedKey_)) return;
    focus_->OnCharacter(character);
}

bool Dialog::OnMnemonic(std::uint8_t key) {
    const std::size_t count = controls_.size();
    const std::size_t start = focus_ ? IndexOf(focus_) + 1 : 0;
    for (std::size_t i = 0; i < count; ++i) {
        Control* control = controls_[(start + i) % count].get();
        if (control->Mnemonic() == 0 || control->Mnemonic() != static_cast<char>(key)) continue;
        if (!control->TakesKeyboard()) {
            // The mnemonic of a text or group box means the control after it.
            control = NextStop(control, 1);
            if (control) SetFocus(control, FocusBy::Keyboard);
            return control != nullptr;
        }
        if (!control->IsEnabled()) continue;
        SetFocus(control, FocusBy::Keyboard);
        control->OnMnemonic();
        return true;
    }
    return false;
}

bool Dialog::OnRadioArrow(std::uint8_t key) {
    const bool back = key == VK_UP || key == VK_LEFT;
    if (!focus_ || !(back || key == VK_DOWN || key == VK_RIGHT)) return false;
    std::vector<RadioButton*> group = GroupOf(*focus_);
    if (group.empty()) return false;
    if (back) std::ranges::reverse(group);
    const auto here = std::ranges::find(group, focus_);
    std::rotate(group.begin(), here + 1, group.end());
    const auto next = std::ranges::find_if(group, &Control::IsEnabled);
    if (next == group.end()) return true;
    SetFocus(*next, FocusBy::Keyboard);
    Chosen(**next);
    return true;
}

void Dialog::SetFocus(Control* control, FocusBy way) {
    focus_ = control;
    if (control && way == FocusBy::Keyboard) control->OnTabbedTo();
    Changed();
    UpdateTextInput();
}

std::size_t Dialog::IndexOf(const Control* control) const {
    const auto found = std::ranges::find(controls_, control, &std::unique_ptr<Control>::get);
    return static_cast<std::size_t>(found - controls_.begin());
}

Control* Dialog::NextStop(const Control* from, int step) const {
    const std::size_t count = controls_.size();
    std::vector<RadioButton*> left;
    if (from) left = GroupOf(*from);
    std::size_t index = from ? IndexOf(from) : step > 0 ? count - 1 : 0;
    for (std::size_t tries = 0; tries < count; ++tries) {
        index = (index + (step > 0 ? 1 : count - 1)) % count;
        Control& control = *controls_[index];
        // Tab leaves a group, however many of its buttons are left.
        const bool sameGroup = std::ranges::find(left, &control) != left.end();
        if (IsStop(control) && (!sameGroup || &control == from)) return &control;
    }
    return nullptr;
}

/// Tab stops at one radio button of a group: the checked one, else the first.
bool Dialog::IsStop(Control& control) const {
    if (!control.TakesKeyboard() || !control.IsEnabled()) return false;
    const std::vector<RadioButton*> group = GroupOf(control);
    if (group.empty()) return true;
    const auto can = [](const RadioButton* radio) { return radio->IsEnabled(); };
    const auto checked = std::ranges::find_if(
        group, [&](const RadioButton* radio) { return can(radio) && radio->IsChecked(); });
    return *(checked != group.end() ? checked : std::ranges::find_if(group, can)) == &control;
}

std::vector<RadioButton*> Dialog::GroupOf(const Control& radio) const {
    if (radio.Kind() != ControlKind::RadioButton) return {};
    const auto begins = [](const auto& control) { return control->Has(kFirstOfGroup); };
    const auto here = controls_.begin() + static_cast<std::ptrdiff_t>(IndexOf(&radio));
    auto first = here;
    while (first != controls_.begin() && !begins(*first))
        --first;
    std::vector<RadioButton*> group;
    for (auto each = first; each != controls_.end(); ++each) {
        if (each != first && begins(*each)) break;
        if (auto* const member = dynamic_cast<RadioButton*>(each->get())) group.push_back(member);
    }
    return group;
}

Control* Dialog::ReturnButton() const {
    const auto isButton = [](const Control& control) {
        return control.Kind() == ControlKind::PushButton && control.IsEnabled();
    };
    if (focus_ && isButton(*focus_)) return focus_;
    for (const auto& control : controls_)
        if (control->Has(kDefaultButton) && isButton(*control)) return control.get();
    return nullptr;
}

bool Dialog::CanCancel() const {
    const Control* const button = Find(IDCANCEL);
    return button && button->Kind() == ControlKind::PushButton && button->IsEnabled();
}

bool Dialog::Cancel() {
    if (!CanCancel()) return false;
    Pressed(*Find(IDCANCEL));
    return true;
}

}  // namespace korvane
