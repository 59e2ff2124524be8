#include "platform/dialogs/dialog.h"

#include "tests/platform/dialogs/dialog_fixture.h"

namespace korvane {
namespace {

TEST_F(DialogTest, KeyboardMovesFocusChecksAndPresses) {
    struct Case {
        const char* way;
        Acts acts;
        std::uint16_t focus;
        const char* checked;
    };
    const auto nowhere = [] { return POINT{0, 0}; };
    const Case cases[] = {
        {"first focus", {}, kList, "0100"},
        {"Tab to the checked one", {Times(2, VK_TAB)}, kFour, "0100"},
        {"a group is one stop", {Times(3, VK_TAB)}, kLonely, "0100"},
        {"also left from its other buttons", {Drag(Item(kTwo), nowhere), VK_TAB}, kLonely, "0100"},
        {"Shift+Tab wraps", {Shift(VK_TAB)}, kHelp, "0100"},
        {"arrow checks", {Times(2, VK_TAB), VK_RIGHT}, kEight, "0010"},
        {"arrow wraps", {Times(2, VK_TAB), VK_DOWN, VK_DOWN}, kTwo, "1000"},
        {"back", {Times(2, VK_TAB), VK_UP}, kTwo, "1000"},
        {"Space checks", {Times(3, VK_TAB), VK_SPACE}, kLonely, "0101"},
        {"Alt+letter of a group box", {Times(2, VK_TAB), Alt('S')}, kList, "0100"},
        {"Alt+letter of a text", {Alt('L')}, kBar, "0100"},
        {"Alt+digit", {Alt('2')}, kTwo, "1000"},
        {"no bare letter on a list", {'L'}, kList, "0100"},
        {"bare letter", {VK_TAB, '2'}, kTwo, "1000"},
        {"other letter", {Alt('W')}, kList, "0100"},
    };
    for (const Case& c : cases)
        Try(c.acts, [&] {
            EXPECT_EQ(FocusedId(), c.focus) << c.way;
            EXPECT_EQ(Checked(), c.checked) << c.way;
            EXPECT_TRUE(asked_.empty()) << c.way;
        });
}

TEST_F(DialogTest, FocusIsTheProgramsChoiceAndLeavesWhatIsDisabled) {
    chooseFocus_ = false;
    const auto has = [](std::uint16_t id) { return [=] { EXPECT_EQ(FocusedId(), id); }; };
    const auto disableList = [] { EnableWindow(GetDlgItem(ShownDialog(), kList), false); };
    Try({has(0), VK_TAB, has(kList), disableList, has(kBar), Shift(VK_TAB)}, has(kHelp));
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

void PushClose() {
    Headless().Push({.type = HostEventType::CloseRequested});
}

/// Greys a button.
auto Without(std::uint16_t id) {
    return [=](HDLG dialog) { EnableWindow(GetDlgItem(dialog, id), false); };
}

TEST_F(DialogTest, WhatEndsIt) {
    const auto all = [](HDLG) {};
    const auto held = [](std::uint8_t key) {
        return [=] { Headless().Push(Key(key, true, 0, true)); };
    };
    const auto onOk = [](HostEventType type) {
        return [=] { Headless().Push(Mouse(type, Item(IDOK)())); };
    };
    const auto closeBox = [] {
        return POINT{ShownDialog()->Place().right - 10, ShownDialog()->Place().top + 12};
    };
    struct Case {
        const char* way;
        Prepare prepare;
        Acts acts;
        int result;  // 0: it stays
    };
    const Case cases[] = {
        {"Return", all, {VK_RETURN}, IDOK},
        {"Return, no default", Without(IDOK), {VK_RETURN}, 0},
        {"Return on the focused button", all, {Times(7, VK_TAB), VK_RETURN}, IDCANCEL},
        {"Return in an edit", all, {Times(5, VK_TAB), VK_RETURN}, IDOK},
        {"Space on OK", all, {Times(6, VK_TAB), VK_SPACE}, IDOK},
        {"mnemonic", all, {Alt('O')}, IDOK},
        {"Esc", all, {VK_ESCAPE}, IDCANCEL},
        {"Esc, no Cancel", Without(IDCANCEL), {VK_ESCAPE}, 0},
        {"held Return", all, {held(VK_RETURN)}, 0},
        {"held Esc", all, {held(VK_ESCAPE)}, 0},
        {"click", all, {ClickOn(IDOK)}, IDOK},
        {"click on greyed", Without(IDCANCEL), {ClickOn(IDCANCEL)}, 0},
        {"let go elsewhere", all, {Drag(Item(IDOK), Item(IDCANCEL))}, 0},
        {"pressed before a box and let go after it",
         all,
         {onOk(HostEventType::LeftButtonDown), Alt('P'), VK_RETURN,
          onOk(HostEventType::LeftButtonUp)},
         0},
        {"close box", all, {ClickOn(closeBox)}, IDCANCEL},
        {"close box, no Cancel", Without(IDCANCEL), {ClickOn(closeBox)}, 0},
        {"Alt+F4", all, {Alt(VK_F4)}, IDCANCEL},
        {"window closed", all, {PushClose}, IDCANCEL},
        {"window closed, no Cancel", Without(IDCANCEL), {PushClose}, 0},
        {"window closed under a box", all, {Alt('P'), PushClose}, 0},
        {"terminated", all, {[] { Headless().Push({.type = HostEventType::Terminate}); }}, -1},
        {"quit", all, {[] { PostQuitMessage(3); }}, -1},
    };
    for (const Case& c : cases) {
        Acts acts = c.acts;
        if (c.result == 0) acts.emplace_back([] { EndDialog(ShownDialog(), 77); });
        EXPECT_EQ(Show(acts, c.prepare), c.result == 0 ? 77 : c.result) << c.way;
        EXPECT_EQ(TakeEnd(), c.result == -1) << c.way;
    }
}

TEST_F(DialogTest, TheOwnerRestsMeanwhile) {
    Push({Key('W', true)});
    received_.clear();
    const std::vector<std::uint32_t> before = Headless().Picture();
    const auto caption = [] {
        return POINT{ShownDialog()->Place().left + 20, ShownDialog()->Place().top + 10};
    };
    const auto farLeft = [] { return POINT{-500, 10}; };
    Show({[&] {
              EXPECT_EQ(Count(WM_KEYUP), 1u) << "a held key is released";
              EXPECT_NE(Headless().Picture(), before);
              EXPECT_FALSE(Headless().AcceptsText());
              PressKeys({'W', VK_F5});
              Headless().Push(Mouse(HostEventType::LeftButtonDown, {5, 5}));
              PostMessage(window_, WM_TIMER, 1, 0);
          },
          Drag(caption, farLeft),
          [] {
              const RECT place = ShownDialog()->Place();
              EXPECT_EQ((POINT{place.left, place.top}), (POINT{0, kMenuBarHeight})) << "inside";
              PressKeys({'P'}, kModAlt);  // a message box over it
          },
          [] { EXPECT_EQ(ShownDialog(), nullptr); }, VK_RETURN,
          [] {
              EXPECT_EQ(FocusedId(), kHelp);
              PressKeys({VK_ESCAPE, 'Q'});
          }});
    EXPECT_EQ(asked_, (std::vector<int>{kHelp, IDCANCEL}));
    EXPECT_EQ(Headless().Picture(), before) << "nothing of it is left";
    EXPECT_EQ(Count(WM_KEYDOWN) + Count(WM_COMMAND) + Count(WM_LBUTTONDOWN), 0u);
    EXPECT_EQ(Count(WM_TIMER), 1u);
    EXPECT_EQ(Received(WM_ACTIVATE),
              (std::vector<Seen>{{WM_ACTIVATE, WA_INACTIVE, 0}, {WM_ACTIVATE, WA_ACTIVE, 0}}));
    Push({});
    EXPECT_EQ(Count(WM_KEYDOWN), 1u) << "keys after it are the program's";
}

TEST_F(DialogTest, AloneInTheWindow) {
    for (const int scale : {1, 2}) {
        DestroyWindow(window_);
        Headless().Reset();
        Headless().SetDensity({double(scale), {}, {}});
        RegisterClass({"alone", DefWindowProc, {}});
        window_ = CreateWindowEx(0, "alone", "Title", WS_CAPTION, {0, 0}, {640, 480});
        const SIZE before = Headless().PictureSize();
        const auto look = [&] {
            EXPECT_TRUE(Headless().IsVisible());
            EXPECT_EQ(Headless().Title(), "Settings");
            EXPECT_EQ(Headless().PictureSize(), (SIZE{360 * scale, 162 * scale}));
            EXPECT_EQ(Headless().PixelAt(360 * scale - 1, 162 * scale - 1), kFaceColour);
        };
        EXPECT_EQ(Show({look, Alt('P'), VK_RETURN, look, PushClose}), IDCANCEL);
        EXPECT_FALSE(Headless().IsVisible());
        EXPECT_EQ(Headless().Title(), "Title");
        EXPECT_EQ(Headless().PictureSize(), before);
        EXPECT_FALSE(TakeEnd());
        EXPECT_EQ(Show({PushClose}, Without(IDCANCEL)), -1);
        EXPECT_TRUE(TakeEnd());
    }
}

}  // namespace
}  // namespace korvane
