#include <algorithm>
#include <compare>
#include <vector>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "platform/headless/headless_host.h"
#include "res/commands.h"
#include "screens/high_score_screen.h"
#include "tests/support/program_fixture.h"

namespace korvane {
namespace {

using MatchTest = ProgramFixture;

TEST_F(MatchTest, TheBetterResultOfTwoIsNamedFirst) {
    struct Case {
        int right, left;  ///< figures
        Side first;
    };
    for (const Case& c :
         {Case{2, 1, Side::Right}, Case{1, 2, Side::Left}, Case{1, 1, Side::Left}}) {
        SCOPED_TRACE(testing::Message() << c.right << " : " << c.left);
        SetUp();
        folder.Write("data/hs.dat", std::vector<std::byte>(260));  // every result reaches this
        Start();
        Command(kCmdNewGame);
        EndGame(*rightPlayer, c.right);
        EndGame(*leftPlayer, c.left);
        const bool rightFirst = c.first == Side::Right;
        Player& first = rightFirst ? *rightPlayer : *leftPlayer;
        Player& second = rightFirst ? *leftPlayer : *rightPlayer;
        ASSERT_TRUE((rightPlayer->Score() <=> leftPlayer->Score()) == (c.right <=> c.left));
        Run(100);
        const HighScoreTable& table = theHighScoreScreen->Table();
        EXPECT_TRUE(first.HighScoreEntered());
        EXPECT_FALSE(second.HighScoreEntered()) << "it waits for the first one's name";
        EXPECT_EQ(table.Row(1).score, 0);
        first.SetHighScoreEntered(false);
        Run(100);
        EXPECT_TRUE(second.HighScoreEntered());
        EXPECT_EQ(std::max(table.Row(0).score, table.Row(1).score), first.Score());
        EXPECT_EQ(std::min(table.Row(0).score, table.Row(1).score), second.Score());
        EXPECT_EQ(table.Row(2).score, 0) << "each is taken in once";
        End();
    }
}

TEST_F(MatchTest, InABattleTheOneWhoIsLeftWinsOnceAndTheScreenStays) {
    Start();
    Command(kCmdNewGame);
    theSettings.battle = true;
    EndGame(*rightPlayer, 1);
    Run(100);
    EXPECT_TRUE(leftPlayer->HasWon());
    EXPECT_EQ(leftPlayer->Wins(), 1);
    EXPECT_EQ(rightPlayer->Wins(), 0);
    EXPECT_FALSE(highScoresShowing);
    EXPECT_FALSE(rightPlayer->HighScoreEntered() || leftPlayer->HighScoreEntered());
}

TEST_F(MatchTest, ABattleThatEndsForBothInOneFrameIsWonByBoth) {
    Start();
    Command(kCmdNewGame);
    theSettings.battle = true;
    for (Player* player : {rightPlayer.get(), leftPlayer.get()})
        PackBoard(*player);
    Run(3000);
    EXPECT_TRUE(rightPlayer->HasWon() && leftPlayer->HasWon());
    EXPECT_FALSE(highScoresShowing);
    for (const int half : {0, 320})
        EXPECT_EQ(Text(234 + half, 183, 5, 16), "LEVEL") << "the boards stay, at rest";
    Press(VK_F3);
    Frame();
    EXPECT_EQ(Shows(), "game right left");
}

TEST_F(MatchTest, RowsOfALockReachTheOtherBoardOnlyInABattle) {
    for (const bool battle : {false, true}) {
        SetUp();
        theSettings.players = 2;
        theSettings.battle = battle;
        Start();
        Command(kCmdNewGame);
        rightPlayer->SetRowsLastLock(3);
        Frame();
        EXPECT_EQ(rightPlayer->RowsLastLock(), 0);
        // A garbage row of ten random cells with at most three holes is empty once in a million.
        int filled = 0;
        for (int row = 0; row < kBoardRows; ++row)
            filled += leftPlayer->GameBoard().IsRowEmpty(row) ? 0 : 1;
        EXPECT_EQ(filled, battle ? 3 : 0);
        EXPECT_TRUE(rightPlayer->GameBoard().IsRowEmpty(kBoardRows - 1));
        End();
    }
}

TEST_F(MatchTest, GameTimeComesFromEitherClock) {
    theSettings.scrollingPieces = true;  // 40 pixels per second at level 0
    Start();
    for (const bool counter : {true, false}) {
        hiResClock = counter;
        secondsPerCount = counter ? 1e-6 : 0.001;
        AdvanceGame();  // whatever passed before does not count
        Command(kCmdRightRestart);
        Run(1000);
        const Figure* figure = rightPlayer->CurrentFigure();
        const int depth = figure->Row() * kCellPixels + figure->PixelOffset();
        EXPECT_NEAR(depth, 40, 1) << (counter ? "counter" : "milliseconds");
        Command(kCmdGotoMenu);
    }
}

}  // namespace
}  // namespace korvane
