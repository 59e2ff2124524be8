#include "platform/menu.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/typeface.h"
#include "res/menu.h"
#include "tests/support/menu_window.h"

namespace korvane {
namespace {

using enum HostEventType;
using Commands = std::vector<std::uint16_t>;

constexpr std::size_t kFile = 0;
constexpr std::size_t kEdit = 1;
constexpr std::size_t kNone = kNoEntry;
constexpr POINT kOnGame = {400, 300};

class MenuTest : public MenuWindowTest {};

TEST_F(MenuTest, MouseWays) {
    Start();
    const POINT file = TitleCentre(kFile);
    const POINT edit = TitleCentre(kEdit);
    const auto item = [](std::size_t popup, std::size_t index) { return ItemCentre(popup, index); };
    struct Case {
        const char* way;
        std::vector<HostEvent> events;
        std::size_t popup;
        Commands commands;
    };
    const auto down = [](POINT at) { return Mouse(LeftButtonDown, at); };
    const auto up = [](POINT at) { return Mouse(LeftButtonUp, at); };
    const auto move = [](POINT at) { return Mouse(MouseMove, at); };
    const Case cases[] = {
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
    };
    for (const Case& c : cases) {
        for (const HostEvent& event : c.events)
            Push({event});
        EXPECT_EQ(ShownPopup(), c.popup) << c.way;
        EXPECT_EQ(Count(WM_LBUTTONDOWN), 0u) << c.way;
        EXPECT_EQ(TakeCommands(), c.commands) << c.way;
        Push({{.type = Deactivated}});
        EXPECT_EQ(ShownPopup(), kNone) << c.way;
    }
}

TEST_F(MenuTest, KeyboardWays) {
    Start();
    struct Case {
        const char* way;
        std::vector<HostEvent> events;
        std::size_t popup;
        Commands commands;
    };
    const auto press = [](std::uint8_t key, std::uint8_t modifiers = 0) {
        return Key(key, true, modifiers);
    };
    const HostEvent altDown = Key(VK_MENU, true, kModAlt);
    const HostEvent altUp = Key(VK_MENU, false);
    const HostEvent altF = press('F', kModAlt);
    const HostEvent enter = press(VK_RETURN);
    const Case cases[] = {
        {"Alt, Down, Return", {altDown, altUp, press(VK_DOWN), enter}, kNone, {kOpen}},
        {"Alt, letter", {altDown, altUp, press('E')}, kEdit, {}},
        {"F10, Right, Return, Return",
         {press(VK_F10), press(VK_RIGHT), enter, enter},
         kNone,
         {kUndo}},
        {"Alt+letter, letter", {altDown, altF, altUp, press('C')}, kNone, {kClose}},
        {"Alt+other letter", {altDown, press('Q', kModAlt), altUp, enter}, kNone, {}},
        {"Alt between a click", {altDown, Mouse(LeftButtonDown, kOnGame), altUp, enter}, kNone, {}},
        {"Down past the separator", {altF, press(VK_DOWN), enter}, kNone, {kClose}},
        {"Up wraps to the greyed end", {altF, press(VK_UP), enter}, kFile, {}},
        {"its letter", {altF, press('G')}, kFile, {}},
        {"Down wraps",
         {altF, press(VK_DOWN), press(VK_DOWN), press(VK_DOWN), enter},
         kNone,
         {kOpen}},
        {"Left wraps, first item", {altF, press(VK_LEFT), enter}, kNone, {kUndo}},
        {"Esc goes to the bar", {altF, press(VK_ESCAPE), press('E')}, kEdit, {}},
        {"Esc, Esc", {altF, press(VK_ESCAPE), press(VK_ESCAPE), enter}, kNone, {}},
        {"Alt closes", {altF, altDown, altUp, enter}, kNone, {}},
        {"held Down", {altF, Key(VK_DOWN, true, 0, true), enter}, kNone, {kClose}},
        {"held Return", {altF, Key(VK_RETURN, true, 0, true)}, kFile, {}},
        {"pointer at rest",
         {Mouse(MouseMove, kOnGame), altF, press(VK_DOWN), Mouse(MouseMove, {401, 300}), enter},
         kNone,
         {kClose}},
    };
    for (const Case& c : cases) {
        for (const HostEvent& event : c.events)
            Push({event});
        EXPECT_EQ(ShownPopup(), c.popup) << c.way;
        EXPECT_EQ(TakeCommands(), c.commands) << c.way;
        Push({{.type = Deactivated}});
    }
}

TEST_F(MenuTest, GameIsNotSteeredButSeesReleases) {
    Start();
    Push({Key(VK_LEFT, true)});
    Click(TitleCentre(kFile));
    Push({Key('A', true), Key('A', false), Key(VK_LEFT, false), Key(VK_F5, true)});
    EXPECT_EQ(ShownPopup(), kFile);
    EXPECT_EQ(Count(WM_KEYDOWN), 1u);
    EXPECT_EQ(Count(WM_KEYUP), 2u);
    EXPECT_EQ(Count(WM_COMMAND), 0u);
    EXPECT_EQ(Count(WM_ACTIVATE), 0u);

    Tap(VK_ESCAPE);  // to the bar
    received_.clear();
    Push({Key('A', true), Mouse(LeftButtonDown, kOnGame), Key('B', true)});
    EXPECT_EQ(Count(WM_LBUTTONDOWN), 0u);
    ASSERT_EQ(Count(WM_KEYDOWN), 1u);
    EXPECT_EQ(Received(WM_KEYDOWN)[0].wParam, WPARAM{'B'});
}

TEST_F(MenuTest, AsksForItsStatesBeforeItShows) {
    Start();
    std::vector<std::size_t> shownThen;
    onMessage_ = [&](const MSG& message) {
        if (message.message != WM_INITMENUPOPUP) return;
        EXPECT_EQ(reinterpret_cast<HMENU>(message.wParam), GetMenu(window_));
        shownThen.push_back(ShownPopup());
    };
    Push({Key('F', true, kModAlt)});
    Push({Key(VK_RIGHT, true)});
    EXPECT_EQ(shownThen, (std::vector{kNone, kFile}));
    EXPECT_EQ(ShownPopup(), kEdit);
}

TEST_F(MenuTest, ClosesWhenTheWindowIsNoLongerThere) {
    Start();
    for (const HostEventType type :
         {Deactivated, Minimized, Restored, Resized, CloseRequested, Terminate}) {
        onMessage_ = [](const MSG& message) { EXPECT_NE(message.message, WM_QUIT); };
        Push({Key('E', true, kModAlt)});
        EXPECT_EQ(ShownPopup(), kEdit);
        Screen().Push({.type = type});
        MSG message;
        PeekMessage(message, PM_NOREMOVE);
        EXPECT_EQ(ShownPopup(), kNone) << static_cast<int>(type);
        while (PeekMessage(message, PM_REMOVE)) {
        }
    }
}

TEST_F(MenuTest, GatesAccelerators) {
    Start();
    constexpr std::uint8_t kF6 = 0x75;
    constexpr std::uint8_t kF7 = 0x76;
    struct Case {
        bool bar;
        std::uint8_t key;
        Commands delivered;
        std::size_t asked;
    };
    const Case cases[] = {
        {true, VK_F5, {kOpen}, 1},  {true, kF6, {}, 1},         {true, kF7, {kNotInMenu}, 0},
        {false, VK_F5, {kOpen}, 0}, {false, kF6, {kGreyed}, 0}, {false, kF7, {kNotInMenu}, 0},
    };
    for (const Case& c : cases) {
        SetMenu(window_, c.bar ? LoadMenu(kTestMenu) : nullptr);
        Pump();
        received_.clear();
        Push({Key(c.key, true)});
        EXPECT_EQ(Count(WM_INITMENUPOPUP), c.asked) << int{c.key} << c.bar;
        EXPECT_EQ(Count(WM_KEYDOWN), 0u);
        EXPECT_EQ(TakeCommands(), c.delivered) << int{c.key} << c.bar;
    }
}

TEST_F(MenuTest, ClientAreaBeginsBelowTheBar) {
    Start();
    const RECT client{0, 0, 640, 480};
    EXPECT_EQ(GetClientRect(window_), client);
    EXPECT_EQ(Screen().PictureSize(), (SIZE{640, 480 + GetSystemMetrics(SM_CYMENU)}));
    const int below = Screen().ClientArea().top + kMenuBarHeight;
    EXPECT_EQ(ClientToScreen(window_, {0, 0}).y, below);
    Push({Mouse(LeftButtonDown, {30, kMenuBarHeight})});
    EXPECT_EQ(Received(WM_LBUTTONDOWN)[0].lParam, static_cast<LPARAM>(MakeParam(30, 0)));

    SetMenu(window_, nullptr);
    Pump();
    EXPECT_EQ(GetClientRect(window_), client);
    EXPECT_EQ(Screen().PictureSize(), (SIZE{640, 480}));
    Tap(VK_F10);
    Click(TitleCentre(kFile));
    EXPECT_EQ(Count(WM_INITMENUPOPUP), 0u);

    SetMenu(window_, LoadMenu(kTestMenu));
    Pump();
    EXPECT_EQ(GetClientRect(window_), client);
    Click(TitleCentre(kFile));
    EXPECT_EQ(ShownPopup(), kFile);
}

TEST_F(MenuTest, PopupLiesOverTheGameAndLeavesNothingBehind) {
    Start();
    Click(TitleCentre(kFile));
    ASSERT_EQ(ShownPopup(), kFile);
    const auto opened = Screen().Picture();
    const int covered = GamePixelsOtherThan(kGameColour);
    EXPECT_GT(covered, 50 * 50);

    // The game draws everywhere; below the popup it only shows later.
    const RECT patch{0, 0, 300, 20};
    DrawFrame(0x654321, patch, 0xABCDEF);
    EXPECT_EQ(ShownPopup(), kFile);
    EXPECT_EQ(GamePixel(299, 19), 0xABCDEFu);
    EXPECT_EQ(GamePixel(300, 19), 0x654321u);
    DrawFrame(kGameColour);
    EXPECT_EQ(Screen().Picture(), opened);
    DrawFrame(0x654321);
    Tap(VK_ESCAPE);
    EXPECT_EQ(GamePixelsOtherThan(0x654321), 0);
}

TEST_F(MenuTest, NothingIsSentWhenNothingChanges) {
    Start();
    const int before = Screen().Presents();
    DrawFrame(kGameColour);
    Pump();
    EXPECT_EQ(Screen().Presents(), before);
    Click(TitleCentre(kFile));
    EXPECT_GT(Screen().Presents(), before);
    const int opened = Screen().Presents();
    DrawFrame(kGameColour);
    const POINT item = ItemCentre(kFile, 0);
    DrawFrame(kGameColour, {item.x, item.y - kMenuBarHeight, item.x + 2, item.y}, 0xFF);
    Push({Mouse(MouseMove, {500, 400}), Key(VK_SHIFT, true)});
    EXPECT_EQ(Screen().Presents(), opened);
}

TEST_F(MenuTest, LostPictureComesBackWhole) {
    Start();
    Click(TitleCentre(kFile));
    const auto before = Screen().Picture();
    Screen().FailPresents({DDERR_SURFACELOST});
    Push({Key(VK_DOWN, true)});
    Push({Key(VK_ESCAPE, true), Mouse(LeftButtonDown, TitleCentre(kFile))});
    EXPECT_EQ(Screen().Picture(), before);
}

TEST_F(MenuTest, IsAsFineAsTheScreen) {
    Start(2);
    EXPECT_EQ(Screen().PictureSize(), (SIZE{1280, 2 * (480 + kMenuBarHeight)}));
    Push({Key('F', true, kModAlt)});
    ASSERT_EQ(ShownPopup(), kFile);
    const auto isFine = [&](const RECT& area) {
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x)
                if (Screen().PixelAt(2 * x, 2 * y) != Screen().PixelAt(2 * x + 1, 2 * y))
                    return true;
        return false;
    };
    EXPECT_TRUE(isFine({0, 0, 80, kMenuBarHeight}));
    EXPECT_TRUE(isFine({0, kMenuBarHeight, 80, kMenuBarHeight + 40}));
    Push({Key(VK_ESCAPE, true), Key(VK_ESCAPE, true)});
    for (const POINT at : {POINT{0, 2 * kMenuBarHeight}, POINT{1279, 2 * kMenuBarHeight + 959}})
        EXPECT_EQ(Screen().PixelAt(at.x, at.y), kGameColour);
}

TEST_F(MenuTest, EveryPopupOfTheProgramLiesInsideTheWindow) {
    const Menu menu(kWindowMenu);
    const SIZE area{640, 480 + kMenuBarHeight};
    for (const int scale : {1, 2, 3}) {
        for (const MenuPopup& popup : menu.popups) {
            for (const POINT corner : {POINT{0, kMenuBarHeight}, POINT{600, 400}}) {
                const PopupLayout layout = LayOutPopup(popup, corner, area, scale);
                EXPECT_EQ(Intersect(layout.place, {0, 0, area.cx, area.cy}), layout.place);
                EXPECT_EQ(layout.items.size(), popup.items.size());
            }
        }
        EXPECT_LT(LayOutTitles(menu, scale).back().right, area.cx);
    }
}

TEST(MenuLabelTest, TakesTextsApart) {
    struct Case {
        const char* source;
        const char* text;
        const char* hint;
        std::size_t underlined;
        char mnemonic;
    };
    const Case cases[] = {
        {"&New Game\tF3", "New Game", "F3", 0, 'N'},
        {"2 P&layers", "2 Players", "", 3, 'L'},
        {"Clockwise", "Clockwise", "", MenuLabel::kNone, 'C'},
        {"", "", "", MenuLabel::kNone, 0},
        {"odd&", "odd", "", 3, 'O'},
    };
    for (const Case& c : cases) {
        const MenuLabel label(c.source);
        EXPECT_EQ(label.text, c.text);
        EXPECT_EQ(label.hint, c.hint);
        EXPECT_EQ(label.underlined, c.underlined) << c.source;
        EXPECT_EQ(label.mnemonic, c.mnemonic) << c.source;
    }
}

TEST(TypefaceTest, IsLegibleWithoutFontFile) {
    Typeface face("/no/such/font.ttf", 2);
    EXPECT_EQ(face.Width("Abc"), 3 * 6 * 2);
    EXPECT_EQ(face.CapitalHeight(), 14);
    // One replacement for each broken byte, one character for each whole sequence.
    EXPECT_EQ(face.Width("\xC3\xA4\xC3(\xFF\xE2\x82"), 6 * 12);
    const auto drawn = [&](const char* text) {
        PixelBuffer buffer({24, 24}, 4);
        face.Draw(buffer, {-4, 14}, text, 1);  // partly outside
        std::vector<std::uint32_t> pixels;
        for (int y = 0; y < 24; ++y)
            for (int x = 0; x < 24; ++x)
                pixels.push_back(buffer.Pixel({x, y}));
        return pixels;
    };
    EXPECT_EQ(drawn("a"), drawn("A"));
    EXPECT_NE(drawn("a"), drawn("B"));
    EXPECT_NE(drawn("_"), drawn(" "));
    EXPECT_EQ(drawn("~"), drawn("?"));
}

TEST_F(MenuTest, HoldsUnderRandomUse) {
    Start();
    std::mt19937 random(11);
    std::size_t releases = 0;
    bool popupSeen = false;
    bool greyedChosen = false;
    bool pressOnBar = false;
    onMessage_ = [&](const MSG& message) {
        greyedChosen |= message.message == WM_COMMAND && LOWORD(message.wParam) == kGreyed;
        pressOnBar |= message.message == WM_LBUTTONDOWN &&
                      HIWORD(static_cast<std::uintptr_t>(message.lParam)) >= 480;
        if (message.message == WM_KEYUP || message.message == WM_SYSKEYUP) --releases;
    };
    for (int i = 0; i < 100'000; ++i) {
        const HostEvent event = RandomEvent(random);
        if (event.type == KeyUp) ++releases;
        Screen().Push(event);
        Pump();
        received_.clear();
        if (i % 64 == 0) DrawFrame(kGameColour, {0, 0, 40 + i % 50, 60}, static_cast<unsigned>(i));
        popupSeen |= i % 64 == 0 && ShownPopup() != kNone;
        if (i % 1024 != 0) continue;
        DrawFrame(kGameColour);
        Push({{.type = Deactivated}});
        ASSERT_EQ(GamePixelsOtherThan(kGameColour), 0) << i;
    }
    EXPECT_EQ(releases, 0u);
    EXPECT_TRUE(popupSeen);
    EXPECT_FALSE(greyedChosen);
    EXPECT_FALSE(pressOnBar);
}

}  // namespace
}  // namespace korvane
