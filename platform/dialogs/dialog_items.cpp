#include "platform/dialogs/dialog_items.h"

#include <algorithm>

#include "platform/dialogs/dialog_window.h"
#include "platform/dialogs/list_box.h"
#include "platform/dialogs/scroll_bar.h"

namespace korvane {
namespace {

/// The dialog's control of this id; null when it has none, or one of another kind.
template <typename Kind>
Kind* Item(HDLG dialog, std::uint16_t id) {
    return dynamic_cast<Kind*>(GetDlgItem(dialog, id));
}

}  // namespace

HCTL GetDlgItem(HDLG dialog, std::uint16_t id) {
    return dialog ? dialog->Find(id) : nullptr;
}

void EnableWindow(HCTL control, bool enabled) {
    if (control) control->Enable(enabled);
}

void SetDlgItemText(HDLG dialog, std::uint16_t id, std::string_view text) {
    if (HCTL const control = GetDlgItem(dialog, id)) control->SetText(text);
}

std::string GetDlgItemText(HDLG dialog, std::uint16_t id, std::size_t maxBytes) {
    HCTL const control = GetDlgItem(dialog, id);
    return control ? control->Text().substr(0, maxBytes) : std::string();
}

void CheckDlgButton(HDLG dialog, std::uint16_t id, bool checked) {
    if (auto* const button = Item<CheckControl>(dialog, id)) button->Check(checked);
}

bool IsDlgButtonChecked(HDLG dialog, std::uint16_t id) {
    const auto* const button = Item<CheckControl>(dialog, id);
    return button && button->IsChecked();
}

void ListBox_ResetContent(HCTL list) {
    if (auto* const box = dynamic_cast<ListBox*>(list)) box->Clear();
}

int ListBox_AddString(HCTL list, std::string_view text) {
    auto* const box = dynamic_cast<ListBox*>(list);
    return box ? box->Add(text) : LB_ERR;
}

int ListBox_FindStringExact(HCTL list, std::string_view text) {
    const auto* const box = dynamic_cast<ListBox*>(list);
    return box ? box->Find(text) : LB_ERR;
}

void ListBox_SetCurSel(HCTL list, int entry) {
    if (auto* const box = dynamic_cast<ListBox*>(list)) box->Select(entry);
}

int ListBox_GetCurSel(HCTL list) {
    const auto* const box = dynamic_cast<ListBox*>(list);
    return box ? box->Selected() : LB_ERR;
}

std::string ListBox_GetText(HCTL list, int entry) {
    const auto* const box = dynamic_cast<ListBox*>(list);
    return box ? box->Entry(entry) : std::string();
}

void SetScrollInfo(HCTL bar, const SCROLLINFO& info) {
    auto* const box = dynamic_cast<ScrollBar*>(bar);
    if (!box) return;
    ScrollRange range = box->Range();
    if ((info.mask & SIF_RANGE) != 0) {
        range.min = info.min;
        range.max = info.max;
    }
    if ((info.mask & SIF_PAGE) != 0) range.page = info.page;
    if ((info.mask & SIF_POS) != 0) range.position = info.position;
    box->SetRange(range);
}

SCROLLINFO GetScrollInfo(HCTL bar) {
    const auto* const box = dynamic_cast<ScrollBar*>(bar);
    if (!box) return {.mask = 0};
    const ScrollRange& range = box->Range();
    return {SIF_ALL, range.min, range.max, range.page, range.position};
}

}  // namespace korvane
