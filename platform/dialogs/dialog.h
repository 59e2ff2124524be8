#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/base/types.h"
#include "platform/window/user.h"

namespace korvane {

// Dialog resources: how a program writes a dialog down. ------------------------------------------

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

/// Styles of controls; those that a kind does not know mean nothing to it.
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
/// The id of controls that nobody asks for.
inline constexpr std::uint16_t IDC_STATIC = 0xFFFF;

/// A place in dialog units: 4 make the width of the font's average character, 8 its height.
struct DLGRECT {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::int16_t width = 0;
    std::int16_t height = 0;
};

/// In a text & stands before the mnemonic, which presses a button, or leads from a text or group
/// box to the next control that takes the keyboard.
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
    std::string_view font;  ///< what it was laid out for; the layer has one face
    std::int16_t width = 0;
    std::int16_t height = 0;
    std::span<const DLGITEMTEMPLATE> items;
};

// Running a dialog. ------------------------------------------------------------------------------

class Dialog;
/// An open dialog; valid until its DialogBox returns.
using HDLG = Dialog*;

inline constexpr std::uint32_t WM_INITDIALOG = 0x0110;
inline constexpr std::uint32_t WM_HSCROLL = 0x0114;

/// Answers a dialog's messages; true for those it handled (for WM_INITDIALOG: let the layer choose
/// the first focus, which is the first control that takes the keyboard; false leaves none).
/// - WM_INITDIALOG: before it is seen, with every control as its template says.
/// - WM_COMMAND: the low half of wParam holds the id of a button that was pressed; IDCANCEL also
///   comes from Esc and the close box as long as that button exists and is enabled.
/// - WM_HSCROLL: a ScrollRequest in wParam's low half, for SB_THUMBTRACK and SB_THUMBPOSITION the
///   thumb's position in its high half; the scroll bar (HCTL) in lParam.
using DLGPROC = bool (*)(HDLG dialog, std::uint32_t message, WPARAM wParam, LPARAM lParam);

/// Shows a dialog over the owner's picture and returns EndDialog's result, or -1 when the program
/// is to end (that message waits then, whatever the procedure has done). The owner is deactivated
/// meanwhile and gets messages, but neither keys nor mouse nor accelerators; it is not destroyed
/// before the dialog has ended. Before the owner was ever shown the dialog is all that its window
/// shows, in the middle of the screen, under the dialog's title.
int DialogBox(const DLGTEMPLATE& source, HWND owner, DLGPROC procedure);

/// Ends the dialog when the procedure returns.
void EndDialog(HDLG dialog, int result);

/// MessageBox over a dialog.
void MessageBox(HDLG owner, const std::string& text, const std::string& caption,
                std::uint32_t flags);

}  // namespace korvane
