#include <cstdlib>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "app/window_proc.h"
#include "game/frame/game_frame.h"
#include "game/rules/key_bindings.h"
#include "gfx/display.h"
#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "res/commands.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"
#include "tests/support/program_fixture.h"
#include "tests/support/shown_box.h"

namespace korvane {
namespace {

constexpr POINT kStartButton{160, 410};
constexpr POINT kQuitButton{285, 410};
constexpr POINT kAboutButton{160, 350};
constexpr POINT kKeysButton{160, 230};
constexpr POINT kNowhere{60, 470};
constexpr POINT kMenuButton{215, 445};
constexpr POINT kPlayButton{335, 445};

class InputTest : public ProgramFixture {
  protected:
    void ClickAt(POINT point) { Click(point.x, point.y); }

    void ShowScores() {
        Command(kCmdHighScores);
        Frame();
    }

    static bool GameShows() { return !menuShowing && !highScoresShowing; }
};

// Presses. ---------------------------------------------------------------------------------------

TEST_F(InputTest, APressedButtonIsSeenForAWhileBeforeItActs) {
    Start();
    ClickAt(kStartButton);
    Run(150);
    EXPECT_EQ(Seen(kStartButton.x, kStartButton.y), "menu/startbutt 1");
    SendMessage(mainWindow, WM_TIMER, 4, 0);
    EXPECT_TRUE(menuShowing) << "another timer is nobody's";
    Run(80);
    EXPECT_TRUE(GameShows());
    EXPECT_FALSE(theMenuScreen->IsSelected(MenuButton::Start));
    EXPECT_EQ(pendingClick, kMenuStart) << "kept, but its timer is gone";
    Command(kCmdGotoMenu);
    Run(1000);
    EXPECT_TRUE(menuShowing);
}

TEST_F(InputTest, ALaterPressReplacesTheOneThatWaits) {
    struct Case {
        const char* what;
        POINT later;
        bool starts, credits;
    };
    for (const Case& c :
         {Case{"nowhere", kNowhere, false, false}, Case{"a switch", {280, 350}, false, false},
          Case{"another delayed button", kAboutButton, false, true},
          Case{"the same again", kStartButton, true, false}}) {
        SCOPED_TRACE(c.what);
        Start();
        ClickAt(kStartButton);
        Run(100);
        ClickAt(c.later);
        Run(2 * kPressedLookPassed);
        EXPECT_EQ(GameShows(), c.starts);
        EXPECT_EQ(Text(110, 116, 7, 16) == "KORVANE", c.credits);
        End();
        menuShowing = true;
    }
}

TEST_F(InputTest, QuitEndsTheProgramAfterItsLook) {
    Start();
    ClickAt(kQuitButton);
    Run(150);
    EXPECT_TRUE(IsRunning());
    Run(100);
    EXPECT_FALSE(IsRunning());
    EXPECT_EQ(theMenuScreen, nullptr);
    EXPECT_EQ(currentDisplay, nullptr);
}

TEST_F(InputTest, ViewsOpenAndCloseWithTheirButtons) {
    Start();
    ClickAt(kKeysButton);
    Run(kPressedLookPassed);
    EXPECT_TRUE(theMenuScreen->IsKeyConfigView());
    Click(190, 450);
    Run(kPressedLookPassed);
    EXPECT_FALSE(theMenuScreen->IsKeyConfigView());
    ClickAt(kAboutButton);
    Run(kPressedLookPassed);
    EXPECT_FALSE(theMenuScreen->IsSelected(MenuButton::About));
    Click(280, 445);
    Run(kPressedLookPassed);
    Frame();
    EXPECT_EQ(Seen(kAboutButton.x, kAboutButton.y), "menu/aboutbutt 0");
}

TEST_F(InputTest, AnyOtherNumberOfPlayersStartsNothing) {
    theSettings.players = 3;
    Start();
    ClickAt(kStartButton);
    Run(kPressedLookPassed);
    EXPECT_TRUE(menuShowing);
    EXPECT_FALSE(theMenuScreen->IsSelected(MenuButton::Start)) << "it is let go all the same";
}

TEST_F(InputTest, TheHighScoresLeadToTheMenuAndToAnotherGame) {
    theSettings.players = 2;
    Start();
    ShowScores();
    ClickAt(kPlayButton);
    Frame();
    EXPECT_EQ(Seen(kPlayButton.x, kPlayButton.y), "HighScore/playButt 1");
    Run(kPressedLookPassed);
    EXPECT_TRUE(GameShows() && rightPlayer->IsRunning() && leftPlayer->IsRunning());
    Command(kCmdGotoMenu);
    ShowScores();
    EXPECT_EQ(Seen(kPlayButton.x, kPlayButton.y), "HighScore/playButt 0");
    ClickAt(kMenuButton);
    Run(kPressedLookPassed);
    EXPECT_TRUE(menuShowing);
    EXPECT_FALSE(highScoresShowing);
}

TEST_F(InputTest, LeavingTheHighScoresResetsThePlayersOfTheMatch) {
    for (const int players : {1, 2}) {
        theSettings.players = static_cast<std::uint8_t>(players);
        Start();
        rightPlayer->DeclareWinner();
        leftPlayer->DeclareWinner();
        ShowScores();
        ClickAt(kMenuButton);
        Run(kPressedLookPassed);
        EXPECT_EQ(rightPlayer->Wins(), players == 1 ? 0 : 1);
        EXPECT_EQ(leftPlayer->Wins(), players == 1 ? 1 : 0);
        End();
        menuShowing = true;
    }
}

TEST_F(InputTest, DuringAGamePressesDoNothing) {
    Start();
    Command(kCmdRightRestart);
    pendingClick = 77;
    for (const POINT& point : {kStartButton, kQuitButton, kMenuButton, kPlayButton})
        ClickAt(point);
    Run(1000);
    EXPECT_EQ(pendingClick, 77);
    EXPECT_TRUE(GameShows());
}

TEST_F(InputTest, PressesCountFromInsideTheFrame) {
    Start();
    struct Case {
        bool windowed;
        int x, y;
        int click;
    };
    // In full screen 4 and 23 pixels further: the very first pixel of the button.
    for (const Case& c :
         {Case{true, -1, -1, kMenuNothing}, Case{true, -32768, 32767, kMenuNothing},
          Case{true, 32767, -32768, kMenuNothing}, Case{true, 640, 480, kMenuNothing},
          Case{true, 160 - 65536 / 2, 410, kMenuNothing}, Case{false, 152 + 1, 380 + 1, kMenuStart},
          Case{false, 152, 380 + 1, kMenuNothing}, Case{false, -3, -20, kMenuNothing}}) {
        theSettings.windowed = c.windowed;
        SendMessage(mainWindow, WM_LBUTTONDOWN, 0, static_cast<LPARAM>(MakeParam(c.x, c.y)));
        EXPECT_EQ(pendingClick, c.click) << c.windowed << ", " << c.x << ", " << c.y;
    }
}

// Keys. ------------------------------------------------------------------------------------------

TEST_F(InputTest, APauseKeyIsItsOwnersButInBattleBoths) {
    struct Case {
        const char* what;
        bool battle;
        std::uint8_t leftKey, key;
        bool right, left;  ///< paused afterwards
    };
    for (const Case& c :
         {Case{"right", false, 'T', 'P', true, false}, Case{"left", false, 'T', 'T', false, true},
          Case{"a key of both is the left one's first", false, 'P', 'P', false, true},
          Case{"battle, right", true, 'T', 'P', true, true},
          Case{"battle, left", true, 'T', 'T', true, true}}) {
        theSettings.battle = c.battle;
        Start();
        keyBindings.Key(Action::Pause, Side::Left) = c.leftKey;
        Command(kCmdNewGame);
        Press(c.key);
        EXPECT_EQ(rightPlayer->IsPaused(), c.right) << c.what;
        EXPECT_EQ(leftPlayer->IsPaused(), c.left) << c.what;
        End();
        menuShowing = true;
    }
}

TEST_F(InputTest, HomeIsACheatExceptInTheKeyConfiguration) {
    Start();
    Press(VK_HOME);
    EXPECT_TRUE(nextFigureCheat);
    ShowScores();
    Press(VK_HOME);
    EXPECT_FALSE(nextFigureCheat);
    Command(kCmdHighScores);
    Command(kCmdRightRestart);
    Press(VK_HOME);
    EXPECT_TRUE(nextFigureCheat);
    theMenuScreen->ToggleKeyConfigView();
    Press(VK_HOME);
    EXPECT_TRUE(nextFigureCheat);
}

TEST_F(InputTest, ASlotThatWaitsTakesKeysDuringAGameToo) {
    Start();
    theMenuScreen->ToggleKeyConfigView();
    Click(340, 110);
    Press(VK_F3);
    ASSERT_TRUE(GameShows());
    Press('P');
    EXPECT_TRUE(rightPlayer->IsPaused()) << "a pause key goes no further";
    EXPECT_FALSE(theMenuScreen->IsEnabled(MenuButton::Reset));
    Press('J');
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Right), 'J');
    EXPECT_TRUE(theMenuScreen->IsEnabled(MenuButton::Reset));
}

TEST_F(InputTest, ActivationAndDeactivationPauseGames) {
    Start();
    Command(kCmdNewGame);
    Press('P');
    Headless().Push({.type = HostEventType::Deactivated});
    Headless().WhenWaiting([] { Headless().Push({.type = HostEventType::Activated}); });
    Run(100);
    EXPECT_TRUE(rightPlayer->IsPaused() && leftPlayer->IsPaused());
    EXPECT_TRUE(appActive);
    Press('T');
    EXPECT_FALSE(leftPlayer->IsPaused());
}

// The end of a match. ----------------------------------------------------------------------------

TEST_F(InputTest, GoodResultsAreNamedTheBetterOneFirstAndKept) {
    folder.Write("data/hs.dat", std::vector<std::byte>(260));  // every result reaches this table
    Start();
    Command(kCmdNewGame);
    EndGame(*leftPlayer, 1);
    EndGame(*rightPlayer, 5);
    const int scores[] = {rightPlayer->Score(), leftPlayer->Score()};
    ASSERT_GT(scores[0], scores[1]);
    Frame();
    Frame();
    ASSERT_TRUE(highScoresShowing && rightPlayer->HighScoreEntered());
    EXPECT_FALSE(leftPlayer->HighScoreEntered());
    ClickAt(kMenuButton);
    EXPECT_EQ(pendingClick, kHighScoreNothing);
    for (const std::uint8_t key : std::initializer_list<std::uint8_t>{'W', 'A', 'P', VK_HOME})
        Press(key);
    EXPECT_FALSE(nextFigureCheat) << "every key is for the name";
    Press(VK_RETURN);
    Frame();
    EXPECT_FALSE(rightPlayer->HighScoreEntered());
    ASSERT_TRUE(leftPlayer->HighScoreEntered());
    Press('L');
    Press(VK_RETURN);
    Frame();
    const HighScoreTable& table = theHighScoreScreen->Table();
    EXPECT_EQ(table.Row(0).Name().substr(0, 4), "WAP ");
    EXPECT_EQ(table.Row(1).Name().substr(0, 2), "L ");
    EXPECT_EQ(table.Row(0).score, scores[0]);
    EXPECT_EQ(table.Row(1).score, scores[1]);
    EXPECT_EQ(table.Row(2).score, 0) << "each taken in once";
    End();
    const std::vector<std::byte> file = folder.Read("data/hs.dat");
    ASSERT_EQ(file.size(), 260U);
    EXPECT_EQ(file[0], std::byte{'W'});
    EXPECT_EQ(file[22], static_cast<std::byte>(scores[0]));
}

TEST_F(InputTest, ARefusedResultKeepsTheOtherOutAndTheTableAsItWas) {
    Start();
    Command(kCmdNewGame);
    EndGame(*leftPlayer, 1);
    EndGame(*rightPlayer, 2);
    Run(100);
    EXPECT_TRUE(highScoresShowing);
    EXPECT_FALSE(rightPlayer->HighScoreEntered() || leftPlayer->HighScoreEntered());
    EXPECT_EQ(theHighScoreScreen->Table().Row(9).score, 100);
    ClickAt(kMenuButton);
    EXPECT_EQ(pendingClick, kHighScoreToMenu) << "nobody types a name";
}

TEST_F(InputTest, WhatEndsOnADisplayErrorLeavesScoresAndKeysAsTheyWere) {
    Start();
    theHighScoreScreen->Submit(Side::Right, 5000, 1, 1);
    const BoxAnswerer answerer({"Displaying the next frame failed. Korvane will now exit. "});
    Headless().SetDisplayState(E_FAIL);
    Frame();
    EXPECT_EQ(answerer.Read().size(), 1u);
    EXPECT_FALSE(IsRunning());
    SaveScoresAndKeys();  // as when the process ends
    EXPECT_TRUE(folder.Read("data/hs.dat").empty());
    EXPECT_TRUE(folder.Read("data/keys.dat").empty());
}

TEST_F(InputTest, AProcessThatIsEndedFromWithinKeepsScoresAndKeys) {
    Start();
    theHighScoreScreen->Submit(Side::Right, 5000, 1, 1);
    EXPECT_EXIT(std::exit(1), testing::ExitedWithCode(1), "");
    EXPECT_FALSE(folder.Read("data/hs.dat").empty());
    EXPECT_FALSE(folder.Read("data/keys.dat").empty());
}

}  // namespace
}  // namespace korvane
