#include "screens/menu_screen.h"

#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "game/rules/key_bindings.h"
#include "game/rules/random.h"
#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "res/commands.h"
#include "tests/support/program_fixture.h"
#include "tests/support/shown_box.h"

namespace korvane {
namespace {

using enum MenuButton;

using MenuScreenTest = ProgramFixture;

TEST_F(MenuScreenTest, LeftColumnAndBattleAreDisabledForOnePlayer) {
    Start();
    for (const bool two : {false, true}) {
        if (two) theMenuScreen->SelectTwoPlayers();
        for (const auto& [x, y, action] : {std::tuple{280, 150, kMenuLeftEasy},
                                           {280, 180, kMenuLeftMedium},
                                           {280, 210, kMenuLeftHard},
                                           {280, 265, kMenuLeftCounterClockwise},
                                           {330, 265, kMenuLeftClockwise},
                                           {280, 300, kMenuLeftTime},
                                           {410, 350, kMenuBattle}}) {
            EXPECT_EQ(theMenuScreen->Click(x, y), two ? action : kMenuNothing) << x << ", " << y;
            Frame();
            EXPECT_EQ(Seen(x, y).find("2 ") != std::string::npos, !two) << "the disabled look";
        }
    }
}

TEST_F(MenuScreenTest, WithoutAudioOneBoxIsShownAndMusicAndSoundEffectsAreDisabled) {
    Headless().RefuseSound(true);
    const std::vector<std::string> shown = {
        "Can't initialize digital sound system\n(error code: 3)"};
    const BoxAnswerer boxes(shown);
    Start();
    EXPECT_FALSE(audioReady);
    Press(VK_F3);
    Run(2000);
    EXPECT_EQ(Shows(), "game right left");
    for (const std::uint16_t command : {kCmdMusic, kCmdMusic, kCmdGotoMenu})
        Command(command);
    EXPECT_EQ(boxes.Read(), shown);
    Frame();
    EXPECT_EQ(theMenuScreen->Click(160, 270), kMenuNothing);
    EXPECT_EQ(theMenuScreen->Click(160, 310), kMenuNothing);
    EXPECT_EQ(Seen(160, 270), "menu/musicbutt2 1") << "selected, and disabled";
    theMenuScreen->ToggleSfxButton();
    Frame();
    EXPECT_EQ(Seen(160, 310), "menu/sfxbutt2 0");
    audioReady = true;
    Frame();
    EXPECT_EQ(theMenuScreen->Click(160, 270), kMenuMusic);
    EXPECT_EQ(Seen(160, 270), "menu/musicbutt 1");
}

TEST_F(MenuScreenTest, NumbersOutOfRangeSelectOnePlayerAndNoDifficulty) {
    theSettings.players = 7;
    theSettings.difficulty = {3, -1};
    Start();
    const std::set selected = {OnePlayer, RightCounterClockwise, LeftCounterClockwise,
                               Music,     SoundEffects,          Quakes};
    for (int i = 0; i < static_cast<int>(Count); ++i) {
        const auto button = static_cast<MenuButton>(i);
        EXPECT_EQ(theMenuScreen->IsSelected(button), selected.contains(button)) << i;
    }
    EXPECT_FALSE(theMenuScreen->IsEnabled(LeftEasy));
    EXPECT_EQ(theMenuScreen->PlayersFromButtons(), 1);
}

TEST_F(MenuScreenTest, ADifficultyOutOfRangeIsPlayedAsTheNearest) {
    std::vector<std::pair<Board, Board>> games;
    for (const int difficulty : {7, 2, -1, 0}) {
        SetUp();
        theSettings.difficulty = {difficulty, difficulty};
        Start();
        SeedRandom(1);  // the first garbage comes before the game seeds the generator
        Command(kCmdNewGame);
        Run(5000);
        games.emplace_back(rightPlayer->GameBoard(), leftPlayer->GameBoard());
        End();
    }
    EXPECT_TRUE(games[0] == games[1]);
    EXPECT_TRUE(games[2] == games[3]);
    EXPECT_FALSE(games[1] == games[3]);
}

TEST_F(MenuScreenTest, ChoosingOnePlayerSwitchesBattleOff) {
    theSettings.players = 2;
    theSettings.battle = true;
    Start();
    theMenuScreen->SelectOnePlayer();
    EXPECT_FALSE(theSettings.battle);
    theMenuScreen->SelectTwoPlayers();
    EXPECT_FALSE(theMenuScreen->IsSelected(Battle));
    EXPECT_TRUE(theMenuScreen->IsEnabled(Battle));
    EXPECT_EQ(theMenuScreen->PlayersFromButtons(), 2);
}

TEST_F(MenuScreenTest, BackAndResetAreDisabledWhileASlotWaitsForAKey) {
    Start();
    theMenuScreen->ToggleKeyConfigView();
    for (const MenuAction action : {kMenuKeysReset, kMenuNothing}) {
        EXPECT_EQ(theMenuScreen->Click(330, 445), action);
        Frame();
        EXPECT_EQ(Seen(330, 445), "menu/resetbutt 1") << "until something else is pressed";
    }
    EXPECT_EQ(theMenuScreen->Click(340, 110), kMenuSlotArmed);
    Frame();
    EXPECT_EQ(Seen(185, 445), "menu/backbutt2 0");
    EXPECT_EQ(Seen(330, 445), "menu/resetbutt2 0");
    EXPECT_EQ(theMenuScreen->Click(185, 445), kMenuNothing);
    EXPECT_EQ(theMenuScreen->Click(330, 445), kMenuNothing);
    theMenuScreen->OnKeyConfigKey('I');
    Frame();
    EXPECT_EQ(Seen(185, 445), "menu/backbutt 0");
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Right), 'I');
    EXPECT_EQ(theMenuScreen->Click(330, 445), kMenuKeysReset);
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Right), VK_UP);
}

}  // namespace
}  // namespace korvane
