#include <algorithm>
#include <string>
#include <vector>

#include "platform/headless/headless_host.h"
#include "tests/rules/rules_test.h"

namespace korvane {
namespace {

class GarbageTest : public RulesTest {
  protected:
    static void UseDifficulty(Difficulty difficulty) {
        theSettings.difficulty[0] = static_cast<int>(difficulty);
    }

    /// Plays on an otherwise empty board until figure number `count` falls, locking the last one on
    /// the given board.
    void PlayUntilFigure(std::uint32_t count, const Board& board) {
        player_.SetBoard(Board());
        while (player_.FigureCount() + 1 < count) {
            DropAndLock(player_);
            player_.SetBoard(Board());
        }
        player_.SetBoard(board);
        DropAndLock(player_);
        ASSERT_EQ(player_.FigureCount(), count);
    }

    Player player_{Side::Right};
};

TEST_F(GarbageTest, HardPushesARowUpWithEveryFifteenthFigure) {
    struct Case {
        const char* name;
        int row;  // of a lone cell
        bool pushed;
    };
    constexpr Case kCases[] = {
        {"low stack", 21, true}, {"just low enough", 10, true}, {"too high", 9, false}};
    UseDifficulty(Difficulty::Hard);
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        player_.StartGame(false);
        PlayUntilFigure(14, Board());
        Board board;
        board.Set(c.row, 0, kMarkerCell);
        PlayUntilFigure(15, board);
        EXPECT_EQ(player_.GameBoard().At(c.row, 0) == kMarkerCell, !c.pushed);
        EXPECT_EQ(player_.GameBoard().At(c.row - 1, 0) == kMarkerCell, c.pushed);
        EXPECT_EQ(player_.CurrentFigure()->Row(), 0);
    }
}

TEST_F(GarbageTest, ReceivedRowsPushTheBoardUpAsLongAsFiveRowsAreFree) {
    struct Case {
        int topRow;
        int sent;
        int arrived;
    };
    constexpr Case kCases[] = {{21, 1, 1}, {21, 4, 4}, {10, 4, 4}, {8, 4, 4},  {7, 4, 3},
                               {5, 4, 1},  {4, 4, 0},  {0, 1, 0},  {21, 0, 0}, {21, 30, 17}};
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::Message() << c.topRow << " gets " << c.sent);
        StartWith(player_, {kBar});
        Board board;
        board.Set(c.topRow, 3, kMarkerCell);
        player_.SetBoard(board);
        player_.ReceiveRows(c.sent);
        EXPECT_EQ(player_.GameBoard().At(c.topRow - c.arrived, 3), kMarkerCell);
        for (const std::string& row : RowsFrom(player_.GameBoard(), kBoardRows - c.arrived)) {
            if (row == RowsFrom(board, c.topRow).front()) continue;
            EXPECT_GE(std::ranges::count(row, '.'), 1) << row;
        }
        EXPECT_EQ(player_.GameBoard() == board, c.arrived == 0);
    }
}

}  // namespace
}  // namespace korvane
