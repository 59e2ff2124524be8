#include <functional>
#include <string>
#include <tuple>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "res/commands.h"
#include "screens/menu_screen.h"
#include "tests/support/program_fixture.h"

namespace korvane {
namespace {

using CommandTest = ProgramFixture;

TEST_F(CommandTest, CommandsAndPressesChangeTheirSettingAlone) {
    using S = SettingsValues;
    constexpr std::size_t kRight = IndexOf(Side::Right);
    constexpr std::size_t kLeft = IndexOf(Side::Left);
    constexpr POINT kNoButton{};
    // Without a command (0) or a button.
    const std::tuple<std::uint16_t, POINT, std::function<void(S&)>> kCases[] = {
        {kCmdTwoPlayers, {160, 190}, [](S& s) { s.players = 2; }},
        {kCmdQuakes, {280, 350}, [](S& s) { s.quakes ^= true; }},
        {kCmdBattle, {410, 350}, [](S& s) { s.battle ^= true; }},
        {kCmdMusic, {160, 270}, [](S& s) { s.music ^= true; }},
        {kCmdSoundEffects, {160, 310}, [](S& s) { s.soundEffects ^= true; }},
        {kCmdRightTimeBased, {400, 300}, [](S& s) { s.timeBased[kRight] ^= true; }},
        {kCmdLeftTimeBased, {280, 300}, [](S& s) { s.timeBased[kLeft] ^= true; }},
        {kCmdRightClockwise, kNoButton, [](S& s) { s.clockwise[kRight] ^= true; }},
        {kCmdLeftClockwise, kNoButton, [](S& s) { s.clockwise[kLeft] ^= true; }},
        {0, {440, 265}, [](S& s) { s.clockwise[kRight] = true; }},
        {0, {330, 265}, [](S& s) { s.clockwise[kLeft] = true; }},
        {0, {400, 265}, [](S& s) { s.clockwise[kRight] = false; }},
        {0, {280, 265}, [](S& s) { s.clockwise[kLeft] = false; }},
        {kCmdRightHard, {400, 220}, [](S& s) { s.difficulty[kRight] = 2; }},
        {kCmdRightMedium, {400, 180}, [](S& s) { s.difficulty[kRight] = 1; }},
        {kCmdRightEasy, {400, 150}, [](S& s) { s.difficulty[kRight] = 0; }},
        {kCmdLeftHard, {280, 220}, [](S& s) { s.difficulty[kLeft] = 2; }},
        {kCmdLeftMedium, {280, 180}, [](S& s) { s.difficulty[kLeft] = 1; }},
        {kCmdLeftEasy, {280, 150}, [](S& s) { s.difficulty[kLeft] = 0; }},
        {kCmdOnePlayer, {160, 150}, [](S& s) { s.players = 1; }},
    };
    Start();
    for (const bool byPress : {false, true}) {
        for (const auto& [command, press, change] : kCases) {
            if (byPress ? press == kNoButton : command == 0) continue;
            for (int times = 0; times < 2; ++times) {
                SettingsValues want = theSettings;
                change(want);
                byPress ? Click(press.x, press.y) : Command(command);
                EXPECT_EQ(static_cast<const SettingsValues&>(theSettings), want)
                    << command << ": " << press.x << ", " << press.y;
            }
        }
    }
}

TEST_F(CommandTest, AcceleratorKeysGiveTheirCommandsUnlessTheseAreGreyed) {
    constexpr std::uint8_t kBoth = kModControl | kModShift;
    // First a command from the menu, 0 for none.
    const std::tuple<std::uint16_t, std::uint8_t, std::uint8_t, const char*> kCases[] = {
        {0, VK_F3, 0, "game right left"},
        {0, VK_F2, 0, "menu"},  // greyed
        {0, 'H', kBoth, "scores"},
        {0, 'H', kModControl, "menu"},
        {kCmdHighScores, 'H', kBoth, "scores"},
        {kCmdHighScores, VK_F12, 0, "menu"},
        {kCmdHighScores, VK_F3, 0, "game right left"},
        {kCmdRightRestart, VK_F1, 0, "game right left"},
        {kCmdLeftRestart, VK_F2, 0, "game right left"},
        {kCmdNewGame, VK_ESCAPE, 0, "menu"},
        {kCmdNewGame, VK_F12, 0, "menu"},
        {kCmdNewGame, VK_F12, kModShift, "game right left"},
        {kCmdNewGame, 'H', kBoth, "game right left"},
    };
    Start();
    for (const auto& [first, key, modifiers, shows] : kCases) {
        Command(kCmdGotoMenu);
        if (first != 0) Command(first);
        Press(key, modifiers);
        EXPECT_EQ(Shows(), shows) << first << " " << int{key};
    }
    Press('G', kBoth);
    EXPECT_TRUE(showFps);
    Press('X', kBoth);
    Frame();
    EXPECT_FALSE(IsRunning());
}

TEST_F(CommandTest, FullScreenNeedsAnActiveWindowAndAMode) {
    Start();
    for (const auto& [active, bits, toggles] :
         {std::tuple{false, 16u, false}, {true, 0u, false}, {true, 16u, true}}) {
        appActive = active;
        theSettings.fullscreenBpp = bits;
        Command(kCmdToggleFullScreen);
        EXPECT_EQ(Headless().IsFullScreen(), toggles);
        EXPECT_EQ(theSettings.windowed, !toggles);
        EXPECT_EQ((GetWindowLong(mainWindow, GWL_STYLE) & WS_SYSMENU) != 0, !toggles);
    }
}

TEST_F(CommandTest, ALeftPlayerWhoJoinsByCommandLeavesWithTheGame) {
    Start();
    Command(kCmdRightRestart);
    EXPECT_EQ(theSettings.players, 1);
    Command(kCmdLeftRestart);
    EXPECT_EQ(theSettings.players, 2);
    EXPECT_EQ(theMenuScreen->PlayersFromButtons(), 1);
    Command(kCmdGotoMenu);
    EXPECT_EQ(theSettings.players, 1) << "what the buttons show";
    EXPECT_FALSE(rightPlayer->IsJoined() || leftPlayer->IsJoined());
    Command(kCmdNewGame);
    EXPECT_EQ(theMenuScreen->PlayersFromButtons(), 2);
    Command(kCmdBattle);
    Command(kCmdGotoMenu);
    Command(kCmdLeftRestart);
    Command(kCmdRightRestart);
    EXPECT_EQ(Shows(), "menu") << "battles start for both at once";
}

TEST_F(CommandTest, OtherIdsDoNothing) {
    Start();
    const SettingsValues before = theSettings;
    for (const int id : {0, 999, 1003, 40000, 40109, 65535})
        Command(static_cast<std::uint16_t>(id));
    EXPECT_EQ(static_cast<const SettingsValues&>(theSettings), before);
    EXPECT_EQ(Shows(), "menu");
    SendMessage(mainWindow, WM_COMMAND, MakeParam(kCmdQuakes, 0x1234), 0);
    EXPECT_NE(theSettings.quakes, before.quakes) << "only the low half is the command";
}

}  // namespace
}  // namespace korvane
