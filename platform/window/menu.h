#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

struct Window;

// Menu resources: how a program writes a menu down. In a text & stands before the mnemonic and a
// tab before the key hint.

struct MENUITEMTEMPLATE {
    std::uint16_t command = 0;  ///< 0: a separator
    std::string_view text = {};
};

inline constexpr MENUITEMTEMPLATE kMenuSeparator = {};

struct MENUPOPUPTEMPLATE {
    std::string_view title;
    std::span<const MENUITEMTEMPLATE> items;
};

using MENUTEMPLATE = std::span<const MENUPOPUPTEMPLATE>;

/// A menu text taken apart.
struct MenuLabel {
    static constexpr std::size_t kNone = std::string::npos;

    explicit MenuLabel(std::string_view source);

    std::string text;
    std::string hint;                ///< the key that does the same, empty for none
    std::size_t underlined = kNone;  ///< byte of the text that & stood before
    char mnemonic = 0;  ///< the capital (or digit) that chooses it; without & the text's first
};

struct MenuItem {
    std::uint16_t command = 0;
    MenuLabel label;
    bool checked = false;
    bool greyed = false;

    bool IsSeparator() const { return command == 0; }
    bool IsEnabled() const { return !IsSeparator() && !greyed; }
};

struct MenuPopup {
    MenuLabel title;
    std::vector<MenuItem> items;
};

/// The menu of a window: its popups from left to right.
struct Menu {
    explicit Menu(MENUTEMPLATE source);

    /// The first item of this command; null for none.
    MenuItem* Find(std::uint16_t command);
    /// The popup that it stands in; popups.size() for none.
    std::size_t PopupOf(std::uint16_t command) const;

    std::vector<MenuPopup> popups;
};

using HMENU = Menu*;

inline constexpr std::uint32_t MF_ENABLED = 0;
inline constexpr std::uint32_t MF_GRAYED = 1;
inline constexpr std::uint32_t MF_UNCHECKED = 0;
inline constexpr std::uint32_t MF_CHECKED = 8;

/// A fresh menu with everything enabled and nothing checked.
std::unique_ptr<Menu> LoadMenu(MENUTEMPLATE source);
/// Gives the window a menu bar, or takes it away (null); its former menu is gone. The client area
/// below the bar keeps its size.
void SetMenu(Window* window, std::unique_ptr<Menu> menu);
/// The window's menu; null for none.
HMENU GetMenu(Window* window);
/// MF_CHECKED or MF_UNCHECKED for the item of this command; a menu without it stays as it is.
void CheckMenuItem(HMENU menu, std::uint16_t command, std::uint32_t flag);
/// MF_ENABLED or MF_GRAYED, likewise.
void EnableMenuItem(HMENU menu, std::uint16_t command, std::uint32_t flag);

}  // namespace korvane
