#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "platform/headless/headless_host.h"
#include "res/commands.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"
#include "tests/support/program_fixture.h"
#include "tests/support/shown_box.h"

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
        int command;
        bool* setting;
        MenuButton button;
        int clickX, clickY;
    };
    theSettings.players = 2;
    Start();
    audioReady = true;
    Frame();
    const Case kCases[] = {
        {kCmdQuakes, &theSettings.quakes, MenuButton::Quakes, 280, 350},
        {kCmdBattle, &theSettings.battle, MenuButton::Battle, 410, 350},
        {kCmdMusic, &theSettings.music, MenuButton::Music, 160, 270},
        {kCmdSoundEffects, &theSettings.soundEffects, MenuButton::SoundEffects, 160, 310},
        {kCmdRightTimeBased, &theSettings.timeBased[0], MenuButton::RightTime, 400, 300},
        {kCmdLeftTimeBased, &theSettings.timeBased[1], MenuButton::LeftTime, 280, 300},
        {kCmdRightClockwise, &theSettings.clockwise[0], MenuButton::RightClockwise, 0, 0},
        {kCmdLeftClockwise, &theSettings.clockwise[1], MenuButton::LeftClockwise, 0, 0},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.command);
        const bool before = *c.setting;
        const auto flipsAndBack = [&](const std::function<void()>& act) {
            for (const bool want : {!before, before}) {
                act();
                EXPECT_EQ(*c.setting, want);
                EXPECT_EQ(theMenuScreen->IsSelected(c.button), want);
            }
        };
        flipsAndBack([&] { Command(static_cast<std::uint16_t>(c.command)); });
        if (c.clickX != 0) flipsAndBack([&] { Click(c.clickX, c.clickY); });
    }
}

TEST_F(CommandTest, DifficultyAndRotationAreChosenByCommandAndByPress) {
    struct Case {
        int command;
        int x, y;
        Side side;
        int level;
    };
    theSettings.players = 2;
    Start();
    const Case kCases[] = {
        {kCmdRightHard, 400, 220, Side::Right, 2}, {kCmdRightMedium, 400, 180, Side::Right, 1},
        {kCmdRightEasy, 400, 150, Side::Right, 0}, {kCmdLeftHard, 280, 220, Side::Left, 2},
        {kCmdLeftMedium, 280, 180, Side::Left, 1}, {kCmdLeftEasy, 280, 150, Side::Left, 0},
    };
    for (const bool byPress : {false, true}) {
        for (const Case& c : kCases) {
            auto want = theSettings.difficulty;
            want[IndexOf(c.side)] = c.level;
            for (int repeat = 0; repeat < 2; ++repeat) {
                byPress ? Click(c.x, c.y) : Command(static_cast<std::uint16_t>(c.command));
                EXPECT_EQ(theSettings.difficulty, want);
            }
        }
    }
    for (const auto& [x, side, clockwise] : {std::tuple{440, Side::Right, true},
                                             {440, Side::Right, true},
                                             {330, Side::Left, true},
                                             {400, Side::Right, false},
                                             {280, Side::Left, false}}) {
        Click(x, 265);
        EXPECT_EQ(theSettings.clockwise[IndexOf(side)], clockwise) << x;
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
