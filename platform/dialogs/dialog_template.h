#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace korvane {

// How a program writes a dialog down.

enum class ControlKind : std::uint8_t {
    Text,  ///< \n begins a new line
    GroupBox,
    Icon,  ///< of the window's class, 32 pixels wide and high
    PushButton,
    CheckBox,
    RadioButton,
    Edit,
    ListBox,
    HorizontalScrollBar,
};

/// Styles of controls. A kind ignores the styles that are not for it.
enum ControlStyle : std::uint8_t {
    kPlain = 0,
    kFirstOfGroup = 1,   ///< a radio button's group lasts until the next control with this style
    kDisabled = 2,       ///< until EnableWindow says otherwise
    kDefaultButton = 4,  ///< the button that Return presses
    kSorted = 8,         ///< a list box keeps its entries in alphabetical order
    kAlignRight = 16,    ///< of text
    kAlignCentre = 32,   ///< of text
};

/// Ids of the buttons that Return and Esc stand for.
inline constexpr std::uint16_t IDOK = 1;
inline constexpr std::uint16_t IDCANCEL = 2;
/// The id of controls that the program never refers to.
inline constexpr std::uint16_t IDC_STATIC = 0xFFFF;

/// A place in dialog units: 4 make the width of the font's average character, 8 its height.
struct DLGRECT {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::int16_t width = 0;
    std::int16_t height = 0;
};

/// In a text & stands before the mnemonic: the letter that presses a button. That of a text or
/// group box moves the focus to the next control that takes the keyboard.
struct DLGITEMTEMPLATE {
    std::uint16_t id = IDC_STATIC;
    ControlKind kind = ControlKind::Text;
    std::string_view text = {};
    DLGRECT place = {};
    std::uint8_t style = kPlain;
};

/// A dialog; the order of its items is that of the Tab key.
struct DLGTEMPLATE {
    std::string_view title;
    std::string_view font;  ///< the one it was designed for; all dialogs are shown in the same
    std::int16_t width = 0;
    std::int16_t height = 0;
    std::span<const DLGITEMTEMPLATE> items;
};

}  // namespace korvane
