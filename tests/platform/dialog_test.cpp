#include "platform/dialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/dialog_window.h"
#include "platform/list_box.h"
#include "tests/support/dialog_script.h"
#include "tests/support/menu_window.h"

namespace korvane {
namespace {

using enum HostEventType;
using Steps = std::vector<std::function<void()>>;

enum Id : std::uint16_t {
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

constexpr DLGITEMTEMPLATE kItems[] = {
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
constexpr DLGTEMPLATE kDialog = {"Settings", "any", 240, 100, kItems};

/// A program's window, and the dialog over it. OK and Cancel end the dialog with their ids.
class DialogTest : public MenuWindowTest {
  protected:
    /// Runs the dialog through the steps; `prepare` does what WM_INITDIALOG is for.
    int Show(Steps steps, std::function<void(HDLG)> prepare = {}) {
        prepare_ = std::move(prepare);
        asked_.clear();
        DialogScript script(std::move(steps));
        const int result = DialogBox(kDialog, window_, Procedure);
        EXPECT_TRUE(script.WentAsWritten());
        return result;
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
        constexpr int kLine = 1;
        switch (LOWORD(request)) {
            case SB_LINELEFT:
                info.position -= kLine;
                break;
            case SB_LINERIGHT:
                info.position += kLine;
                break;
            case SB_PAGELEFT:
                info.position -= page;
                break;
            case SB_PAGERIGHT:
                info.position += page;
                break;
            case SB_THUMBTRACK:
                info.position = HIWORD(request);
                break;
            default:
                break;
        }
        SetScrollInfo(bar, info);
    }

    static std::uint16_t FocusedId() {
        const Control* const focus = ShownDialog() ? ShownDialog()->Focus() : nullptr;
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
    /// Takes all that waits; true when the program's end is among it.
    static bool TakeEnd() {
        bool ends = false;
        for (MSG message; PeekMessage(message, PM_REMOVE);)
            ends = ends || message.message == WM_QUIT || message.message == WM_CLOSE ||
                   message.message == WM_SYSCOMMAND;
        return ends;
    }
    static void MouseAt(HostEventType type, POINT at) { Headless().Push(Mouse(type, at)); }

    static inline std::function<void(HDLG)> prepare_;
    /// Ids of buttons, and requests of the scroll bar plus 100.
    static inline std::vector<int> asked_;
    static inline bool chooseFocus_ = true;
};

TEST_F(DialogTest, KeyboardMovesFocusChecksAndPresses) {
    Start();
    struct Case {
        const char* way;
        std::function<void()> press;
        std::uint16_t focus;
        const char* checked;
        std::vector<int> asked;
    };
    const auto keys = [](std::initializer_list<std::uint8_t> list, std::uint8_t modifiers = 0) {
        return [held = std::vector(list), modifiers] {
            for (const std::uint8_t key : held)
                PressKeys({key}, modifiers);
        };
    };
    const auto tabFromUnchecked = [] {
        MouseAt(LeftButtonDown, CentreOfItem(kTwo));
        MouseAt(LeftButtonUp, {0, 0});
        PressKeys({VK_TAB});
    };
    const auto sFromFour = [] {
        PressKeys({VK_TAB, VK_TAB});
        PressKeys({'S'}, kModAlt);
    };
    const Case cases[] = {
        {"first focus", keys({}), kList, "0100", {}},
        {"Tab to the checked one", keys({VK_TAB, VK_TAB}), kFour, "0100", {}},
        {"a group is one stop", keys({VK_TAB, VK_TAB, VK_TAB}), kLonely, "0100", {}},
        {"also left from its other buttons", tabFromUnchecked, kLonely, "0100", {}},
        {"Shift+Tab wraps", keys({VK_TAB}, kModShift), kHelp, "0100", {}},
        {"arrow checks", keys({VK_TAB, VK_TAB, VK_RIGHT}), kEight, "0010", {}},
        {"arrow wraps", keys({VK_TAB, VK_TAB, VK_DOWN, VK_DOWN}), kTwo, "1000", {}},
        {"back", keys({VK_TAB, VK_TAB, VK_UP}), kTwo, "1000", {}},
        {"Space checks", keys({VK_TAB, VK_TAB, VK_TAB, VK_SPACE}), kLonely, "0101", {}},
        {"Alt+letter of a group box", sFromFour, kList, "0100", {}},
        {"Alt+letter of a text", keys({'L'}, kModAlt), kBar, "0100", {}},
        {"Alt+digit", keys({'2'}, kModAlt), kTwo, "1000", {}},
        {"no bare letter on a list", keys({'L'}), kList, "0100", {}},
        {"bare letter", keys({VK_TAB, '2'}), kTwo, "1000", {}},
        {"other letter", keys({'W'}, kModAlt), kList, "0100", {}},
    };
    for (const Case& c : cases) {
        const int result = Show({[&] { c.press(); },
                                 [&] {
                                     EXPECT_EQ(FocusedId(), c.focus) << c.way;
                                     EXPECT_EQ(Checked(), c.checked) << c.way;
                                     EXPECT_EQ(asked_, c.asked) << c.way;
                                     PressKeys({VK_ESCAPE});
                                 }});
        EXPECT_EQ(result, IDCANCEL) << c.way;
    }
}

TEST_F(DialogTest, FocusIsTheProgramsChoiceAndLeavesWhatIsDisabled) {
    Start();
    chooseFocus_ = false;
    Show({[] {
              EXPECT_EQ(FocusedId(), 0);
              PressKeys({VK_TAB});
          },
          [] {
              EXPECT_EQ(FocusedId(), kList);
              EnableWindow(GetDlgItem(ShownDialog(), kList), false);
              EXPECT_EQ(FocusedId(), kBar);
              PressKeys({VK_TAB}, kModShift);
          },
          [] {
              EXPECT_EQ(FocusedId(), kHelp);
              PressKeys({VK_ESCAPE});
          }});
    chooseFocus_ = true;
}

TEST_F(DialogTest, WhatEndsIt) {
    Start();
    const auto nothing = [](HDLG) {};
    const auto noCancel = [](HDLG dialog) { EnableWindow(GetDlgItem(dialog, IDCANCEL), false); };
    const auto noOk = [](HDLG dialog) { EnableWindow(GetDlgItem(dialog, IDOK), false); };
    const auto key = [](std::initializer_list<std::uint8_t> keys, std::uint8_t modifiers = 0) {
        return [list = std::vector(keys), modifiers] {
            for (const std::uint8_t each : list)
                PressKeys({each}, modifiers);
        };
    };
    const auto closeBox = [] {
        const POINT corner = ShownDialog()->Corner();
        const POINT at{corner.x + 366 - 10, corner.y + 12};
        MouseAt(LeftButtonDown, at);
        MouseAt(LeftButtonUp, at);
    };
    struct Case {
        const char* way;
        std::function<void(HDLG)> prepare;
        std::function<void()> act;
        int result;  // 0: it stays
    };
    const Case cases[] = {
        {"Return", nothing, key({VK_RETURN}), IDOK},
        {"Return, no default", noOk, key({VK_RETURN}), 0},
        {"Return on the focused button", nothing,
         key({VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_RETURN}), IDCANCEL},
        {"Return in an edit", nothing, key({VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_RETURN}),
         IDOK},
        {"Space on OK", nothing, key({VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_SPACE}),
         IDOK},
        {"mnemonic", nothing, key({'O'}, kModAlt), IDOK},
        {"Esc", nothing, key({VK_ESCAPE}), IDCANCEL},
        {"Esc, no Cancel", noCancel, key({VK_ESCAPE}), 0},
        {"held Return", nothing, [] { Headless().Push(Key(VK_RETURN, true, 0, true)); }, 0},
        {"click", nothing, [] { ClickItem(IDOK); }, IDOK},
        {"click on greyed", noCancel, [] { ClickItem(IDCANCEL); }, 0},
        {"let go elsewhere", nothing,
         [] {
             MouseAt(LeftButtonDown, CentreOfItem(IDOK));
             MouseAt(LeftButtonUp, CentreOfItem(IDCANCEL));
         },
         0},
        {"close box", nothing, closeBox, IDCANCEL},
        {"close box, no Cancel", noCancel, closeBox, 0},
        {"Alt+F4", nothing, key({VK_F4}, kModAlt), IDCANCEL},
        {"window closed", nothing, [] { Headless().Push({.type = CloseRequested}); }, -1},
        {"terminated", nothing, [] { Headless().Push({.type = Terminate}); }, -1},
        {"quit", nothing, [] { PostQuitMessage(3); }, -1},
    };
    for (const Case& c : cases) {
        bool stayed = false;
        const Steps steps = {c.act, [&] {
                                 stayed = true;
                                 EndDialog(ShownDialog(), 77);
                             }};
        const int result = Show(c.result == 0 ? steps : Steps{c.act}, c.prepare);
        EXPECT_EQ(result, c.result == 0 ? 77 : c.result) << c.way;
        EXPECT_EQ(stayed, c.result == 0) << c.way;
        EXPECT_EQ(TakeEnd(), c.result == -1) << c.way;
    }
}

TEST_F(DialogTest, TheOwnerRestsMeanwhile) {
    Start();
    Push({Key('W', true)});
    received_.clear();
    const std::vector<std::uint32_t> before = Headless().Picture();
    Show({[&] {
              EXPECT_EQ(Count(WM_KEYUP), 1u) << "a held key is let go";
              EXPECT_NE(Headless().Picture(), before);
              EXPECT_FALSE(Headless().AcceptsText());
              PressKeys({'W', VK_F5});
              MouseAt(LeftButtonDown, {5, 5});
              PostMessage(window_, WM_TIMER, 1, 0);
          },
          [] {
              // Dragged beyond the edge it stays whole.
              const POINT corner = ShownDialog()->Corner();
              MouseAt(LeftButtonDown, {corner.x + 20, corner.y + 10});
              MouseAt(MouseMove, {-500, 10});
              MouseAt(LeftButtonUp, {-500, 10});
          },
          [] {
              EXPECT_EQ(ShownDialog()->Corner(), (POINT{0, kMenuBarHeight}));
              PressKeys({'P'}, kModAlt);  // a message box over it
          },
          [] {
              EXPECT_EQ(ShownDialog(), nullptr);
              PressKeys({VK_RETURN});
          },
          [] {
              EXPECT_EQ(FocusedId(), kHelp);
              PressKeys({VK_ESCAPE, 'Q'});
          }});
    EXPECT_EQ(asked_, (std::vector<int>{kHelp, IDCANCEL}));
    EXPECT_EQ(Headless().Picture(), before) << "nothing of it is left";
    EXPECT_EQ(Count(WM_KEYDOWN) + Count(WM_COMMAND) + Count(WM_LBUTTONDOWN), 0u);
    EXPECT_EQ(Count(WM_TIMER), 1u);
    std::vector<WPARAM> activations;
    for (const MSG& message : Received(WM_ACTIVATE))
        activations.push_back(LOWORD(message.wParam));
    EXPECT_EQ(activations, (std::vector<WPARAM>{WA_INACTIVE, WA_ACTIVE}));
    Push({});
    EXPECT_EQ(Count(WM_KEYDOWN), 1u) << "what came after it is the program's";
}

TEST_F(DialogTest, AloneInTheWindow) {
    Headless().Reset();
    RegisterClass({"alone", DefWindowProc, {}});
    window_ = CreateWindowEx(0, "alone", "Title", WS_CAPTION, {0, 0}, {640, 480});
    const SIZE before = Headless().PictureSize();
    const auto close = [] { Headless().Push({.type = CloseRequested}); };
    const auto look = [&] {
        EXPECT_TRUE(Headless().IsVisible());
        EXPECT_EQ(Headless().Title(), "Settings");
        EXPECT_EQ(Headless().PictureSize(), (SIZE{360, 162}));
        EXPECT_EQ(Headless().PixelAt(1, 1), kFaceColour);
    };
    const auto disableCancel = [](HDLG dialog) {
        EnableWindow(GetDlgItem(dialog, IDCANCEL), false);
    };
    EXPECT_EQ(Show({look, [] { PressKeys({'P'}, kModAlt); }, [] { PressKeys({VK_RETURN}); }, look,
                    close}),
              IDCANCEL);
    EXPECT_FALSE(Headless().IsVisible());
    EXPECT_EQ(Headless().Title(), "Title");
    EXPECT_EQ(Headless().PictureSize(), before);
    EXPECT_FALSE(TakeEnd());
    EXPECT_EQ(Show({close}, disableCancel), -1);
    EXPECT_TRUE(TakeEnd());
}

TEST_F(DialogTest, EditBox) {
    Start();
    struct Case {
        const char* way;
        const char* before;
        std::function<void()> act;
        std::string after;
    };
    const auto type = [](std::u32string_view text) { Headless().PushText(text); };
    const auto press = [](std::initializer_list<std::uint8_t> keys, std::uint8_t modifiers = 0) {
        PressKeys(keys, modifiers);
    };
    const Case cases[] = {
        {"Tab selects all", "old", [&] { type(U"new"); }, "new"},
        {"ends", "ac",
         [&] {
             press({VK_END});
             type(U"d");
             press({VK_HOME});
             type(U"_");
         },
         "_acd"},
        {"in the middle", "ac",
         [&] {
             press({VK_HOME, VK_RIGHT});
             type(U"b");
         },
         "abc"},
        {"Shift selects", "abcd",
         [&] {
             press({VK_HOME});
             press({VK_RIGHT, VK_RIGHT}, kModShift);
             press({VK_DELETE});
         },
         "cd"},
        {"whole characters", "aäß€",
         [&] {
             press({VK_END, VK_BACK, VK_LEFT, VK_BACK});
         },
         "aß"},
        {"no UTF-8", "a\xE2\x82",
         [&] {
             press({VK_END, VK_BACK, VK_BACK});
         },
         "a"},
        {"erasing at the ends", "a",
         [&] {
             press({VK_END, VK_DELETE, VK_HOME, VK_BACK});
         },
         "a"},
        {"cut and paste", "abc",
         [&] {
             press({'A', 'X', 'V', 'V'}, kModControl);
         },
         "abcabc"},
        {"copy", "abc",
         [&] {
             press({'A', 'C'}, kModControl);
             press({VK_END});
             press({'V'}, kModControl);
         },
         "abcabc"},
        {"first line only", "",
         [&] {
             Headless().SetClipboardText("a\tb\nc");
             press({'V'}, kModControl);
         },
         "ab"},
        {"limit", "", [&] { type(std::u32string(40, 'x')); }, std::string(31, 'x')},
        {"no half character", "", [&] { type(std::u32string(30, 'x') + U"äy"); },
         std::string(30, 'x') + "y"},
        {"words", "one two",
         [&] {
             press({VK_END});
             press({VK_LEFT}, kModControl);
             type(U"_");
         },
         "one _two"},
        {"mouse", "abc", [&] { ClickItem(kName); }, "abc"},
        {"dragged over", "abc",
         [&] {
             const POINT at = CentreOfItem(kName);
             MouseAt(LeftButtonDown, at);
             MouseAt(MouseMove, {0, at.y});
             MouseAt(LeftButtonUp, {0, at.y});
             type(U"z");
         },
         "z"},
        {"Alt+letter is no typing", "abc",
         [&] {
             press({'W'}, kModAlt);
             type(U"w");
         },
         "abc"},
    };
    for (const Case& c : cases) {
        Show({[&] {
                  PressKeys({'Q'}, kModAlt);
                  PressKeys({VK_TAB});
              },
              [&] {
                  EXPECT_TRUE(Headless().AcceptsText());
                  c.act();
              },
              [&] {
                  EXPECT_EQ(Name(), c.after) << c.way;
                  PressKeys({VK_ESCAPE});
              }},
             [&](HDLG dialog) { SetDlgItemText(dialog, kName, c.before); });
        EXPECT_FALSE(Headless().AcceptsText());
    }
}

TEST_F(DialogTest, ListBox) {
    Start();
    // Apple banana cherry Date fig | pear Plum: five rows of seven.
    struct Case {
        const char* way;
        int selected;
        std::function<void()> act;
        int after;
        int firstSeen;
    };
    const auto press = [](std::initializer_list<std::uint8_t> keys) {
        return [list = std::vector(keys)] {
            for (const std::uint8_t key : list)
                PressKeys({key});
        };
    };
    const auto row = [](int number) {
        const RECT& place = List().Place();
        const POINT corner = ShownDialog()->Corner();
        return POINT{corner.x + place.left + 10, corner.y + place.top + 2 + 15 * number + 7};
    };
    const auto bar = [](int fromBottom) {
        const RECT& place = List().Place();
        const POINT corner = ShownDialog()->Corner();
        return POINT{corner.x + place.right - 8, corner.y + place.bottom - 2 - fromBottom};
    };
    const Case cases[] = {
        {"Down from nothing", LB_ERR, press({VK_DOWN}), 0, 0},
        {"Up at the top", 0, press({VK_UP}), 0, 0},
        {"End", 0, press({VK_END}), 6, 2},
        {"Down at the end", 6, press({VK_DOWN}), 6, 2},
        {"Home", 6, press({VK_HOME}), 0, 0},
        {"Page down", 0, press({VK_NEXT}), 4, 0},
        {"Page up past the top", 3, press({VK_PRIOR}), 0, 0},
        {"letter", 0, press({'P'}), 5, 1},
        {"letter again", 0, press({'P', 'P'}), 6, 2},
        {"letter wraps", 6, press({'D'}), 3, 2},
        {"letter of none", 1, press({'Z'}), 1, 0},
        {"click", LB_ERR,
         [&] {
             MouseAt(LeftButtonDown, row(2));
             MouseAt(LeftButtonUp, row(2));
         },
         2, 0},
        {"drag", LB_ERR,
         [&] {
             MouseAt(LeftButtonDown, row(0));
             MouseAt(MouseMove, row(3));
             MouseAt(LeftButtonUp, row(3));
         },
         3, 0},
        {"held below", 0,
         [&] {
             MouseAt(LeftButtonDown, row(1));
             MouseAt(MouseMove, row(9));
             Headless().PushLater(360, Mouse(LeftButtonUp, row(9)));
         },
         6, 2},
        {"wheel", 0,
         [&] {
             HostEvent event = Mouse(Wheel, row(1));
             event.amount = -1;
             Headless().Push(event);
         },
         0, 2},
        {"arrow", 0,
         [&] {
             MouseAt(LeftButtonDown, bar(8));
             MouseAt(LeftButtonUp, bar(8));
         },
         0, 1},
        {"thumb", 0,
         [&] {
             MouseAt(LeftButtonDown, bar(55));
             MouseAt(MouseMove, bar(0));
             MouseAt(LeftButtonUp, bar(0));
         },
         0, 2},
    };
    for (const Case& c : cases) {
        Show({c.act,
              [&] {
                  EXPECT_EQ(List().Selected(), c.after) << c.way;
                  EXPECT_EQ(List().FirstSeen(), c.firstSeen) << c.way;
                  PressKeys({VK_ESCAPE});
              }},
             [&](HDLG dialog) { ListBox_SetCurSel(GetDlgItem(dialog, kList), c.selected); });
    }
    Show({[] { PressKeys({VK_ESCAPE}); }}, [](HDLG dialog) {
        const HCTL list = GetDlgItem(dialog, kList);
        EXPECT_EQ(ListBox_FindStringExact(list, "DATE"), 3);
        EXPECT_EQ(ListBox_FindStringExact(list, "Dat"), LB_ERR);
        ListBox_SetCurSel(list, 3);
        EXPECT_EQ(ListBox_AddString(list, "blueberry"), 2);
        EXPECT_EQ(ListBox_GetText(list, ListBox_GetCurSel(list)), "Date");
        ListBox_AddString(list, std::string(255, '\xFF'));
        ListBox_SetCurSel(list, 8);
    });
}

TEST_F(DialogTest, ScrollBar) {
    Start();
    // 150 pixels: arrows of 16, so that the track has 118, and the thumb 118 * 10 / 160 = 7: 8.
    const auto at = [](int x) {
        const RECT& place = GetDlgItem(ShownDialog(), kBar)->Place();
        const POINT corner = ShownDialog()->Corner();
        return POINT{corner.x + place.left + x, corner.y + (place.top + place.bottom) / 2};
    };
    struct Case {
        const char* way;
        int from;
        std::function<void()> act;
        int to;
        std::vector<int> asked;  // requests plus 100
    };
    const auto hold = [&](int x, std::uint32_t time) {
        return [=] {
            MouseAt(LeftButtonDown, at(x));
            Headless().PushLater(time, Mouse(LeftButtonUp, at(x)));
        };
    };
    const auto drag = [&](int from, int to) {
        return [=] {
            MouseAt(LeftButtonDown, at(from));
            MouseAt(MouseMove, at(to));
            MouseAt(LeftButtonUp, at(to));
        };
    };
    const auto press = [](std::uint8_t key) { return [key] { PressKeys({key}); }; };
    const Case cases[] = {
        {"right arrow", 50, hold(140, 100), 51, {101, 108}},
        {"held: at 300 and 350 ms again", 50, hold(140, 360), 53, {101, 101, 101, 108}},
        {"left arrow at the end", 0, hold(3, 100), 0, {100, 108}},
        {"trough", 50, hold(100, 100), 60, {103, 108}},
        {"trough up to the pointer", 50, hold(74, 1000), 70, {103, 103, 108}},
        {"thumb to the end", 0, drag(20, 500), 150, {105, 104, 108}},
        {"thumb to the middle", 0, drag(20, 20 + 55), 75, {105, 104, 108}},
        {"thumb held still", 0, drag(20, 20), 0, {104, 108}},
        {"Right", 50, press(VK_RIGHT), 51, {101, 108}},
        {"Page down at the top", 145, press(VK_NEXT), 150, {103, 108}},
        {"End", 50, press(VK_END), 50, {107, 108}},
    };
    for (const Case& c : cases) {
        Show({[] { PressKeys({VK_TAB}); }, c.act,
              [&] {
                  EXPECT_EQ(BarPosition(), c.to) << c.way;
                  EXPECT_EQ(asked_, c.asked) << c.way;
                  PressKeys({VK_ESCAPE});
              }},
             [&](HDLG dialog) {
                 SetScrollInfo(GetDlgItem(dialog, kBar), {.mask = SIF_POS, .position = c.from});
             });
    }
}

// Whatever happens ------------------------------------------------------------------------------

TEST_F(DialogTest, RandomInput) {
    Start();
    std::mt19937 random(20260722);
    int left = 20'000;
    prepare_ = [](HDLG dialog) { SetDlgItemText(dialog, kName, "some\xFF name"); };
    Headless().WhenWaiting([&] {
        if (HDLG const dialog = ShownDialog()) {
            EXPECT_GE(List().Selected(), LB_ERR);
            EXPECT_LT(List().Selected(), List().Count());
            EXPECT_GE(List().FirstSeen(), 0);
            EXPECT_LE(List().FirstSeen(), List().Count() - List().Rows());
            EXPECT_GE(BarPosition(), 0);
            EXPECT_LE(BarPosition(), 150);
            EXPECT_LE(std::ranges::count(Checked().substr(0, 3), '1'), 1);
            EXPECT_LE(Name().size(), 31u);
            EXPECT_TRUE(!dialog->Focus() || dialog->Focus()->IsEnabled());
        }
        for (int i = 0; i < 5; ++i, --left)
            Headless().Push(RandomDialogEvent(random));
        // The mouse is not held for ever.
        Headless().PushLater(200, Mouse(LeftButtonUp, {300, 200}));
    });
    int shown = 0;
    for (; left > 0 && !HasFailure(); ++shown)
        EXPECT_NE(DialogBox(kDialog, window_, Procedure), 0);
    EXPECT_GT(shown, 50);
    Headless().WhenWaiting(nullptr);
}

}  // namespace
}  // namespace korvane
