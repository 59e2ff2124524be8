#include <string>
#include <vector>

#include "game/rules/level_table.h"
#include "tests/game/rules/rules_test.h"

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

TEST_F(RowsTest, RowsThatWaitAreRemovedByTheNextLockAndCountedOnce) {
    theLevelTable.normalMs[0].fill(50);  // the next figure rests before the removal is due
    DropUprightBar(BoardEndingIn({"12345.7123", "12345.7123"}));
    player_.SetRowsLastLock(0);
    DropAndLock(player_);
    EXPECT_EQ(RowsFrom(player_.GameBoard(), 17),
              (Rows{"..........", "....33....", "....33....", ".....1....", ".....1...."}));
    EXPECT_EQ(player_.RowsLastLock(), 0);
    EXPECT_EQ(player_.Lines(), 2);
    EXPECT_EQ(player_.Score(), 154 + 4);
}

TEST_F(RowsTest, AReceivedRowPushesWaitingRowsUpWithTheirMarks) {
    DropUprightBar(BoardEndingIn({"3.........", "22222.2222", "4444......"}));
    player_.ReceiveRows(2);
    const Rows received = RowsFrom(player_.GameBoard(), 20);
    WaitForRemoval();
    Rows closedUp = {"..........", ".....1....", "3....1....", "4444.1...."};
    closedUp.insert(closedUp.end(), received.begin(), received.end());
    EXPECT_EQ(RowsFrom(player_.GameBoard(), 16), closedUp);
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

}  // namespace
}  // namespace korvane
