#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/dialogs/dialog.h"
#include "platform/dialogs/dialog_window.h"
#include "platform/dialogs/list_box.h"
#include "platform/dialogs/scroll_bar.h"
#include "tests/support/dialog_script.h"
#include "tests/support/menu_window.h"

namespace korvane {

enum TestItem : std::uint16_t {
    kList = 10,
    kBar,
    kShown,
    kTwo,
    kFour,
    kEight,
    kLonely,
    kCheck,
    kName,
    kHelp,
};

using Kind = ControlKind;

inline constexpr DLGITEMTEMPLATE kTestItems[] = {
    {IDC_STATIC, Kind::GroupBox, "&Skins", {4, 2, 90, 66}},
    {kList, Kind::ListBox, {}, {10, 12, 78, 50}, kSorted},
    {IDC_STATIC, Kind::Text, "De&lay", {100, 2, 80, 8}},
    {kBar, Kind::HorizontalScrollBar, {}, {100, 12, 100, 10}},
    {kShown, Kind::Edit, {}, {204, 11, 30, 12}, kDisabled},
    {kTwo, Kind::RadioButton, "x &2", {100, 30, 30, 10}, kFirstOfGroup},
    {kFour, Kind::RadioButton, "x 4", {130, 30, 30, 10}},
    {kEight, Kind::RadioButton, "x 8", {160, 30, 30, 10}},
    {kLonely, Kind::RadioButton, "alone", {190, 30, 40, 10}, kFirstOfGroup},
    {kCheck, Kind::CheckBox, "&Quakes", {100, 44, 60, 10}},
    {kName, Kind::Edit, {}, {100, 58, 60, 12}},
    {IDC_STATIC, Kind::Icon, {}, {200, 50, 21, 20}},
    {IDOK, Kind::PushButton, "&OK", {40, 80, 50, 14}, kDefaultButton},
    {IDCANCEL, Kind::PushButton, "Cancel", {95, 80, 50, 14}},
    {kHelp, Kind::PushButton, "Hel&p", {150, 80, 50, 14}},
};
inline constexpr DLGTEMPLATE kTestDialog = {"Settings", "any", 240, 100, kTestItems};

/// A program's window, and the dialog over it. OK and Cancel end the dialog with their ids.
class DialogTest : public MenuWindowTest {
  protected:
    using Prepare = std::function<void(HDLG)>;

    /// Opens the dialog and goes through the acts; `prepare` does what WM_INITDIALOG is for.
    int Show(Acts acts, Prepare prepare = {}) {
        prepare_ = std::move(prepare);
        asked_.clear();
        DialogScript script(std::move(acts));
        const int result = DialogBox(kTestDialog, window_, Procedure);
        EXPECT_TRUE(script.WentAsWritten());
        return result;
    }
    /// The same, then looks and leaves the dialog with Esc.
    void Try(Acts acts, std::function<void()> look, Prepare prepare = {}) {
        acts.insert(acts.end(), {std::move(look), VK_ESCAPE});
        EXPECT_EQ(Show(std::move(acts), std::move(prepare)), IDCANCEL);
    }

    static bool Procedure(HDLG dialog, std::uint32_t message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) {
            SetScrollInfo(GetDlgItem(dialog, kBar), {SIF_ALL, 0, 159, 10, 50});
            for (const char* name : {"pear", "Apple", "fig", "Plum", "banana", "cherry", "Date"})
                ListBox_AddString(GetDlgItem(dialog, kList), name);
            CheckDlgButton(dialog, kFour, true);
            if (prepare_) prepare_(dialog);
            return chooseFocus_;
        }
        asked_.push_back(message == WM_COMMAND ? static_cast<int>(wParam)
                                               : 100 + static_cast<int>(LOWORD(wParam)));
        if (message == WM_HSCROLL) Obey(wParam, *reinterpret_cast<HCTL>(lParam));
        if (message == WM_COMMAND && (wParam == IDOK || wParam == IDCANCEL))
            EndDialog(dialog, static_cast<int>(wParam));
        if (message == WM_COMMAND && wParam == kHelp) MessageBox(dialog, "Help", "Korvane", MB_OK);
        return true;
    }

    static void Obey(WPARAM wParam, Control& control) {
        auto& bar = dynamic_cast<ScrollBar&>(control);
        ScrollRange range = bar.Range();
        const auto request = static_cast<ScrollRequest>(LOWORD(wParam));
        range.position = request == SB_THUMBTRACK ? HIWORD(wParam) : MovedBy(request, range);
        bar.SetRange(range);
    }

    static std::uint16_t FocusedId() {
        const auto* const focus = ShownDialog() ? ShownDialog()->Focus() : nullptr;
        return focus ? focus->Id() : 0;
    }
    static ListBox& List() { return dynamic_cast<ListBox&>(*GetDlgItem(ShownDialog(), kList)); }
    static std::string Name() { return GetDlgItemText(ShownDialog(), kName, 1000); }
    static int BarPosition() { return GetScrollInfo(GetDlgItem(ShownDialog(), kBar)).position; }
    /// Which radio buttons are checked, one digit each.
    static std::string Checked() {
        std::string checked;
        for (const std::uint16_t id : {kTwo, kFour, kEight, kLonely})
            checked += IsDlgButtonChecked(ShownDialog(), id) ? '1' : '0';
        return checked;
    }

    static inline std::function<void(HDLG)> prepare_;
    /// Ids of buttons, and requests of the scroll bar plus 100.
    static inline std::vector<int> asked_;
    static inline bool chooseFocus_ = true;
};

}  // namespace korvane
