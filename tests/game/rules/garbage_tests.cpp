#include <algorithm>
#include <string>

#include "tests/game/rules/rules_test.h"

namespace korvane {
namespace {

class GarbageTest : public RulesTest {
  protected:
    Player player_{Side::Right};
};

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

TEST_F(GarbageTest, AJunkBlockFloatsInTheLowestEmptyRowFromRow18Up) {
    struct Case {
        int firstUsedRow;
        int lastUsedRow;
        int blockRow;  ///< -1: none
    };
    constexpr Case kCases[] = {{22, 22, 18}, {19, 21, 18}, {18, 21, 17}, {18, 18, 17},
                               {1, 21, 0},   {0, 21, -1},  {0, 17, 18}};
    for (const Case& c : kCases) {
        Field field;
        for (int row = c.firstUsedRow; row <= std::min(c.lastUsedRow, kBoardRows - 1); ++row)
            field.board.Set(row, 4, 1);
        const Board before = field.board;
        field.AddJunkBlock();
        EXPECT_EQ(field.board == before, c.blockRow < 0);
        for (int row = 0; row < kBoardRows; ++row) {
            const auto text = RowsFrom(field.board, row).front();
            EXPECT_EQ(std::ranges::count(text, '8'), row == c.blockRow) << c.firstUsedRow << row;
        }
    }
}

}  // namespace
}  // namespace korvane
