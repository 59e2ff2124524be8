#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/dialogs/dialog.h"
#include "platform/dialogs/dialog_window.h"
#include "platform/dialogs/list_box.h"
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

inline constexpr DLGITEMTEMPLATE kTestItems[] = {
    {.kind = ControlKind::GroupBox, .text = "&Skins", .place = {4, 2, 90, 66}},
    {.id = kList, .kind = ControlKind::ListBox, .place = {10, 12, 78, 50}, .style = kSorted},
    {.kind = ControlKind::Text, .text = "De&lay", .place = {100, 2, 80, 8}},
    {.id = kBar, .kind = ControlKind::HorizontalScrollBar, .place = {100, 12, 100, 10}},
    {.id = kShown, .kind = ControlKind::Edit, .place = {204, 11, 30, 12}, .style = kDisabled},
    {.id = kTwo,
     .kind = ControlKind::RadioButton,
     .text = "x &2",
     .place = {100, 30, 30, 10},
     .style = kFirstOfGroup},
    {.id = kFour, .kind = ControlKind::RadioButton, .text = "x 4", .place = {130, 30, 30, 10}},
    {.id = kEight, .kind = ControlKind::RadioButton, .text = "x 8", .place = {160, 30, 30, 10}},
    {.id = kLonely,
     .kind = ControlKind::RadioButton,
     .text = "alone",
     .place = {190, 30, 40, 10},
     .style = kFirstOfGroup},
    {.id = kCheck, .kind = ControlKind::CheckBox, .text = "&Quakes", .place = {100, 44, 60, 10}},
    {.id = kName, .kind = ControlKind::Edit, .place = {100, 58, 60, 12}},
    {.kind = ControlKind::Icon, .place = {200, 50, 21, 20}},
    {.id = IDOK,
     .kind = ControlKind::PushButton,
     .text = "&OK",
     .place = {40, 80, 50, 14},
     .style = kDefaultButton},
    {.id = IDCANCEL, .kind = ControlKind::PushButton, .text = "Cancel", .place = {95, 80, 50, 14}},
    {.id = kHelp, .kind = ControlKind::PushButton, .text = "Hel&p", .place = {150, 80, 50, 14}},
};
inline constexpr DLGTEMPLATE kTestDialog = {"Settings", "any", 240, 100, kTestItems};

using Steps = std::vector<std::function<void()>>;
/// A place of the mouse, which is known when the dialog is open.
using Place = std::function<POINT()>;

/// One thing that a user does: presses and releases a key, types, or anything else.
class Act {
  public:
    Act(int key, std::uint8_t modifiers = 0)
        : do_([=] { PressKeys({static_cast<std::uint8_t>(key)}, modifiers); }) {}
    Act(const char32_t* text) : do_([=] { Headless().PushText(text); }) {}
    template <std::invocable Function>
    Act(Function function) : do_(std::move(function)) {}

    void operator()() const { do_(); }

  private:
    std::function<void()> do_;
};

inline Act Alt(int key) {
    return {key, kModAlt};
}
inline Act Ctrl(int key) {
    return {key, kModControl};
}
inline Act Shift(int key) {
    return {key, kModShift};
}
inline Act Tabs(int count) {
    return [=] {
        for (int i = 0; i < count; ++i)
            PressKeys({VK_TAB});
    };
}

/// A program's window, and the dialog over it. OK and Cancel end the dialog with their ids.
class DialogTest : public MenuWindowTest {
  protected:
    /// Runs the dialog through the steps; `prepare` does what WM_INITDIALOG is for.
    int Show(Steps steps, std::function<void(HDLG)> prepare = {}) {
        prepare_ = std::move(prepare);
        asked_.clear();
        DialogScript script(std::move(steps));
        const int result = DialogBox(kTestDialog, window_, Procedure);
        EXPECT_TRUE(script.WentAsWritten());
        return result;
    }

    /// All of that in one step.
    static std::function<void()> Do(std::vector<Act> acts) {
        return [list = std::move(acts)] {
            for (const Act& act : list)
                act();
        };
    }

    static Place Item(std::uint16_t id) {
        return [=] { return CentreOfItem(id); };
    }
    static void MouseAt(HostEventType type, POINT at) { Headless().Push(Mouse(type, at)); }
    static Act Drag(const Place& from, const Place& to) {
        return [=] {
            MouseAt(HostEventType::LeftButtonDown, from());
            MouseAt(HostEventType::MouseMove, to());
            MouseAt(HostEventType::LeftButtonUp, to());
        };
    }
    /// Presses at a place and lets go there after some milliseconds.
    static Act Hold(const Place& at, std::uint32_t time) {
        return [=] {
            MouseAt(HostEventType::LeftButtonDown, at());
            Headless().PushLater(time, Mouse(HostEventType::LeftButtonUp, at()));
        };
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
        if (message == WM_HSCROLL) Obey(wParam, reinterpret_cast<HCTL>(lParam));
        if (message == WM_COMMAND && (wParam == IDOK || wParam == IDCANCEL))
            EndDialog(dialog, static_cast<int>(wParam));
        if (message == WM_COMMAND && wParam == kHelp) MessageBox(dialog, "Help", "Korvane", MB_OK);
        return true;
    }

    static void Obey(WPARAM request, HCTL bar) {
        SCROLLINFO info = GetScrollInfo(bar);
        const int page = info.page;
        if (LOWORD(request) == SB_LINELEFT) info.position -= 1;
        if (LOWORD(request) == SB_LINERIGHT) info.position += 1;
        if (LOWORD(request) == SB_PAGELEFT) info.position -= page;
        if (LOWORD(request) == SB_PAGERIGHT) info.position += page;
        if (LOWORD(request) == SB_THUMBTRACK) info.position = HIWORD(request);
        SetScrollInfo(bar, info);
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
