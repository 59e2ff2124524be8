#include "app/menu_states.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "platform/headless/headless_host.h"
#include "res/menu.h"

namespace korvane {
namespace {

using Commands = std::set<std::uint16_t>;

class MenuStatesTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        theSettings.SetDefaults();
        menuShowing = true;
        showFps = false;
        audioReady = true;
        rightPlayer = std::make_unique<Player>(Side::Right);
        leftPlayer = std::make_unique<Player>(Side::Left);
    }
    void TearDown() override {
        rightPlayer.reset();
        leftPlayer.reset();
        menuShowing = true;
        showFps = audioReady = false;
        theSettings.SetDefaults();
    }

    /// The commands of the items that are greyed (checked) after all were `before_`.
    Commands Items(bool MenuItem::*state) {
        Menu menu(kWindowMenu);
        for (MenuPopup& popup : menu.popups)
            for (MenuItem& item : popup.items)
                item.checked = item.greyed = before_;
        SetMenuStates(&menu);
        Commands commands;
        for (const MenuPopup& popup : menu.popups)
            for (const MenuItem& item : popup.items)
                if (!item.IsSeparator() && item.*state) commands.insert(item.command);
        return commands;
    }

    bool before_ = false;
};

constexpr std::uint16_t kLeftGame[] = {kCmdLeftEasy, kCmdLeftMedium, kCmdLeftHard,
                                       kCmdLeftTimeBased};
constexpr std::uint16_t kRightGame[] = {kCmdRightEasy, kCmdRightMedium, kCmdRightHard,
                                        kCmdRightTimeBased};

TEST_F(MenuStatesTest, GreysWhatCannotBeChosenNow) {
    struct Case {
        int players;
        bool menu;
        bool rightJoined;
        bool leftJoined;
        bool battle;  ///< greyed, as the following
        bool rightGame;
        bool leftGame;
        bool leftClockwise;
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
    for (const Case& c : cases) {
        theSettings.players = static_cast<std::uint8_t>(c.players);
        menuShowing = c.menu;
        rightPlayer->SetJoined(c.rightJoined);
        leftPlayer->SetJoined(c.leftJoined);
        Commands greyed = c.menu ? Commands{kCmdLeftRestart, kCmdRightRestart, kCmdGotoMenu}
                                 : Commands{kCmdHighScores, kCmdOnePlayer, kCmdTwoPlayers};
        if (c.battle) greyed.insert(kCmdBattle);
        if (c.rightGame) greyed.insert(std::begin(kRightGame), std::end(kRightGame));
        if (c.leftGame) greyed.insert(std::begin(kLeftGame), std::end(kLeftGame));
        if (c.leftClockwise) greyed.insert(kCmdLeftClockwise);
        EXPECT_EQ(Items(&MenuItem::greyed), greyed) << c.players << c.menu << c.leftJoined;
    }
    theSettings.fullscreenBpp = 0;
    EXPECT_TRUE(Items(&MenuItem::greyed).contains(kCmdToggleFullScreen));
    before_ = true;
    theSettings.fullscreenBpp = 16;
    EXPECT_FALSE(Items(&MenuItem::greyed).contains(kCmdToggleFullScreen));
    rightPlayer.reset();
    leftPlayer.reset();
    EXPECT_FALSE(Items(&MenuItem::greyed).contains(kCmdRightEasy));
    for (const std::uint16_t sound : {kCmdMusic, kCmdSoundEffects}) {
        audioReady = true;
        EXPECT_FALSE(Items(&MenuItem::greyed).contains(sound));
        audioReady = false;
        EXPECT_TRUE(Items(&MenuItem::greyed).contains(sound));
    }
}

TEST_F(MenuStatesTest, ChecksWhatIsChosen) {
    theSettings.players = 2;
    theSettings.difficulty = {2, 1};
    theSettings.clockwise = {true, false};
    theSettings.timeBased = {false, true};
    theSettings.music = theSettings.quakes = false;
    theSettings.battle = showFps = true;
    EXPECT_EQ(Items(&MenuItem::checked),
              (Commands{kCmdTwoPlayers, kCmdBattle, kCmdShowFps, kCmdSoundEffects, kCmdRightHard,
                        kCmdRightClockwise, kCmdLeftMedium, kCmdLeftTimeBased}));

    theSettings.SetDefaults();
    theSettings.difficulty = {9, -1};
    showFps = false;
    before_ = true;
    const Commands checked = Items(&MenuItem::checked);
    for (const std::uint16_t command :
         {kCmdTwoPlayers, kCmdBattle, kCmdShowFps, kCmdRightEasy, kCmdRightMedium, kCmdRightHard,
          kCmdRightClockwise, kCmdLeftEasy, kCmdLeftHard, kCmdLeftTimeBased})
        EXPECT_FALSE(checked.contains(command)) << command;
}

}  // namespace
}  // namespace korvane
