#include "platform/window/menu.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/menu_window.h"

namespace korvane {
namespace {

using enum HostEventType;
using Commands = std::vector<std::uint16_t>;

constexpr std::size_t kFile = 0;
constexpr std::size_t kEdit = 1;
constexpr std::size_t kNone = kNoEntry;
constexpr POINT kOnGame = {400, 300};

struct Case {
    const char* way;
    std::vector<HostEvent> events;
    std::size_t popup;
    Commands commands;
};

class MenuTest : public MenuWindowTest {
  protected:
    void Try(const std::vector<Case>& cases) {
        for (const Case& c : cases) {
            for (const HostEvent& event : c.events)
                Push({event});
            EXPECT_EQ(ShownPopup(), c.popup) << c.way;
            // The game hears of a press on it only while no popup takes it.
            EXPECT_EQ(Count(WM_LBUTTONDOWN), c.way == kPressedBetween ? 1u : 0u) << c.way;
            EXPECT_EQ(TakeCommands(), c.commands) << c.way;
            Push({{.type = Deactivated}});
            EXPECT_EQ(ShownPopup(), kNone) << c.way;
        }
    }

    static constexpr const char* kPressedBetween = "Alt between a click";
};

TEST_F(MenuTest, MouseWays) {
    const POINT file = TitleCentre(kFile);
    const POINT edit = TitleCentre(kEdit);
    const auto item = [](std::size_t popup, std::size_t index) { return ItemCentre(popup, index); };
    const auto down = [](POINT at) { return Mouse(LeftButtonDown, at); };
    const auto up = [](POINT at) { return Mouse(LeftButtonUp, at); };
    const auto move = [](POINT at) { return Mouse(MouseMove, at); };
    Try({
        {"a click opens", {down(file), up(file)}, kFile, {}},
        {"a second closes", {down(file), up(file), down(file), up(file)}, kNone, {}},
        {"click, click", {down(file), up(file), down(item(0, 0)), up(item(0, 0))}, kNone, {kOpen}},
        {"drag", {down(file), move(item(0, 2)), up(item(0, 2))}, kNone, {kClose}},
        {"drag off", {down(file), move(kOnGame), up(kOnGame)}, kNone, {}},
        {"drag to the other title", {down(file), move(edit), up(edit)}, kEdit, {}},
        {"hover", {down(file), up(file), move(edit)}, kEdit, {}},
        {"drag across", {down(file), move(edit), up(item(1, 1))}, kNone, {kUndoAll}},
        {"a title at rest does not open", {move(file), move(edit)}, kNone, {}},
        {"greyed", {down(file), up(file), down(item(0, 3)), up(item(0, 3))}, kFile, {}},
        {"separator", {down(file), up(file), down(item(0, 1)), up(item(0, 1))}, kFile, {}},
        {"outside", {down(file), up(file), down(kOnGame), up(kOnGame)}, kNone, {}},
        {"empty end of the bar", {down({600, 5}), up({600, 5})}, kNone, {}},
    });
}

TEST_F(MenuTest, KeyboardWays) {
    const auto press = [](std::uint8_t key, std::uint8_t modifiers = 0) {
        return Key(key, true, modifiers);
    };
    const HostEvent altDown = Key(VK_MENU, true, kModAlt);
    const HostEvent altUp = Key(VK_MENU, false);
    const HostEvent altF = press('F', kModAlt);
    const HostEvent enter = press(VK_RETURN);
    const HostEvent down = press(VK_DOWN);
    const HostEvent esc = press(VK_ESCAPE);
    const auto rest = [](int x) { return Mouse(MouseMove, {x, kOnGame.y}); };
    Try({
        {"Alt, Down, Return", {altDown, altUp, down, enter}, kNone, {kOpen}},
        {"Alt, letter", {altDown, altUp, press('E')}, kEdit, {}},
        {"F10, Right, Return", {press(VK_F10), press(VK_RIGHT), enter, enter}, kNone, {kUndo}},
        {"Alt+letter, letter", {altDown, altF, altUp, press('C')}, kNone, {kClose}},
        {"Alt+other letter", {altDown, press('Q', kModAlt), altUp, enter}, kNone, {}},
        {kPressedBetween, {altDown, Mouse(LeftButtonDown, kOnGame), altUp, enter}, kNone, {}},
        {"Down past the separator", {altF, down, enter}, kNone, {kClose}},
        {"Up wraps to the greyed end", {altF, press(VK_UP), enter}, kFile, {}},
        {"its letter", {altF, press('G')}, kFile, {}},
        {"a letter of two", {press('E', kModAlt), press('U'), enter}, kNone, {kUndoAll}},
        {"twice", {press('E', kModAlt), press('U'), press('U'), enter}, kNone, {kUndo}},
        {"Down wraps", {altF, down, down, down, enter}, kNone, {kOpen}},
        {"Left wraps, first item", {altF, press(VK_LEFT), enter}, kNone, {kUndo}},
        {"Esc goes to the bar", {altF, esc, press('E')}, kEdit, {}},
        {"Esc, Esc", {altF, esc, esc, enter}, kNone, {}},
        {"Alt closes", {altF, altDown, altUp, enter}, kNone, {}},
        {"held Down", {altF, Key(VK_DOWN, true, 0, true), enter}, kNone, {kClose}},
        {"held Return", {altF, Key(VK_RETURN, true, 0, true)}, kFile, {}},
        {"pointer at rest", {rest(400), altF, down, rest(401), enter}, kNone, {kClose}},
    });
}

TEST_F(MenuTest, AMenuThatIsReplacedWhileItOpensStaysClosed) {
    replacesMenu_ = true;
    Try({
        {"mouse", {Mouse(LeftButtonDown, TitleCentre(kFile))}, kNone, {}},
        {"key", {Key('F', true, kModAlt), Key(VK_RETURN, true)}, kNone, {}},
    });
    replacesMenu_ = false;
}

}  // namespace
}  // namespace korvane
