#pragma once

#include <cstdint>
#include <string>

#include "platform/base/types.h"
#include "platform/dialogs/dialog_template.h"
#include "platform/window/message_box.h"
#include "platform/window/messages.h"

namespace korvane {

class Dialog;
/// An open dialog; valid until its DialogBox returns.
using HDLG = Dialog*;

inline constexpr std::uint32_t WM_INITDIALOG = 0x0110;
inline constexpr std::uint32_t WM_HSCROLL = 0x0114;

/// Answers a dialog's messages; true for those it handled.
/// - WM_INITDIALOG: before the dialog is seen, with every control as its template says. True gives
///   the focus to the first control that takes the keyboard, false to none.
/// - WM_COMMAND: the low half of wParam holds the id of a button that was pressed; IDCANCEL also
///   comes from Esc and the close box as long as that button exists and is enabled.
/// - WM_HSCROLL: a ScrollRequest in wParam's low half, for SB_THUMBTRACK and SB_THUMBPOSITION the
///   thumb's position in its high half; the scroll bar (HCTL) in lParam.
using DLGPROC = bool (*)(HDLG dialog, std::uint32_t message, WPARAM wParam, LPARAM lParam);

/// Shows a dialog over the owner's picture and returns EndDialog's result, or -1 when the program
/// is asked to end; that message is then still in the queue. The owner is deactivated meanwhile and
/// gets messages, but neither keys nor mouse nor accelerators; it is not destroyed before the
/// dialog has ended. Of an owner that was never shown only the dialog is seen, in the middle of the
/// screen and under the dialog's title.
int DialogBox(const DLGTEMPLATE& source, HWND owner, DLGPROC procedure);

/// Ends the dialog when the procedure returns.
void EndDialog(HDLG dialog, int result);

/// MessageBox over a dialog.
void MessageBox(HDLG owner, const std::string& text, const std::string& caption,
                std::uint32_t flags);

}  // namespace korvane
