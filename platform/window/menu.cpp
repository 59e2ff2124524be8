#include "platform/window/menu.h"

#include "platform/base/ascii.h"

namespace korvane {

MenuLabel::MenuLabel(std::string_view source) {
    const std::size_t tab = source.find('\t');
    if (tab != source.npos) hint = source.substr(tab + 1);
    for (const char c : source.substr(0, tab)) {
        if (c == '&') {
            underlined = text.size();
        } else {
            text += c;
        }
    }
    if (!text.empty()) mnemonic = AsciiUpper(underlined < text.size() ? text[underlined] : text[0]);
}

Menu::Menu(MENUTEMPLATE source) {
    for (const MENUPOPUPTEMPLATE& popup : source) {
        popups.push_back({MenuLabel(popup.title), {}});
        for (const MENUITEMTEMPLATE& item : popup.items)
            popups.back().items.push_back({item.command, MenuLabel(item.text)});
    }
}

MenuItem* Menu::Find(std::uint16_t command) {
    if (command == 0) return nullptr;
    for (MenuPopup& popup : popups)
        for (MenuItem& item : popup.items)
            if (item.command == command) return &item;
    return nullptr;
}

std::size_t Menu::PopupOf(std::uint16_t command) const {
    for (std::size_t i = 0; i < popups.size(); ++i)
        for (const MenuItem& item : popups[i].items)
            if (item.command == command) return i;
    return popups.size();
}

std::unique_ptr<Menu> LoadMenu(MENUTEMPLATE source) {
    return std::make_unique<Menu>(source);
}

void CheckMenuItem(HMENU menu, std::uint16_t command, std::uint32_t flag) {
    if (MenuItem* item = menu ? menu->Find(command) : nullptr) item->checked = flag == MF_CHECKED;
}

void EnableMenuItem(HMENU menu, std::uint16_t command, std::uint32_t flag) {
    if (MenuItem* item = menu ? menu->Find(command) : nullptr) item->greyed = flag == MF_GRAYED;
}

}  // namespace korvane
