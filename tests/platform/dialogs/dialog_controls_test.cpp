#include "tests/platform/dialogs/dialog_fixture.h"

namespace korvane {
namespace {

/// A place counted from the left (negative: the right) and top (negative: bottom) of a control.
MousePlace In(std::uint16_t id, int right, int down) {
    return [=] {
        const RECT dialog = ShownDialog()->Place();
        const RECT& place = GetDlgItem(ShownDialog(), id)->Place();
        return POINT{dialog.left + right + (right < 0 ? place.right : place.left),
                     dialog.top + down + (down < 0 ? place.bottom : place.top)};
    };
}

Act Wheel(const MousePlace& at, int notches) {
    return [=] {
        HostEvent event = Mouse(HostEventType::Wheel, at());
        event.amount = notches;
        Headless().Push(event);
    };
}

TEST_F(DialogTest, EditBox) {
    struct Case {
        const char* way;
        std::string before;
        Acts acts;
        std::string after;
    };
    const auto outOnTheLeft = [] { return POINT{0, Item(kName)().y}; };
    const auto clipLines = [] { Headless().SetClipboardText("a\tb\nc"); };
    const auto forty = [] { Headless().PushText(std::u32string(40, 'x')); };
    const auto thirty = [] { Headless().PushText(std::u32string(30, 'x')); };
    const Case cases[] = {
        {"Tab selects all", "old", {U"new"}, "new"},
        {"ends", "ac", {VK_END, U"d", VK_HOME, U"_"}, "_acd"},
        {"in the middle", "ac", {VK_HOME, VK_RIGHT, U"b"}, "abc"},
        {"Shift selects", "abcd", {VK_HOME, Shift(VK_RIGHT), Shift(VK_RIGHT), VK_DELETE}, "cd"},
        {"whole characters", "aäß€", {VK_END, VK_BACK, VK_LEFT, VK_BACK}, "aß"},
        {"no UTF-8", "a\xE2\x82", {VK_END, VK_BACK, VK_BACK}, "a"},
        {"erasing at the ends", "a", {VK_END, VK_DELETE, VK_HOME, VK_BACK}, "a"},
        {"cut, paste", "abc", {Ctrl('A'), Ctrl('X'), Ctrl('V'), Ctrl('V')}, "abcabc"},
        {"copy", "abc", {Ctrl('A'), Ctrl('C'), VK_END, Ctrl('V')}, "abcabc"},
        {"first line only", "", {clipLines, Ctrl('V')}, "ab"},
        {"limit", "", {forty}, std::string(31, 'x')},
        {"no half character", "", {thirty, U"äy"}, std::string(30, 'x') + "y"},
        {"words", "one two", {VK_END, Ctrl(VK_LEFT), U"_"}, "one _two"},
        {"mouse", "abc", {ClickOn(kName)}, "abc"},
        {"press behind a letter's middle", "WWW", {ClickOn(In(kName, 14, 6)), U"_"}, "W_WW"},
        {"dragged over", "abc", {Drag(Item(kName), outOnTheLeft), U"z"}, "z"},
        // The text that was longer than the field is seen from its beginning again.
        {"no gap behind the text",
         std::string(31, 'W'),
         {VK_END, Times(28, VK_BACK), ClickOn(In(kName, 3, 6)), U"_"},
         "_WWW"},
        {"Alt+letter is no typing", "abc", {Alt('W'), U"w"}, "abc"},
    };
    for (const Case& c : cases) {
        Acts acts = {Alt('Q'), VK_TAB, [] { EXPECT_TRUE(Headless().AcceptsText()); }};
        acts.insert(acts.end(), c.acts.begin(), c.acts.end());
        Try(
            acts, [&] { EXPECT_EQ(Name(), c.after) << c.way; },
            [&](HDLG dialog) { SetDlgItemText(dialog, kName, c.before); });
        EXPECT_FALSE(Headless().AcceptsText());
    }
}

TEST_F(DialogTest, ListBox) {
    // Apple banana cherry Date fig | pear Plum: five rows of seven.
    struct Case {
        const char* way;
        int selected;
        Acts acts;
        int after;
        int firstSeen;
    };
    const auto row = [](int number) { return In(kList, 10, 2 + 15 * number + 7); };
    const auto bar = [](int fromBottom) { return In(kList, -8, -2 - fromBottom); };
    const auto heldOff = [&](int down) {
        return [=] {
            const POINT off{row(0)().x, row(0)().y + down};
            Headless().Push(Mouse(HostEventType::LeftButtonDown, row(1)()));
            Headless().Push(Mouse(HostEventType::MouseMove, off));
            Headless().PushLater(360, Mouse(HostEventType::LeftButtonUp, off));
        };
    };
    const Case cases[] = {
        {"Down from nothing", LB_ERR, {VK_DOWN}, 0, 0},
        {"Up at the top", 0, {VK_UP}, 0, 0},
        {"End", 0, {VK_END}, 6, 2},
        {"Down at the end", 6, {VK_DOWN}, 6, 2},
        {"Home", 6, {VK_HOME}, 0, 0},
        {"Page down", 0, {VK_NEXT}, 4, 0},
        {"Page up past the top", 3, {VK_PRIOR}, 0, 0},
        {"letter", 0, {'P'}, 5, 1},
        {"letter again", 0, {'P', 'P'}, 6, 2},
        {"letter wraps", 6, {'D'}, 3, 2},
        {"letter of none", 1, {'Z'}, 1, 0},
        {"click", LB_ERR, {ClickOn(row(2))}, 2, 0},
        {"drag", LB_ERR, {Drag(row(0), row(3))}, 3, 0},
        {"held below", 0, {heldOff(135)}, 6, 2},
        {"held just above", 6, {heldOff(-12)}, 0, 0},
        {"wheel", 0, {Wheel(row(1), -1)}, 0, 2},
        {"arrow", 0, {ClickOn(bar(8))}, 0, 1},
        {"thumb", 0, {Drag(bar(55), bar(0))}, 0, 2},
    };
    for (const Case& c : cases) {
        Try(
            c.acts,
            [&] {
                EXPECT_EQ(List().Selected(), c.after) << c.way;
                EXPECT_EQ(List().FirstSeen(), c.firstSeen) << c.way;
            },
            [&](HDLG dialog) { ListBox_SetCurSel(GetDlgItem(dialog, kList), c.selected); });
    }
    Show({VK_ESCAPE}, [](HDLG dialog) {
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
    // 150 pixels: arrows of 16, so that the track has 118, and the thumb 118 * 10 / 160 = 7: 8.
    struct Case {
        const char* way;
        int from;
        Act act;
        int to;
        std::vector<int> asked;  // requests plus 100
    };
    const auto at = [](int x) { return In(kBar, x, 7); };
    const auto letGoOfA = [] {
        Headless().PushKey(VK_RIGHT, true);
        Headless().PushKey('A', false);
        PressKeys({VK_RIGHT});
    };
    const Case cases[] = {
        {"right arrow", 50, Hold(at(140), 100), 51, {101, 108}},
        {"held: at 300 and 350 ms again", 50, Hold(at(140), 360), 53, {101, 101, 101, 108}},
        {"left arrow at the end", 0, Hold(at(3), 100), 0, {100, 108}},
        {"trough", 50, Hold(at(100), 100), 60, {103, 108}},
        {"trough up to the pointer", 50, Hold(at(74), 1000), 70, {103, 103, 108}},
        {"thumb to the end", 0, Drag(at(20), at(500)), 150, {105, 104, 108}},
        {"thumb to the middle", 0, Drag(at(20), at(20 + 55)), 75, {105, 104, 108}},
        {"thumb held still", 0, Drag(at(20), at(20)), 0, {104, 108}},
        {"wheel towards the user", 50, Wheel(at(70), -1), 53, {101, 101, 101, 108}},
        {"wheel away at the end", 1, Wheel(at(70), 2), 0, {100, 100, 100, 100, 100, 100, 108}},
        {"Right", 50, VK_RIGHT, 51, {101, 108}},
        {"Right is held while another key comes up", 50, letGoOfA, 52, {101, 101, 108}},
        {"Page down at the top", 145, VK_NEXT, 150, {103, 108}},
        {"End", 50, VK_END, 150, {107, 108}},
    };
    for (const Case& c : cases) {
        Try(
            {VK_TAB, c.act},
            [&] {
                EXPECT_EQ(BarPosition(), c.to) << c.way;
                EXPECT_EQ(asked_, c.asked) << c.way;
            },
            [&](HDLG dialog) {
                SetScrollInfo(GetDlgItem(dialog, kBar), {.mask = SIF_POS, .position = c.from});
            });
    }
}

}  // namespace
}  // namespace korvane
