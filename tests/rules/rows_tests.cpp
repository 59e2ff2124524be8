#include <string>
#include <vector>

#include "game/level_table.h"
#include "platform/headless/headless_host.h"
#include "tests/rules/rules_test.h"

namespace korvane {
namespace {

using Rows = std::vector<std::string>;

class RowsTest : public RulesTest {
  protected:
    /// An upright bar dropped into column 5, the well of the boards below.
    void DropUprightBar(const Board& board) {
        StartWith(player_, {kBar, kSquare, kSquare});
        player_.SetBoard(board);
        player_.KeyDown(kTurnKey);
        DropAndLock(player_);
    }

    /// Past the removal of completed rows, with the next figure still in the air.
    void WaitForRemoval() { Frames(player_, 20); }

    Player player_{Side::Right};
};

TEST_F(RowsTest, PointsGrowWithTheRowsOfOneLock) {
    struct Case {
        Rows rows;
        int completed;
        int score;
    };
    const std::string kWell = "12345.7123";
    const std::string kGap = ".2345.7123";
    const std::string kFull = "1111111111";
    const Case kCases[] = {
        {{kGap, kGap, kGap, kGap}, 0, 4},
        {{kWell}, 1, 54},
        {{kWell, kWell}, 2, 154},
        {{kWell, kGap, kWell, kGap}, 2, 154},
        {{kWell, kWell, kWell}, 3, 404},
        {{kWell, kWell, kWell, kWell}, 4, 904},
        // Rows that were full before count too, and five are more than the points know.
        {{kGap, kGap, kGap, kWell, kFull}, 2, 154},
        {{kWell, kWell, kWell, kWell, kFull}, 5, 4},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::PrintToString(c.rows));
        DropUprightBar(BoardEndingIn(c.rows));
        EXPECT_EQ(player_.RowsLastLock(), c.completed);
        EXPECT_EQ(player_.Lines(), c.completed);
        EXPECT_EQ(player_.Score(), c.score);
    }
}

TEST_F(RowsTest, CompletedRowsAreMarkedAndThenTheOthersCloseUpInOrder) {
    DropUprightBar(
        BoardEndingIn({"3.........", "22222.2222", "4444......", "66666.6666", "777......."}));
    EXPECT_EQ(RowsFrom(player_.GameBoard(), 16), (Rows{"..........", "3.........", "8888888888",
                                                       "4444.1....", "8888888888", "777..1...."}));
    WaitForRemoval();
    EXPECT_EQ(RowsFrom(player_.GameBoard(), 18),
              (Rows{"..........", "3.........", "4444.1....", "777..1...."}));
    EXPECT_EQ(player_.CurrentFigure()->Row(), 2);
    player_.SetRowsLastLock(0);
    DropAndLock(player_);
    EXPECT_EQ(player_.RowsLastLock(), 0);
    EXPECT_EQ(player_.Lines(), 2);
    EXPECT_EQ(player_.Score(), 154 + 4);
}

TEST_F(RowsTest, TheTopRowIsEmptyAfterARemoval) {
    // The bar stands in rows 0 to 3 and completes row 3; the board is open only there.
    Board board;
    board.FillRow(4, kJ);
    board.Set(4, 0, kEmptyCell);
    board.FillRow(3, kJ);
    board.Set(3, 5, kEmptyCell);
    DropUprightBar(board);
    EXPECT_EQ(player_.Lines(), 1);
    EXPECT_FALSE(player_.IsRunning());
    EXPECT_EQ(player_.Score(), 50);  // no landing bonus when the next figure has no room
}

TEST_F(RowsTest, RowsThatStillWaitForRemovalCountAgain) {
    theSettings.scrollingPieces = true;
    StartWith(player_, {kBar, kBar, kSquare});
    player_.SetBoard(BoardEndingIn({"1111....11"}));
    DropAndLock(player_);
    ASSERT_EQ(player_.Lines(), 1);
    // The next figure rests at once, so that it never falls while the row waits.
    Board board = player_.GameBoard();
    board.Set(2, 4, kMarkerCell);
    player_.SetBoard(board);
    Headless().Advance(1);
    player_.UpdatePlayer(1.0);
    Frame(player_, 201);
    EXPECT_EQ(player_.Lines(), 2);
    EXPECT_EQ(player_.RowsLastLock(), 1);
}

TEST_F(RowsTest, TheShownScoreClimbsByFiveAndJumpsOverTheRest) {
    DropUprightBar(BoardEndingIn({"12345.7123"}));
    ASSERT_EQ(player_.Score(), 54);
    for (int shown = 5; shown <= 45; shown += 5) {
        player_.StepShownScore();
        EXPECT_EQ(player_.ShownScore(), shown);
    }
    player_.StepShownScore();
    EXPECT_EQ(player_.ShownScore(), 50);  // 9 short: a step
    player_.StepShownScore();
    EXPECT_EQ(player_.ShownScore(), 54);  // 4 short: the rest

    DropUprightBar(BoardEndingIn({"12345.7123"}));
    theSettings.countUpScore = false;
    player_.StepShownScore();
    EXPECT_EQ(player_.ShownScore(), 54);

    theSettings.countUpScore = true;
    DropUprightBar(BoardEndingIn({"12345.7123"}));
    player_.SetJoined(false);  // the game has ended
    player_.StepShownScore();
    EXPECT_EQ(player_.ShownScore(), 54);
}

TEST_F(RowsTest, LevelsRiseWhenMoreFiguresCameThanTheirThreshold) {
    StartWith(player_, {kBar});
    std::vector<std::uint32_t> firstFigureOfLevel;
    for (int level = 0; player_.FigureCount() < 360;) {
        if (player_.Level() > level) {
            EXPECT_EQ(player_.Level(), ++level);
            firstFigureOfLevel.push_back(player_.FigureCount());
        }
        DropAndLock(player_);
        player_.SetBoard(Board());
    }
    EXPECT_EQ(firstFigureOfLevel,
              (std::vector<std::uint32_t>{13, 26, 51, 101, 151, 201, 251, 301, 351}));
}

TEST_F(RowsTest, LevelsRiseWhenThePlayingTimeReachesTheirThreshold) {
    theSettings.timeBased[0] = true;
    struct Case {
        std::uint32_t seconds;
        int level;
    };
    constexpr Case kCases[] = {{44, 0},  {45, 1},  {119, 1}, {120, 2}, {329, 4},
                               {330, 5}, {719, 8}, {720, 9}, {5999, 9}};
    for (const Case& c : kCases) {
        player_.ResetPlayer();
        StartWith(player_, {kBar, kSquare});
        Headless().Advance(c.seconds * 1000);
        player_.UpdatePlayingTime();
        DropAndLock(player_);
        EXPECT_EQ(player_.Level(), c.level) << c.seconds;
    }
    // A new game takes its first level from the time that the last one left.
    StartWith(player_, {kBar, kSquare});
    EXPECT_EQ(player_.Level(), 9);
    player_.UpdatePlayingTime();
    DropAndLock(player_);
    EXPECT_EQ(player_.Level(), 0);
}

TEST_F(RowsTest, TheHighestThresholdPassedCountsInAnyTable) {
    struct Case {
        LevelThresholds figures;
        int level;  // with the second figure
    };
    constexpr std::uint32_t kMost = 0xFFFFFFFF;
    constexpr Case kCases[] = {
        {{}, 9},
        {{0, 1, 1, 1, 1, 1, 1, 1, 1, 1}, 9},
        {{0, 2, 2, 2, 2, 2, 2, 2, 2, 2}, 0},
        {{0, 1, 2, 9, 9, 9, 9, 9, 9, 9}, 1},
        {{0, 9, 9, 9, 1, 9, 9, 9, 9, 9}, 4},
        {{0, kMost, kMost, kMost, kMost, kMost, kMost, kMost, 0, kMost}, 8},
        {{kMost, kMost, kMost, kMost, kMost, kMost, kMost, kMost, kMost, kMost}, 0},
    };
    for (const Case& c : kCases) {
        theLevelTable.figuresForLevel = c.figures;
        StartWith(player_, {kBar, kSquare});
        DropAndLock(player_);
        EXPECT_EQ(player_.Level(), c.level) << testing::PrintToString(c.figures);
    }
}

TEST_F(RowsTest, SpeedComesFromLevelDifficultyAndWayOfFalling) {
    struct Case {
        std::int32_t difficulty;
        std::uint32_t intervalMs;
        int pixelsPerSecond;
    };
    theLevelTable.figuresForLevel = {0, 0, 9, 9, 9, 9, 9, 9, 9, 9};  // level 1 at once
    for (const Case& c : {Case{0, 225, 50}, Case{1, 180, 60}, Case{2, 135, 70}}) {
        SCOPED_TRACE(c.difficulty);
        theSettings.difficulty = {c.difficulty, 2 - c.difficulty};
        theSettings.scrollingPieces = false;
        StartWith(player_, {kBar});
        Frame(player_, 1);
        Frame(player_, c.intervalMs - 1);
        EXPECT_EQ(player_.CurrentFigure()->Row(), 1);
        Frame(player_, 1);
        EXPECT_EQ(player_.CurrentFigure()->Row(), 2);

        theSettings.scrollingPieces = true;
        StartWith(player_, {kBar});
        player_.UpdatePlayer(1.0);
        const Figure& figure = *player_.CurrentFigure();
        EXPECT_EQ(figure.Row() * kCellPixels + figure.PixelOffset(), c.pixelsPerSecond);
    }
}

}  // namespace
}  // namespace korvane
