#include "platform/window/menu_bar.h"

#include <algorithm>
#include <utility>

#include "platform/base/virtual_keys.h"

namespace korvane {
namespace {

std::size_t IndexAt(const std::vector<RECT>& areas, POINT point) {
    for (std::size_t i = 0; i < areas.size(); ++i)
        if (Contains(areas[i], point)) return i;
    return kNoEntry;
}

/// The next entry of `count`, or the one before for a negative step; the ends meet. From no entry
/// to the first or the last.
std::size_t StepInRing(std::size_t from, int step, std::size_t count) {
    if (from == kNoEntry) return step > 0 ? 0 : count - 1;
    return (from + (step > 0 ? 1 : count - 1)) % count;
}

}  // namespace

void MenuBar::Attach(const Menu* menu, SIZE area, int scale) {
    Close();
    menu_ = menu;
    area_ = area;
    scale_ = scale;
    titles_ = menu ? LayOutTitles(*menu, scale) : std::vector<RECT>{};
    altAlone_ = false;
    barChanged_ = true;
}

void MenuBar::Close() {
    pressed_ = false;
    if (!IsActive()) return;
    ClosePopup();
    lit_ = kNoEntry;
    barChanged_ = true;
}

bool MenuBar::Takes(const HostEvent& event) {
    if (!menu_) return false;
    const POINT at{event.x, event.y};
    switch (event.type) {
        case HostEventType::KeyDown:
            return OnKeyDown(event);
        case HostEventType::KeyUp:
            if (event.key == VK_MENU && std::exchange(altAlone_, false)) FocusTitle(0);
            return false;
        case HostEventType::LeftButtonDown:
            altAlone_ = false;
            return OnPress(at);
        case HostEventType::LeftButtonUp:
            OnRelease(at);
            return false;
        case HostEventType::MouseMove:
            OnMove(at);
            return false;
        case HostEventType::Wheel:
            altAlone_ = false;
            return IsActive();
        case HostEventType::Moved:
            return false;
        default:
            altAlone_ = false;
            Close();
            return false;
    }
}

bool MenuBar::OnKeyDown(const HostEvent& event) {
    if (!IsActive()) return OnKeyAtRest(event);
    OnKeyInUse(event);
    return true;
}

bool MenuBar::OnKeyAtRest(const HostEvent& event) {
    if (event.key == VK_MENU) {
        if (!event.repeat) altAlone_ = event.modifiers == kModAlt;
        return false;
    }
    altAlone_ = false;
    if (event.key == VK_F10 && event.modifiers == 0) {
        FocusTitle(0);
        return true;
    }
    const std::size_t title = event.modifiers == kModAlt ? TitleOf(event.key) : kNoEntry;
    if (title == kNoEntry) return false;
    Open(title, Highlight::FirstItem);
    return true;
}

void MenuBar::OnKeyInUse(const HostEvent& event) {
    const auto key = event.key;
    if (key == VK_LEFT || key == VK_RIGHT) return StepTitle(key == VK_LEFT ? -1 : 1);
    if (key == VK_UP || key == VK_DOWN) return StepItem(key == VK_UP ? -1 : 1);
    // Automatic repeat moves, but does not open, choose or close: a key held a moment too long
    // would act a second time, on what its press has opened.
    if (event.repeat) return;
    switch (key) {
        case VK_ESCAPE:
            return popupOpen_ ? ClosePopup() : Close();
        case VK_MENU:
        case VK_F10:
            return Close();
        case VK_RETURN:
            return popupOpen_ ? Choose(item_) : Open(lit_, Highlight::FirstItem);
        default:
            return OnLetter(key);
    }
}

void MenuBar::OnLetter(std::uint8_t key) {
    if (!popupOpen_) {
        const std::size_t title = TitleOf(key);
        if (title != kNoEntry) Open(title, Highlight::FirstItem);
        return;
    }
    const auto isNamed = [key](const MenuItem& item) {
        return item.IsEnabled() && item.label.mnemonic == key;
    };
    const auto count = std::ranges::count_if(Items(), isNamed);
    if (count == 0) return;
    std::size_t item = item_;
    do {
        item = StepInRing(item, 1, Items().size());
    } while (!isNamed(Items()[item]));
    // A letter that several items share goes from one to the next; Return then chooses.
    return count == 1 ? Choose(item) : Light(item);
}

bool MenuBar::OnPress(POINT at) {
    const bool wasActive = IsActive();
    const std::size_t title = TitleAt(at);
    const bool onPopup = popupOpen_ && Contains(layout_.place, at);
    pressed_ = true;
    if (onPopup) {
        Light(ItemAt(at));
    } else if (title != kNoEntry && !(popupOpen_ && title == lit_)) {
        Open(title, Highlight::Nothing);
    } else {
        Close();
    }
    // A press on the bar is never the program's, even where the bar has no title.
    return wasActive || at.y < kMenuBarHeight;
}

void MenuBar::OnRelease(POINT at) {
    if (!std::exchange(pressed_, false) || !popupOpen_) return;
    if (Contains(layout_.place, at)) return Choose(ItemAt(at));
    if (TitleAt(at) == kNoEntry) Close();
}

void MenuBar::OnMove(POINT at) {
    if (!IsActive()) return;
    const std::size_t title = popupOpen_ && Contains(layout_.place, at) ? kNoEntry : TitleAt(at);
    if (title != kNoEntry && title != lit_) {
        if (popupOpen_) return Open(title, Highlight::Nothing);
        return FocusTitle(title);
    }
    if (!popupOpen_) return;
    // Only a pointer that comes to another item lights it: one that rests must not undo what the
    // arrow keys have lit.
    const std::size_t item = ItemAt(at);
    if (std::exchange(pointed_, item) != item) Light(item);
}

void MenuBar::FocusTitle(std::size_t title) {
    if (title >= titles_.size()) return;
    if (!IsActive()) owner_.OnMenuEntered();
    lit_ = title;
    barChanged_ = true;
}

void MenuBar::Open(std::size_t popup, Highlight highlight) {
    const Menu* menu = menu_;
    const bool pressed = pressed_;
    if (!IsActive()) owner_.OnMenuEntered();
    owner_.OnPopupOpening(popup);
    if (menu_ != menu || popup >= titles_.size()) return;  // the owner has replaced the menu
    ClosePopup();
    lit_ = popup;
    popupOpen_ = popupChanged_ = barChanged_ = true;
    pressed_ = pressed;
    layout_ =
        LayOutPopup(menu_->popups[popup], {titles_[popup].left, kMenuBarHeight}, area_, scale_);
    if (highlight == Highlight::FirstItem) StepItem(1);
}

void MenuBar::ClosePopup() {
    if (!popupOpen_) return;
    popupOpen_ = false;
    item_ = pointed_ = kNoEntry;
    popupChanged_ = true;
}

void MenuBar::StepTitle(int step) {
    const std::size_t title = StepInRing(lit_, step, titles_.size());
    if (popupOpen_) return Open(title, Highlight::FirstItem);
    FocusTitle(title);
}

void MenuBar::StepItem(int step) {
    if (!popupOpen_) return Open(lit_, Highlight::FirstItem);
    std::size_t item = item_;
    for (std::size_t tries = 0; tries < Items().size(); ++tries) {
        item = StepInRing(item, step, Items().size());
        if (!Items()[item].IsSeparator()) return Light(item);
    }
}

void MenuBar::Light(std::size_t item) {
    if (item == item_) return;
    item_ = item;
    popupChanged_ = true;
}

void MenuBar::Choose(std::size_t item) {
    if (item == kNoEntry || !Items()[item].IsEnabled()) return;
    const std::uint16_t command = Items()[item].command;
    Close();
    owner_.OnCommandChosen(command);
}

std::size_t MenuBar::TitleAt(POINT at) const {
    return IndexAt(titles_, at);
}

std::size_t MenuBar::TitleOf(std::uint8_t mnemonic) const {
    for (std::size_t i = 0; i < titles_.size(); ++i)
        if (menu_->popups[i].title.mnemonic == mnemonic) return i;
    return kNoEntry;
}

std::size_t MenuBar::ItemAt(POINT at) const {
    const std::size_t item = IndexAt(layout_.items, at);
    return item == kNoEntry || Items()[item].IsSeparator() ? kNoEntry : item;
}

bool MenuBar::TakeBarChange() {
    return std::exchange(barChanged_, false);
}

bool MenuBar::TakePopupChange() {
    return std::exchange(popupChanged_, false);
}

Canvas MenuBar::PaintBar() const {
    return PaintMenuBar(*menu_, titles_, lit_, area_.cx, scale_);
}

Canvas MenuBar::PaintOpenPopup() const {
    return PaintPopup(menu_->popups[lit_], layout_, item_, scale_);
}

}  // namespace korvane
