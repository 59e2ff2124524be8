#include "game/game_frame.h"

#include <vector>

#include "app/process_state.h"
#include "game/game_art.h"
#include "game/key_bindings.h"
#include "gfx/bitmap_font.h"
#include "platform/headless/headless_host.h"
#include "tests/support/display_fixture.h"
#include "tests/support/test_skin.h"

namespace korvane {
namespace {

struct Submission {
    Side side;
    int score;

    bool operator==(const Submission&) const = default;
};

/// Screens that only remember what was asked of them.
class RecordingScreens final : public FrameScreens {
  public:
    void DrawMenu() override { ++menus; }
    void DrawHighScores() override { ++highScores; }
    int Submit(Side side, int score, int /*lines*/, int /*level*/) override {
        submissions.push_back({side, score});
        return row;
    }

    int menus = 0;
    int highScores = 0;
    int row = 0;  ///< what the table answers
    std::vector<Submission> submissions;
};

class MatchTest : public DisplayFixture {
  protected:
    void SetUp() override {
        DisplayFixture::SetUp();
        WriteTestSkin(folder, "Original");
        theGameArt.Load();
        theFont = std::make_unique<BitmapFont>();
        rightPlayer = std::make_unique<Player>(Side::Right);
        leftPlayer = std::make_unique<Player>(Side::Left);
        theMatch = {};
        menuShowing = highScoresShowing = showFps = false;
        hiResClock = true;
        secondsPerCount = 1.0 / static_cast<double>(Headless().CounterFrequency());
        theSettings.scrollingPieces = false;
        theSettings.quakes = false;
    }

    void TearDown() override {
        rightPlayer.reset();
        leftPlayer.reset();
        theFont.reset();
        DisplayFixture::TearDown();
    }

    void Frame(std::uint32_t milliseconds = 10) {
        Headless().Advance(milliseconds);
        AdvanceGame();
        EXPECT_EQ(DrawGameFrame(screens), S_OK);
    }

    /// The player's game is over with this many points.
    static void EndWithScore(Player& player, int points) {
        player.StartGame(false);
        theSettings.dropDelayMs = 0;
        while (player.Score() < points && player.IsRunning())
            LockOne(player);
        EXPECT_EQ(player.Score(), points);
        Board blocked;
        for (int row = 0; row < 4; ++row)
            blocked.Set(row, 5, 1);
        player.SetBoard(blocked);
        while (player.IsRunning())
            LockOne(player);
    }

    /// Four points: the figure goes down on an empty board.
    static void LockOne(Player& player) {
        const std::uint32_t figures = player.FigureCount();
        player.KeyDown(keyBindings.Key(Action::Drop, player.PlayerSide()));
        for (int i = 0; i < 10 && player.FigureCount() == figures && player.IsRunning(); ++i) {
            Headless().Advance(300);
            player.UpdatePlayer(0.3);
        }
        if (player.IsRunning()) player.SetBoard(Board());
    }

    RecordingScreens screens;
};

TEST_F(MatchTest, TheBetterResultOfTwoGoesFirst) {
    struct Case {
        int right, left;
        Side first;
    };
    for (const Case& c :
         {Case{8, 4, Side::Right}, Case{4, 8, Side::Left}, Case{4, 4, Side::Left}}) {
        SCOPED_TRACE(testing::Message() << c.right << " : " << c.left);
        theSettings.players = 2;
        highScoresShowing = false;
        screens.submissions.clear();
        EndWithScore(*rightPlayer, c.right);
        EndWithScore(*leftPlayer, c.left);
        Player& first = c.first == Side::Right ? *rightPlayer : *leftPlayer;
        Player& second = c.first == Side::Right ? *leftPlayer : *rightPlayer;
        for (int i = 0; i < 4; ++i)
            Frame();
        EXPECT_EQ(screens.submissions, (std::vector<Submission>{{c.first, first.Score()}}))
            << "the second waits for the first one's name";
        first.SetHighScoreEntered(false);
        for (int i = 0; i < 4; ++i)
            Frame();
        ASSERT_EQ(screens.submissions.size(), 2u);
        EXPECT_EQ(screens.submissions[1], (Submission{second.PlayerSide(), second.Score()}));
        EXPECT_TRUE(second.HighScoreEntered());
    }
}

TEST_F(MatchTest, ARefusedResultKeepsTheLowerOneOut) {
    theSettings.players = 2;
    screens.row = -1;
    EndWithScore(*rightPlayer, 8);
    EndWithScore(*leftPlayer, 4);
    for (int i = 0; i < 5; ++i)
        Frame();
    for (const Submission& submission : screens.submissions)
        EXPECT_EQ(submission.side, Side::Right);
    EXPECT_FALSE(rightPlayer->HighScoreEntered() || leftPlayer->HighScoreEntered());
}

TEST_F(MatchTest, InABattleTheOneWhoIsLeftWinsOnceAndTheScreenStays) {
    theSettings.players = 2;
    theSettings.battle = true;
    leftPlayer->StartGame(false);
    EndWithScore(*rightPlayer, 4);
    for (int i = 0; i < 3; ++i)
        Frame();
    EXPECT_TRUE(leftPlayer->HasWon());
    EXPECT_EQ(leftPlayer->Wins(), 1);
    EXPECT_EQ(rightPlayer->Wins(), 0);
    EXPECT_FALSE(highScoresShowing);
    EXPECT_TRUE(screens.submissions.empty());
    EXPECT_EQ(screens.highScores, 0);
}

TEST_F(MatchTest, RowsOfALockReachTheOtherBoardOnlyInABattle) {
    for (const bool battle : {false, true}) {
        theSettings.players = 2;
        theSettings.battle = battle;
        rightPlayer->StartGame(false);
        leftPlayer->StartGame(false);
        rightPlayer->SetRowsLastLock(3);
        Frame();
        EXPECT_EQ(rightPlayer->RowsLastLock(), 0);
        int rows = 0;
        for (int row = 0; row < kBoardRows; ++row)
            rows += !leftPlayer->GameBoard().IsRowEmpty(row);
        EXPECT_LE(rows, battle ? 3 : 0);
        // A garbage row of ten random cells with at most three holes is empty once in a million.
        if (battle) {
            EXPECT_EQ(rows, 3);
        }
        EXPECT_TRUE(rightPlayer->GameBoard().IsRowEmpty(kBoardRows - 1));
    }
}

TEST_F(MatchTest, GameTimeComesFromEitherClockAcrossItsWrap) {
    theSettings.scrollingPieces = true;  // 40 pixels per second at level 0
    for (const bool counter : {true, false}) {
        hiResClock = counter;
        secondsPerCount = counter ? 1e-6 : 0.001;
        Headless().SetMilliseconds(1000);
        AdvanceGame();  // whatever passed before does not count
        rightPlayer->StartGame(false);
        for (int i = 0; i < 100; ++i)
            Frame(10);
        const Figure* figure = rightPlayer->CurrentFigure();
        const int depth = figure->Row() * kCellPixels + figure->PixelOffset();
        EXPECT_NEAR(depth, 40, 1) << (counter ? "counter" : "milliseconds");
    }
}

}  // namespace
}  // namespace korvane
