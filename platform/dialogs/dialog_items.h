#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/dialogs/dialog.h"

namespace korvane {

// What a dialog's procedure does with the controls. With an unknown id, a null control or one of
// another kind these functions change nothing and return an empty value.

class Control;
/// One control of an open dialog.
using HCTL = Control*;

/// Null when the dialog has no control of this id.
HCTL GetDlgItem(HDLG dialog, std::uint16_t id);
/// A disabled control is greyed and takes neither keyboard nor mouse.
void EnableWindow(HCTL control, bool enabled);

/// Texts of edits, buttons and static texts, in UTF-8. The user types at most 31 bytes into an
/// edit.
void SetDlgItemText(HDLG dialog, std::uint16_t id, std::string_view text);
/// At most so many bytes of it.
std::string GetDlgItemText(HDLG dialog, std::uint16_t id, std::size_t maxBytes);

/// Check boxes and radio buttons. Checking a radio button leaves the others of its group alone;
/// only the user's choice unchecks them.
void CheckDlgButton(HDLG dialog, std::uint16_t id, bool checked);
bool IsDlgButtonChecked(HDLG dialog, std::uint16_t id);

// List boxes. Entries count from 0.

inline constexpr int LB_ERR = -1;

void ListBox_ResetContent(HCTL list);
/// Adds an entry at its place in a sorted list, else at the end; returns its number.
int ListBox_AddString(HCTL list, std::string_view text);
/// The first entry equal to the text but for the case of its letters; LB_ERR without one.
int ListBox_FindStringExact(HCTL list, std::string_view text);
/// Selects an entry and scrolls to it; LB_ERR selects nothing.
void ListBox_SetCurSel(HCTL list, int entry);
/// LB_ERR when nothing is selected.
int ListBox_GetCurSel(HCTL list);
std::string ListBox_GetText(HCTL list, int entry);

// Scroll bars. A bar of page p from `min` to `max` holds positions from `min` to max - p + 1.

enum ScrollRequest : std::uint16_t {
    SB_LINELEFT = 0,
    SB_LINERIGHT = 1,
    SB_PAGELEFT = 2,
    SB_PAGERIGHT = 3,
    SB_THUMBPOSITION = 4,
    SB_THUMBTRACK = 5,
    SB_LEFT = 6,
    SB_RIGHT = 7,
    SB_ENDSCROLL = 8,
};

enum ScrollInfoMask : std::uint32_t {
    SIF_RANGE = 1,
    SIF_PAGE = 2,
    SIF_POS = 4,
    SIF_ALL = SIF_RANGE | SIF_PAGE | SIF_POS,
};

struct SCROLLINFO {
    std::uint32_t mask = SIF_ALL;  ///< SIF_: which of the fields are meant
    int min = 0;
    int max = 0;
    int page = 0;
    int position = 0;
};

/// Sets the fields that the mask names. A bar moves only by this: its requests (WM_HSCROLL) do not
/// move it.
void SetScrollInfo(HCTL bar, const SCROLLINFO& info);
SCROLLINFO GetScrollInfo(HCTL bar);

}  // namespace korvane
