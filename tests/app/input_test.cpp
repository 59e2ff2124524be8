#include <cstdlib>
#include <tuple>

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
constexpr POINT kNowhere{60, 470};
constexpr POINT kMenuButton{215, 445};
constexpr POINT kPlayButton{335, 445};

class InputTest : public ProgramFixture {
  protected:
    void ClickAt(POINT point) { Click(point.x, point.y); }

    /// A game of two, each of whom locks some figures.
    void PlayOut(int leftFigures, int rightFigures) {
        Start();
        Command(kCmdNewGame);
        EndGame(*leftPlayer, leftFigures);
        EndGame(*rightPlayer, rightFigures);
        Frame();
    }
};

TEST_F(InputTest, APressedButtonIsSeenForAWhileBeforeItActs) {
    // A screen that a command opens first (0: the one that shows), the button and what it leads to.
    const std::tuple<std::uint16_t, POINT, const char*, const char*> presses[] = {
        {kCmdGotoMenu, {160, 230}, "menu/confbutt", "keys"},
        {0, {190, 450}, "menu/backbutt", "menu"},
        {0, kAboutButton, "menu/aboutbutt", "credits"},
        {0, {280, 445}, "menu/backbutt", "menu"},
        {0, kStartButton, "menu/startbutt", "game right left"},
        {kCmdHighScores, kPlayButton, "HighScore/playButt", "game right left"},
        {kCmdHighScores, kMenuButton, "HighScore/menubutt", "menu"},
        {0, kQuitButton, "menu/quitbutt", "the end"},
    };
    theSettings.players = 2;
    Start();
    // Each twice: by the second time its look must be the normal one again.
    for (int round = 0; round < 2; ++round) {
        for (const auto& [first, button, picture, leadsTo] : presses) {
            if (round == 0 && button == kQuitButton) continue;
            SCOPED_TRACE(picture);
            if (first != 0) Command(kCmdGotoMenu);
            if (first == kCmdHighScores) Command(first);
            Frame();
            const std::string before = Shows();
            EXPECT_EQ(Seen(button.x, button.y), std::string(picture) + " 0");
            ClickAt(button);
            SendMessage(mainWindow, WM_TIMER, 4, 0);  // not the timer of the presses
            Run(150);
            EXPECT_EQ(Seen(button.x, button.y), std::string(picture) + " 1");
            EXPECT_EQ(Shows(), before);
            for (const std::uint32_t later : {80U, 1000U}) {
                Run(later);
                EXPECT_EQ(Shows(), leadsTo) << "done once";
            }
        }
    }
    EXPECT_EQ(currentDisplay, nullptr);
}

TEST_F(InputTest, ALaterPressTakesThePlaceOfOneThatWaitsAndOneOrTwoCanPlay) {
    constexpr POINT kQuakesSwitch{280, 350};
    for (const auto& [players, later, shows] : {std::tuple{1, kNowhere, "menu"},
                                                {1, kQuakesSwitch, "menu"},
                                                {1, kAboutButton, "credits"},
                                                {1, kStartButton, "game right"},
                                                {3, kStartButton, "menu"}}) {
        SCOPED_TRACE(shows);
        theSettings.players = static_cast<std::uint8_t>(players);
        Start();
        ClickAt(kStartButton);
        Run(100);
        ClickAt(later);
        Run(2 * kPressedLookPassed);
        EXPECT_EQ(Shows(), shows);
        EXPECT_EQ(theMenuScreen->IsSelected(MenuButton::Start), later != kStartButton);
    }
}

TEST_F(InputTest, WinsLastUntilAMatchBeginsOrTheirPlayerIsReset) {
    // The number of players and two commands come before the press, the wins of both after it.
    for (const auto& [what, players, first, second, press, rightWins, leftWins] :
         {std::tuple{"Start", 2, 0, 0, kStartButton, 0, 0},
          {"Start for one", 1, 0, 0, kStartButton, 1, 1},
          {"Play again", 2, kCmdHighScores, 0, kPlayButton, 0, 0},
          {"to the menu after one", 1, kCmdHighScores, 0, kMenuButton, 0, 1},
          {"to the menu after two", 2, kCmdHighScores, 0, kMenuButton, 1, 0},
          {"New Game", 2, kCmdNewGame, 0, kNowhere, 1, 1},
          {"Goto menu", 2, kCmdNewGame, kCmdGotoMenu, kNowhere, 0, 0}}) {
        theSettings.players = static_cast<std::uint8_t>(players);
        Start();
        rightPlayer->DeclareWinner();
        leftPlayer->DeclareWinner();
        for (const int command : {first, second})
            Command(static_cast<std::uint16_t>(command));
        Frame();
        ClickAt(press);
        Run(kPressedLookPassed);
        EXPECT_EQ(rightPlayer->Wins(), rightWins) << what;
        EXPECT_EQ(leftPlayer->Wins(), leftWins) << what;
    }
}

TEST_F(InputTest, DuringAGamePressesDoNothing) {
    Start();
    Command(kCmdRightRestart);
    pendingClick = 77;
    for (const POINT point : {kStartButton, kQuitButton, kMenuButton, kPlayButton})
        ClickAt(point);
    Run(1000);
    EXPECT_EQ(pendingClick, 77);
    EXPECT_EQ(Shows(), "game right");
}

TEST_F(InputTest, InFullScreenPressesAreShiftedAndTheWindowIsNotMovedOrSized) {
    Start();
    const auto clickAt = [](int x, int y) {
        SendMessage(mainWindow, WM_LBUTTONDOWN, 0, static_cast<LPARAM>(MakeParam(x, y)));
        return pendingClick;
    };
    for (const auto& [x, y] :
         {std::pair{-1, -1}, {-32768, 32767}, {32767, -32768}, {640, 480}, {160 - 65536 / 2, 410}})
        EXPECT_EQ(clickAt(x, y), kMenuNothing) << x << ", " << y;
    // In full screen 4 pixels are added to x and 23 to y; Start is hit from (157, 404) on.
    theSettings.windowed = false;
    EXPECT_EQ(clickAt(152, 380 + 1), kMenuNothing);
    EXPECT_EQ(clickAt(152 + 1, 380 + 1), kMenuStart);
    EXPECT_EQ(clickAt(-3, -20), kMenuNothing);
    for (const WPARAM command : {SC_SIZE, SC_MOVE, SC_MAXIMIZE, SC_MONITORPOWER})
        EXPECT_EQ(SendMessage(mainWindow, WM_SYSCOMMAND, command, 0), 1) << command;
    EXPECT_EQ(SendMessage(mainWindow, WM_SYSCOMMAND, SC_SIZE + 1, 0), 0);
}

TEST_F(InputTest, APauseKeyPausesItsPlayerAndInBattleBoth) {
    for (const auto& [battle, leftKey, key, right, left] :
         {std::tuple{false, 'T', 'P', true, false},
          {false, 'T', 'T', false, true},
          {false, 'P', 'P', false, true},  // a key of both is the left player's
          {true, 'T', 'P', true, true},
          {true, 'T', 'T', true, true}}) {
        theSettings.battle = battle;
        Start();
        keyBindings.Key(Action::Pause, Side::Left) = static_cast<std::uint8_t>(leftKey);
        Command(kCmdNewGame);
        Press(static_cast<std::uint8_t>(key));
        EXPECT_EQ(rightPlayer->IsPaused(), right) << battle << leftKey << key;
        EXPECT_EQ(leftPlayer->IsPaused(), left) << battle << leftKey << key;
    }
}

TEST_F(InputTest, HomeTogglesTheCheatExceptInTheKeyConfiguration) {
    Start();
    bool cheat = false;
    for (const int screen : {kCmdGotoMenu, kCmdHighScores, kCmdHighScores, kCmdRightRestart}) {
        Command(static_cast<std::uint16_t>(screen));
        Press(VK_HOME);
        EXPECT_EQ(nextFigureCheat, cheat = !cheat) << screen;
    }
    theMenuScreen->ToggleKeyConfigView();
    Press(VK_HOME);
    EXPECT_EQ(nextFigureCheat, cheat);
}

TEST_F(InputTest, AnArmedSlotTakesKeysDuringAGameToo) {
    Start();
    theMenuScreen->ToggleKeyConfigView();
    Click(340, 110);
    Press(VK_F3);
    ASSERT_EQ(Shows(), "game right left");
    Press('P');
    EXPECT_TRUE(rightPlayer->IsPaused()) << "a pause key is not bound";
    EXPECT_FALSE(theMenuScreen->IsEnabled(MenuButton::Reset));
    Press('J');
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Right), 'J');
    EXPECT_TRUE(theMenuScreen->IsEnabled(MenuButton::Reset));
}

TEST_F(InputTest, BothNamesAreTypedAndWrittenToTheFile) {
    folder.Write("data/hs.dat", std::vector<std::byte>(260));  // zeros: every result gets in
    PlayOut(1, 5);
    Frame();
    ClickAt(kMenuButton);
    EXPECT_EQ(pendingClick, kHighScoreNothing);
    for (const char key : std::string("WAP\x24\r"))  // Home, Enter
        Press(static_cast<std::uint8_t>(key));
    EXPECT_FALSE(nextFigureCheat) << "every key is for the name";
    Frame();
    EXPECT_EQ(Text(124, 415, 20, 14), "CONGRATULATIONS LEFT");
    Press('L');
    Press(VK_RETURN);
    Frame();
    EXPECT_EQ(theHighScoreScreen->Table().Row(0).Name().substr(0, 4), "WAP ");
    EXPECT_EQ(theHighScoreScreen->Table().Row(1).Name().substr(0, 2), "L ");
    End();
    EXPECT_EQ(folder.Read("data/hs.dat").at(0), std::byte{'W'});
}

TEST_F(InputTest, NobodyTypesANameAfterARefusedResultOrOutsideTheHighScores) {
    for (const bool refused : {true, false}) {
        if (!refused) folder.Write("data/hs.dat", std::vector<std::byte>(260));
        PlayOut(1, 2);
        EXPECT_TRUE(highScoresShowing);
        EXPECT_EQ(rightPlayer->HighScoreEntered(), !refused);
        EXPECT_FALSE(leftPlayer->HighScoreEntered());
        ClickAt(kMenuButton);
        EXPECT_EQ(pendingClick, refused ? kHighScoreToMenu : kHighScoreNothing);
        EXPECT_EQ(theHighScoreScreen->Table().Row(9).score, refused ? 100 : 0);
        Command(kCmdGotoMenu);
        EXPECT_FALSE(rightPlayer->HighScoreEntered() || leftPlayer->HighScoreEntered());
        End();
        SetUp();
    }
}

TEST_F(InputTest, AFatalDisplayErrorLeavesTheFilesAsTheyWere) {
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

TEST_F(InputTest, ExitFromWithinALibraryWritesScoresAndKeys) {
    Start();
    theHighScoreScreen->Submit(Side::Right, 5000, 1, 1);
    EXPECT_EXIT(std::exit(1), testing::ExitedWithCode(1), "");
    EXPECT_FALSE(folder.Read("data/hs.dat").empty());
    EXPECT_FALSE(folder.Read("data/keys.dat").empty());
}

}  // namespace
}  // namespace korvane
