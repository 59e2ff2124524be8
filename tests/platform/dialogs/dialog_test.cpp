#include "platform/dialogs/dialog.h"

#include <algorithm>
#include <random>

#include "tests/platform/dialogs/dialog_fixture.h"

namespace korvane {
namespace {

using enum HostEventType;

TEST_F(DialogTest, KeyboardMovesFocusChecksAndPresses) {
    Start();
    struct Case {
        const char* way;
        std::vector<Act> acts;
        std::uint16_t focus;
        const char* checked;
    };
    const auto pressAndSlipOff = [] {
        MouseAt(LeftButtonDown, CentreOfItem(kTwo));
        MouseAt(LeftButtonUp, {0, 0});
    };
    const Case cases[] = {
        {"first focus", {}, kList, "0100"},
        {"Tab to the checked one", {Tabs(2)}, kFour, "0100"},
        {"a group is one stop", {Tabs(3)}, kLonely, "0100"},
        {"also left from its other buttons", {pressAndSlipOff, VK_TAB}, kLonely, "0100"},
        {"Shift+Tab wraps", {Shift(VK_TAB)}, kHelp, "0100"},
        {"arrow checks", {Tabs(2), VK_RIGHT}, kEight, "0010"},
        {"arrow wraps", {Tabs(2), VK_DOWN, VK_DOWN}, kTwo, "1000"},
        {"back", {Tabs(2), VK_UP}, kTwo, "1000"},
        {"Space checks", {Tabs(3), VK_SPACE}, kLonely, "0101"},
        {"Alt+letter of a group box", {Tabs(2), Alt('S')}, kList, "0100"},
        {"Alt+letter of a text", {Alt('L')}, kBar, "0100"},
        {"Alt+digit", {Alt('2')}, kTwo, "1000"},
        {"no bare letter on a list", {'L'}, kList, "0100"},
        {"bare letter", {VK_TAB, '2'}, kTwo, "1000"},
        {"other letter", {Alt('W')}, kList, "0100"},
    };
    for (const Case& c : cases) {
        const int result = Show({Do(c.acts), [&] {
                                     EXPECT_EQ(FocusedId(), c.focus) << c.way;
                                     EXPECT_EQ(Checked(), c.checked) << c.way;
                                     EXPECT_TRUE(asked_.empty()) << c.way;
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

/// Takes all that waits; true when the program's end is among it.
bool TakeEnd() {
    bool ends = false;
    for (MSG message; PeekMessage(message, PM_REMOVE);)
        ends = ends || message.message == WM_QUIT || message.message == WM_CLOSE ||
               message.message == WM_SYSCOMMAND;
    return ends;
}

TEST_F(DialogTest, WhatEndsIt) {
    Start();
    const auto nothing = [](HDLG) {};
    const auto noCancel = [](HDLG dialog) { EnableWindow(GetDlgItem(dialog, IDCANCEL), false); };
    const auto noOk = [](HDLG dialog) { EnableWindow(GetDlgItem(dialog, IDOK), false); };
    const auto heldReturn = [] { Headless().Push(Key(VK_RETURN, true, 0, true)); };
    const auto slip = [] {
        MouseAt(LeftButtonDown, CentreOfItem(IDOK));
        MouseAt(LeftButtonUp, CentreOfItem(IDCANCEL));
    };
    const auto closeBox = [] {
        const POINT corner = ShownDialog()->Corner();
        return POINT{corner.x + 366 - 10, corner.y + 12};
    };
    struct Case {
        const char* way;
        std::function<void(HDLG)> prepare;
        std::vector<Act> acts;
        int result;  // 0: it stays
    };
    const Case cases[] = {
        {"Return", nothing, {VK_RETURN}, IDOK},
        {"Return, no default", noOk, {VK_RETURN}, 0},
        {"Return on the focused button", nothing, {Tabs(7), VK_RETURN}, IDCANCEL},
        {"Return in an edit", nothing, {Tabs(5), VK_RETURN}, IDOK},
        {"Space on OK", nothing, {Tabs(6), VK_SPACE}, IDOK},
        {"mnemonic", nothing, {Alt('O')}, IDOK},
        {"Esc", nothing, {VK_ESCAPE}, IDCANCEL},
        {"Esc, no Cancel", noCancel, {VK_ESCAPE}, 0},
        {"held Return", nothing, {heldReturn}, 0},
        {"click", nothing, {[] { ClickItem(IDOK); }}, IDOK},
        {"click on greyed", noCancel, {[] { ClickItem(IDCANCEL); }}, 0},
        {"let go elsewhere", nothing, {slip}, 0},
        {"close box", nothing, {Hold(closeBox, 0)}, IDCANCEL},
        {"close box, no Cancel", noCancel, {Hold(closeBox, 0)}, 0},
        {"Alt+F4", nothing, {Alt(VK_F4)}, IDCANCEL},
        {"window closed", nothing, {[] { Headless().Push({.type = CloseRequested}); }}, -1},
        {"terminated", nothing, {[] { Headless().Push({.type = Terminate}); }}, -1},
        {"quit", nothing, {[] { PostQuitMessage(3); }}, -1},
    };
    for (const Case& c : cases) {
        Steps steps = {Do(c.acts)};
        if (c.result == 0) steps.push_back([] { EndDialog(ShownDialog(), 77); });
        EXPECT_EQ(Show(steps, c.prepare), c.result == 0 ? 77 : c.result) << c.way;
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
        EXPECT_NE(DialogBox(kTestDialog, window_, Procedure), 0);
    EXPECT_GT(shown, 50);
    Headless().WhenWaiting(nullptr);
}

}  // namespace
}  // namespace korvane
