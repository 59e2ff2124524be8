#include <functional>
#include <string>

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
    /// Flags and running games as "menu", "scores" or "game right left".
    static std::string Shows() {
        if (menuShowing) return highScoresShowing ? "menu and scores" : "menu";
        if (highScoresShowing) return "scores";
        return std::string("game") + (rightPlayer->IsRunning() ? " right" : "") +
               (leftPlayer->IsRunning() ? " left" : "");
    }
};

TEST_F(CommandTest, ASwitchFlipsItsSettingAndItsButtonAndBack) {
    struct Case {
        std::uint16_t command;
        bool* setting;
        MenuButton button;
        POINT press = {};
    };
    const Case kCases[] = {
        {kCmdQuakes, &theSettings.quakes, MenuButton::Quakes, {280, 350}},
        {kCmdBattle, &theSettings.battle, MenuButton::Battle, {410, 350}},
        {kCmdMusic, &theSettings.music, MenuButton::Music, {160, 270}},
        {kCmdSoundEffects, &theSettings.soundEffects, MenuButton::SoundEffects, {160, 310}},
        {kCmdRightTimeBased, &theSettings.timeBased[0], MenuButton::RightTime, {400, 300}},
        {kCmdLeftTimeBased, &theSettings.timeBased[1], MenuButton::LeftTime, {280, 300}},
        {kCmdRightClockwise, &theSettings.clockwise[0], MenuButton::RightClockwise},
        {kCmdLeftClockwise, &theSettings.clockwise[1], MenuButton::LeftClockwise},
    };
    theSettings.players = 2;
    Start();
    for (const Case& c : kCases) {
        for (const bool byPress : {false, true}) {
            if (byPress && c.press == POINT{}) continue;
            const bool before = *c.setting;
            for (const bool want : {!before, before}) {
                byPress ? Click(c.press.x, c.press.y) : Command(c.command);
                EXPECT_EQ(*c.setting, want) << c.command << byPress;
                EXPECT_EQ(theMenuScreen->IsSelected(c.button), want) << c.command << byPress;
            }
        }
    }
}

/// Command 0: the window menu has none for the choice.
TEST_F(CommandTest, AChoiceIsMadeByCommandAndByPressOnceOrTwice) {
    struct Case {
        std::uint16_t command;
        POINT press;
        std::function<void(SettingsValues&)> choose;
    };
    const auto level = [](std::size_t side, int difficulty) {
        return [=](SettingsValues& values) { values.difficulty[side] = difficulty; };
    };
    const auto turn = [](std::size_t side, bool clockwise) {
        return [=](SettingsValues& values) { values.clockwise[side] = clockwise; };
    };
    const auto players = [](std::uint8_t count) {
        return [=](SettingsValues& values) { values.players = count; };
    };
    const Case kCases[] = {
        {kCmdTwoPlayers, {160, 190}, players(2)},
        {kCmdRightHard, {400, 220}, level(0, 2)},
        {kCmdRightMedium, {400, 180}, level(0, 1)},
        {kCmdRightEasy, {400, 150}, level(0, 0)},
        {kCmdLeftHard, {280, 220}, level(1, 2)},
        {kCmdLeftMedium, {280, 180}, level(1, 1)},
        {kCmdLeftEasy, {280, 150}, level(1, 0)},
        {0, {440, 265}, turn(0, true)},
        {0, {330, 265}, turn(1, true)},
        {0, {400, 265}, turn(0, false)},
        {0, {280, 265}, turn(1, false)},
        {kCmdOnePlayer, {160, 150}, players(1)},
    };
    Start();
    for (const bool byPress : {false, true}) {
        for (const Case& c : kCases) {
            if (!byPress && c.command == 0) continue;
            SettingsValues want = theSettings;
            c.choose(want);
            for (int repeat = 0; repeat < 2; ++repeat) {
                byPress ? Click(c.press.x, c.press.y) : Command(c.command);
                EXPECT_EQ(static_cast<const SettingsValues&>(theSettings), want)
                    << c.press.x << ", " << c.press.y;
            }
        }
    }
}

TEST_F(CommandTest, KeysGiveCommands) {
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

TEST_F(CommandTest, AnInactiveWindowStaysOutOfFullScreen) {
    Start();
    for (const bool active : {false, true}) {
        appActive = active;
        Command(kCmdToggleFullScreen);
        EXPECT_EQ(Headless().IsFullScreen(), active);
        EXPECT_EQ(theSettings.windowed, !active);
    }
}

TEST_F(CommandTest, GamesAreStartedAndLeft) {
    Start();
    Command(kCmdRightRestart);
    EXPECT_EQ(Shows(), "game right");
    EXPECT_EQ(theSettings.players, 1);
    Command(kCmdLeftRestart);
    EXPECT_EQ(Shows(), "game right left") << "the left player comes in, the right one plays on";
    EXPECT_EQ(theSettings.players, 2);
    EXPECT_EQ(theMenuScreen->PlayersFromButtons(), 1);
    Command(kCmdGotoMenu);
    EXPECT_EQ(Shows(), "menu");
    EXPECT_EQ(theSettings.players, 1) << "what the buttons show";
    EXPECT_FALSE(rightPlayer->IsJoined() || leftPlayer->IsJoined());

    Command(kCmdNewGame);
    EXPECT_EQ(Shows(), "game right left");
    EXPECT_EQ(theMenuScreen->PlayersFromButtons(), 2);
    Command(kCmdBattle);
    Command(kCmdGotoMenu);
    Command(kCmdLeftRestart);
    Command(kCmdRightRestart);
    EXPECT_EQ(Shows(), "menu") << "battles start for both at once";
}

TEST_F(CommandTest, OtherCommandsAreNobodys) {
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
