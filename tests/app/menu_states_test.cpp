#include "app/menu_states.h"

#include <set>
#include <utility>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "res/menu.h"
#include "tests/support/program_fixture.h"

namespace korvane {
namespace {

using Commands = std::set<std::uint16_t>;

class MenuStatesTest : public ProgramFixture {
  protected:
    /// The commands of the items that are greyed (or checked). `before`: all were, or none.
    static Commands Items(bool MenuItem::*state, bool before = false) {
        Menu menu(kWindowMenu);
        for (MenuPopup& popup : menu.popups)
            for (MenuItem& item : popup.items)
                item.checked = item.greyed = before;
        SetMenuStates(&menu);
        Commands commands;
        for (const MenuPopup& popup : menu.popups)
            for (const MenuItem& item : popup.items)
                if (!item.IsSeparator() && item.*state) commands.insert(item.command);
        return commands;
    }
};

constexpr std::uint16_t kLeftGame[] = {kCmdLeftEasy, kCmdLeftMedium, kCmdLeftHard,
                                       kCmdLeftTimeBased};
constexpr std::uint16_t kRightGame[] = {kCmdRightEasy, kCmdRightMedium, kCmdRightHard,
                                        kCmdRightTimeBased};

TEST_F(MenuStatesTest, ItemsThatCannotBeChosenAreGreyed) {
    struct Case {
        std::uint8_t players;
        bool menu, rightJoined, leftJoined;
        bool battle, rightGame, leftGame, leftClockwise;  ///< greyed
    };
    const Case cases[] = {
        {1, true, false, false, true, false, true, true},
        {1, false, true, false, true, true, true, true},
        {1, false, true, true, true, true, true, true},
        {2, true, false, false, false, false, false, false},
        {2, false, false, true, true, false, true, false},
        {2, false, true, true, true, true, true, false},
        {7, true, true, false, false, true, false, false},
    };
    Start();
    for (const Case& c : cases) {
        theSettings.players = c.players;
        menuShowing = c.menu;
        rightPlayer->SetJoined(c.rightJoined);
        leftPlayer->SetJoined(c.leftJoined);
        Commands greyed = c.menu ? Commands{kCmdLeftRestart, kCmdRightRestart, kCmdGotoMenu}
                                 : Commands{kCmdHighScores, kCmdOnePlayer, kCmdTwoPlayers};
        if (c.battle) greyed.insert(kCmdBattle);
        if (c.rightGame) greyed.insert(std::begin(kRightGame), std::end(kRightGame));
        if (c.leftGame) greyed.insert(std::begin(kLeftGame), std::end(kLeftGame));
        if (c.leftClockwise) greyed.insert(kCmdLeftClockwise);
        EXPECT_EQ(Items(&MenuItem::greyed), greyed) << int{c.players} << c.menu << c.leftJoined;
        for (const auto& [command, greyedIt] : {std::pair{kCmdBattle, c.battle},
                                                {kCmdRightEasy, c.rightGame},
                                                {kCmdLeftClockwise, c.leftClockwise}})
            EXPECT_EQ(Items(&MenuItem::greyed, true).contains(command), greyedIt)
                << "when all were greyed";
    }
    for (const bool has : {false, true}) {
        theSettings.fullscreenBpp = has ? 16 : 0;
        audioReady = has;
        for (const std::uint16_t command : {kCmdToggleFullScreen, kCmdMusic, kCmdSoundEffects})
            EXPECT_EQ(Items(&MenuItem::greyed, has).contains(command), !has) << command;
    }
    rightPlayer.reset();
    leftPlayer.reset();
    EXPECT_FALSE(Items(&MenuItem::greyed, true).contains(kCmdRightEasy))
        << "before the players exist";
}

TEST_F(MenuStatesTest, ItemsOfWhatIsChosenAreChecked) {
    theSettings.players = 2;
    theSettings.difficulty = {2, 1};
    theSettings.clockwise = {true, false};
    theSettings.timeBased = {false, true};
    theSettings.music = false;
    theSettings.battle = showFps = true;
    EXPECT_EQ(Items(&MenuItem::checked),
              (Commands{kCmdTwoPlayers, kCmdBattle, kCmdShowFps, kCmdQuakes, kCmdSoundEffects,
                        kCmdRightHard, kCmdRightClockwise, kCmdLeftMedium, kCmdLeftTimeBased}));

    theSettings.SetDefaults();
    theSettings.difficulty = {9, -1};
    showFps = theSettings.quakes = theSettings.music = theSettings.soundEffects = false;
    const Commands checked = Items(&MenuItem::checked, true);
    for (const std::uint16_t command :
         {kCmdTwoPlayers, kCmdBattle, kCmdShowFps, kCmdQuakes, kCmdMusic, kCmdSoundEffects,
          kCmdRightEasy, kCmdRightMedium, kCmdRightHard, kCmdRightClockwise, kCmdLeftEasy,
          kCmdLeftHard, kCmdLeftTimeBased})
        EXPECT_FALSE(checked.contains(command)) << command;
}

}  // namespace
}  // namespace korvane
