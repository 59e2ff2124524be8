#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "game/random.h"
#include "platform/headless/headless_host.h"
#include "tests/rules/rules_test.h"

namespace korvane {
namespace {

using Rows = std::vector<std::string>;

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

    /// All rows that hold a marker cell outside completed rows, with its column.
    std::vector<int> RowsWithJunk() const {
        std::vector<int> rows;
        for (int row = 0; row < kBoardRows; ++row) {
            const std::string text = RowsFrom(player_.GameBoard(), row).front();
            if (std::ranges::count(text, '8') == 1) rows.push_back(row);
        }
        return rows;
    }

    Player player_{Side::Right};
};

TEST_F(GarbageTest, StartingRowsHoldRandomCellsAndSureHolesInTheFirstEightColumns) {
    struct Case {
        Difficulty difficulty;
        int firstRow;
    };
    for (const auto& [difficulty, firstRow] :
         {Case{Difficulty::Easy, 22}, Case{Difficulty::Medium, 19}, Case{Difficulty::Hard, 17}}) {
        UseDifficulty(difficulty);
        std::set<char> values;
        std::set<std::size_t> lastColumnsFilled;
        for (std::uint32_t seed = 0; seed < 100; ++seed) {
            SeedRandom(seed);
            player_.StartGame(false);
            for (int row = 0; row < firstRow; ++row) {
                ASSERT_TRUE(player_.GameBoard().IsRowEmpty(row)) << row;
            }
            for (const std::string& row : RowsFrom(player_.GameBoard(), firstRow)) {
                const auto holes = std::count(row.begin(), row.begin() + 8, '.');
                ASSERT_GE(holes, 1) << row;
                values.insert(row.begin(), row.end());
                if (row.substr(8).find('.') == std::string::npos) lastColumnsFilled.insert(seed);
            }
        }
        if (firstRow == kBoardRows) continue;
        EXPECT_EQ(std::string(values.begin(), values.end()), ".1234567");
        // No hole is forced in the last two columns: nearly every game has a row with both filled.
        EXPECT_GT(lastColumnsFilled.size(), 95U);
    }
}

TEST_F(GarbageTest, TheStartingRowsOfOneStateOfTheGeneratorAreAlwaysTheSame) {
    UseDifficulty(Difficulty::Medium);
    SeedRandom(7);
    player_.StartGame(false);
    const Board first = player_.GameBoard();
    SeedRandom(7);
    player_.StartGame(false);
    EXPECT_EQ(player_.GameBoard(), first);
    // The game itself begins with a seed of its own, so the same figures follow.
    const int next = player_.NextFigure()->Type();
    SeedRandom(8);
    player_.StartGame(false);
    EXPECT_NE(player_.GameBoard(), first);
    EXPECT_EQ(player_.NextFigure()->Type(), next);
}

TEST_F(GarbageTest, MediumAddsABlockInTheLowestEmptyRowWithEveryTenthFigure) {
    struct Case {
        int firstOccupied;  // of rows with a cell in column 0, down to the floor
        std::vector<int> junk;
    };
    const Case kCases[] = {{22, {18}}, {19, {18}}, {18, {17}}, {12, {11}}};
    UseDifficulty(Difficulty::Medium);
    for (const Case& c : kCases) {
        player_.StartGame(false);
        Board board;
        for (int row = c.firstOccupied; row < kBoardRows; ++row)
            board.Set(row, 0, kT);
        PlayUntilFigure(9, Board());
        EXPECT_EQ(RowsWithJunk(), std::vector<int>{});
        PlayUntilFigure(10, board);
        // The figure that locked takes rows 18 and up itself when it lies there.
        const std::vector<int> junk = RowsWithJunk();
        ASSERT_EQ(junk.size(), 1U);
        EXPECT_LE(junk.front(), c.junk.front());
        for (int row = junk.front() + 1; row <= 18; ++row) {
            EXPECT_FALSE(player_.GameBoard().IsRowEmpty(row)) << row;
        }
        PlayUntilFigure(20, Board());
        EXPECT_EQ(RowsWithJunk().size(), 1U);
    }
}

TEST_F(GarbageTest, MediumAddsNothingWhenNoRowIsEmpty) {
    UseDifficulty(Difficulty::Medium);
    player_.StartGame(false);
    Board board;
    for (int row = 0; row <= 18; ++row)
        board.Set(row, 0, kT);
    PlayUntilFigure(10, board);
    EXPECT_EQ(RowsWithJunk(), std::vector<int>{});
}

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

TEST_F(GarbageTest, HardPushesNothingWhileCompletedRowsWait) {
    UseDifficulty(Difficulty::Hard);
    theSettings.scrollingPieces = true;
    for (const bool waiting : {false, true}) {
        player_.StartGame(false);
        Board board;
        if (waiting) board.FillRow(21, kT);
        PlayUntilFigure(14, board);
        // It rests at once, so nothing is removed before it locks.
        board = player_.GameBoard();
        for (int column = 4; column < 8; ++column)
            board.Set(13, column, kT);
        board.Set(12, 0, kMarkerCell);
        player_.SetBoard(board);
        player_.KeyDown(kDropKey);
        player_.UpdatePlayer(0.0);
        player_.UpdatePlayer(1.0);
        Frame(player_, 201);
        ASSERT_EQ(player_.FigureCount(), 15U);
        EXPECT_EQ(player_.GameBoard().At(12, 0) == kMarkerCell, waiting);
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

TEST_F(GarbageTest, ReceivedRowsHaveOneToThreeSureHolesInAnyColumn) {
    StartWith(player_, {kBar});
    SeedRandom(99);
    std::set<char> values;
    std::vector<int> holes(kBoardColumns);
    constexpr int kRows = 2000;
    for (int i = 0; i < kRows; ++i) {
        player_.SetBoard(Board());
        player_.ReceiveRows(1);
        const std::string row = RowsFrom(player_.GameBoard(), 21).front();
        values.insert(row.begin(), row.end());
        ASSERT_NE(row.find('.'), std::string::npos);
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (row[column] == '.') ++holes[column];
        }
    }
    EXPECT_EQ(std::string(values.begin(), values.end()), ".1234567");
    // Empty by its own value, or by one of three holes among ten columns.
    constexpr double kWanted = kRows * (1.0 - 7.0 / 8.0 * 0.9 * 0.9 * 0.9);
    for (const int count : holes)
        EXPECT_NEAR(count, kWanted, 100);
}

TEST_F(GarbageTest, ReceivedRowsLiftTheFallingFigureWithTheStack) {
    struct Case {
        int row;
        int sent;
        int want;
    };
    for (const auto& [row, sent, want] : {Case{10, 4, 6}, Case{2, 4, 0}, Case{0, 1, 0}}) {
        theSettings.dropDelayMs = 1;
        StartWith(player_, {kBar});
        player_.KeyDown(kDropKey);
        while (player_.CurrentFigure()->Row() < row) {
            Headless().Advance(2);
            player_.UpdatePlayer(0.0);
            if (player_.CurrentFigure()->Row() + 1 == row) player_.KeyUp(kDropKey);
            if (player_.CurrentFigure()->Row() + 1 == row) Headless().Advance(250);
        }
        ASSERT_EQ(player_.CurrentFigure()->Row(), row);
        player_.ReceiveRows(sent);
        EXPECT_EQ(player_.CurrentFigure()->Row(), want);
    }
    Player idle(Side::Left);
    idle.ReceiveRows(2);
    EXPECT_FALSE(idle.GameBoard().IsRowEmpty(21));
}

TEST_F(GarbageTest, DifficultiesThatDoNotExistPlayAsTheNearest) {
    struct Case {
        std::int32_t stored;
        int firstGarbageRow;
    };
    for (const auto& [stored, first] :
         {Case{-1, 22}, Case{INT32_MIN, 22}, Case{3, 17}, Case{INT32_MAX, 17}}) {
        theSettings.difficulty = {stored, stored};
        SeedRandom(1);
        player_.StartGame(false);
        int row = 0;
        while (row < kBoardRows && player_.GameBoard().IsRowEmpty(row))
            ++row;
        EXPECT_EQ(row, first) << stored;
        DropAndLock(player_);
        EXPECT_EQ(theSettings.difficulty[0], stored);
    }
}

}  // namespace
}  // namespace korvane
