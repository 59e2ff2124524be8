#include <array>
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

class CommandTest : public ProgramFixture {
  protected:
    /// The screen that shows, a game with the players who play: "game right left".
    static std::string Shows() {
        if (menuShowing) return highScoresShowing ? "menu and scores" : "menu";
        if (highScoresShowing) return "scores";
        return std::string("game") + (rightPlayer->IsRunning() ? " right" : "") +
               (leftPlayer->IsRunning() ? " left" : "");
    }
};

template <typename Field>
std::function<void(SettingsValues&)> Set(Field SettingsValues::*field, Field value) {
    return [=](SettingsValues& values) { values.*field = value; };
}
std::function<void(SettingsValues&)> Flip(bool SettingsValues::*field) {
    return [=](SettingsValues& values) { values.*field ^= true; };
}
template <typename Field>
std::function<void(SettingsValues&)> SetOf(Side side, std::array<Field, 2> SettingsValues::*field,
                                           Field value) {
    return [=](SettingsValues& values) { (values.*field)[IndexOf(side)] = value; };
}
std::function<void(SettingsValues&)> FlipOf(Side side, std::array<bool, 2> SettingsValues::*field) {
    return [=](SettingsValues& values) { (values.*field)[IndexOf(side)] ^= true; };
}

TEST_F(CommandTest, CommandsAndPressesChangeTheirSettingAlone) {
    using enum Side;
    using S = SettingsValues;
    constexpr POINT kNoButton{};
    struct Case {
        std::uint16_t command;  ///< 0: the window menu has none
        POINT press;
        std::function<void(SettingsValues&)> change;
    };
    const Case kCases[] = {
        {kCmdTwoPlayers, {160, 190}, Set(&S::players, std::uint8_t{2})},
        {kCmdQuakes, {280, 350}, Flip(&S::quakes)},
        {kCmdBattle, {410, 350}, Flip(&S::battle)},
        {kCmdMusic, {160, 270}, Flip(&S::music)},
        {kCmdSoundEffects, {160, 310}, Flip(&S::soundEffects)},
        {kCmdRightTimeBased, {400, 300}, FlipOf(Right, &S::timeBased)},
        {kCmdLeftTimeBased, {280, 300}, FlipOf(Left, &S::timeBased)},
        {kCmdRightClockwise, kNoButton, FlipOf(Right, &S::clockwise)},
        {kCmdLeftClockwise, kNoButton, FlipOf(Left, &S::clockwise)},
        {0, {440, 265}, SetOf(Right, &S::clockwise, true)},
        {0, {330, 265}, SetOf(Left, &S::clockwise, true)},
        {0, {400, 265}, SetOf(Right, &S::clockwise, false)},
        {0, {280, 265}, SetOf(Left, &S::clockwise, false)},
        {kCmdRightHard, {400, 220}, SetOf(Right, &S::difficulty, 2)},
        {kCmdRightMedium, {400, 180}, SetOf(Right, &S::difficulty, 1)},
        {kCmdRightEasy, {400, 150}, SetOf(Right, &S::difficulty, 0)},
        {kCmdLeftHard, {280, 220}, SetOf(Left, &S::difficulty, 2)},
        {kCmdLeftMedium, {280, 180}, SetOf(Left, &S::difficulty, 1)},
        {kCmdLeftEasy, {280, 150}, SetOf(Left, &S::difficulty, 0)},
        {kCmdOnePlayer, {160, 150}, Set(&S::players, std::uint8_t{1})},
    };
    Start();
    for (const bool byPress : {false, true}) {
        for (const Case& c : kCases) {
            if (byPress ? c.press == kNoButton : c.command == 0) continue;
            for (int times = 0; times < 2; ++times) {
                SettingsValues want = theSettings;
                c.change(want);
                byPress ? Click(c.press.x, c.press.y) : Command(c.command);
                EXPECT_EQ(static_cast<const SettingsValues&>(theSettings), want)
                    << c.command << ": " << c.press.x << ", " << c.press.y;
            }
        }
    }
}

TEST_F(CommandTest, AcceleratorKeysGiveTheirCommandsUnlessTheseAreGreyed) {
    constexpr std::uint8_t kBoth = kModControl | kModShift;
    struct Case {
        std::uint16_t first;  ///< a command from the menu; 0: none
        std::uint8_t key, modifiers;
        const char* shows;
    };
    Start();
    for (const Case& c : {Case{0, VK_F3, 0, "game right left"},
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
                          {kCmdNewGame, 'H', kBoth, "game right left"}}) {
        SCOPED_TRACE(testing::Message() << c.first << " " << int{c.key});
        Command(kCmdGotoMenu);
        if (c.first != 0) Command(c.first);
        Press(c.key, c.modifiers);
        EXPECT_EQ(Shows(), c.shows);
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
