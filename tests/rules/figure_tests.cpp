#include "game/figure.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "game/random.h"

namespace korvane {
namespace {

using Point = std::pair<int, int>;  // row, column

/// The four by four cells from a figure's origin, rows separated by a blank.
std::string PictureOf(const Figure& figure) {
    std::string picture = ".... .... .... ....";
    for (const FigureCell cell : figure.Cells()) {
        picture[static_cast<std::size_t>(cell.dy * 5 + cell.dx)] = 'X';
    }
    return picture;
}

/// Steers a new figure over the empty board to where a case wants it.
void BringTo(Figure& figure, int rotation, int column, int row) {
    while (figure.Rotation() != rotation)
        ASSERT_TRUE(figure.Rotate(Turn::CounterClockwise));
    while (figure.Column() > column)
        ASSERT_TRUE(figure.MoveLeft());
    while (figure.Column() < column)
        ASSERT_TRUE(figure.MoveRight());
    while (figure.Row() < row)
        ASSERT_TRUE(figure.MoveDown());
}

void GlideOffset(Figure& figure, int pixels) {
    if (pixels == 0) return;
    ASSERT_TRUE(figure.Glide(pixels + 0.25));
    ASSERT_EQ(figure.PixelOffset(), pixels);
}

TEST(FigureShapes, EveryRotationLooksRightAndBothTurnsWalkThemInTheirOrder) {
    const std::map<int, std::vector<std::string>> kPictures = {
        {kBar, {".... XXXX .... ....", ".X.. .X.. .X.. .X.."}},
        {kZ, {".... XX.. .XX. ....", ".X.. XX.. X... ...."}},
        {kSquare, {".... XX.. XX.. ...."}},
        {kL,
         {".... XXX. X... ....", ".... X... X... XX..", ".... ..X. XXX. ....",
          ".... XX.. .X.. .X.."}},
        {kS, {".... .XX. XX.. ....", "X... XX.. .X.. ...."}},
        {kJ,
         {".... XXX. ..X. ....", ".... XX.. X... X...", ".... X... XXX. ....",
          ".... .X.. .X.. XX.."}},
        {kT,
         {".... XXX. .X.. ....", ".X.. .XX. .X.. ....", ".X.. XXX. .... ....",
          ".X.. XX.. .X.. ...."}},
    };
    for (const auto& [type, pictures] : kPictures) {
        SCOPED_TRACE(type);
        Board board;
        Figure figure(board, type, 0);
        for (std::size_t step = 0; step <= kRotations; ++step) {
            EXPECT_EQ(PictureOf(figure), pictures[step % pictures.size()]);
            ASSERT_TRUE(figure.Rotate(Turn::CounterClockwise));
        }
        for (std::size_t step = kRotations + 1; step > 0; --step) {
            ASSERT_TRUE(figure.Rotate(Turn::Clockwise));
            EXPECT_EQ(PictureOf(figure), pictures[(step - 1) % pictures.size()]);
        }
    }
}

TEST(FigureShapes, AnUnknownTypeIsMadeAsAT) {
    for (const int type : {0, 8, -1, 1000}) {
        Board board;
        EXPECT_EQ(Figure(board, type, 0).Type(), kT) << type;
    }
}

TEST(FigureShapes, TheGeneratorDealsAllTypesEvenly) {
    SeedRandom(12345);
    std::map<int, int> counts;
    for (int i = 0; i < 70'000; ++i)
        ++counts[RandomFigureType()];
    ASSERT_EQ(counts.size(), kFigureTypes);
    EXPECT_EQ(counts.begin()->first, kBar);
    for (const auto& [type, count] : counts)
        EXPECT_NEAR(count, 10'000, 400) << type;
}

TEST(RandomValues, FollowTheSeed) {
    // Worked out by hand from state := state * 214013 + 2531011, value := bits 16 to 30.
    SeedRandom(1);
    for (const int want : {41, 18467, 6334, 26500, 19169})
        EXPECT_EQ(Random(), want);
    SeedRandom(0xFFFFFFFF);
    const int first = Random();
    SeedRandom(0xFFFFFFFF);
    EXPECT_EQ(Random(), first);
}

struct TurnCase {
    const char* name;
    int type;
    int rotation;
    int column;
    int row;
    int pixelOffset;
    Turn turn;
    std::vector<Point> occupied;
    bool plain;    // whether the plain turn is done
    bool gliding;  // whether the gliding turn is done
};

TEST(FigureMoves, TurnsNeedTheirCellsAndGlidingOnesTheRowBelowToo) {
    constexpr Turn kLeftTurn = Turn::CounterClockwise;
    constexpr Turn kRightTurn = Turn::Clockwise;
    const TurnCase kCases[] = {
        {"bar at the left wall", kBar, 1, -1, 5, 0, kLeftTurn, {}, false, false},
        {"bar one off the left wall", kBar, 1, 0, 5, 0, kRightTurn, {}, true, true},
        {"bar at the right wall", kBar, 1, 8, 5, 0, kLeftTurn, {}, false, false},
        {"bar just too far right", kBar, 1, 7, 5, 0, kLeftTurn, {}, false, false},
        {"bar with just enough room", kBar, 1, 6, 5, 0, kLeftTurn, {}, true, true},
        {"lying bar on the floor", kBar, 0, 3, 20, 0, kLeftTurn, {}, false, false},
        {"lying bar with room to the floor", kBar, 0, 3, 18, 0, kLeftTurn, {}, true, true},
        {"the same between two rows", kBar, 0, 3, 18, 1, kLeftTurn, {}, true, false},
        {"L over the floor", kL, 0, 4, 18, 0, kLeftTurn, {}, true, true},
        {"L between two rows over the floor", kL, 0, 4, 18, 5, kLeftTurn, {}, true, false},
        {"L the other way", kL, 0, 4, 18, 5, kRightTurn, {}, true, false},
        {"a cell in the way", kT, 0, 4, 5, 0, kLeftTurn, {{5, 5}}, false, false},
        {"a cell in the way of the other turn only",
         kT,
         1,
         4,
         5,
         0,
         kRightTurn,
         {{5, 4}},
         true,
         true},
        {"a cell in the row below only", kT, 2, 4, 5, 8, kLeftTurn, {{8, 5}}, true, false},
        {"square in a corner", kSquare, 0, 0, 19, 0, kLeftTurn, {}, true, true},
        {"square in a hole", kSquare, 0, 4, 5, 0, kRightTurn, {{6, 3}, {6, 6}, {8, 4}}, true, true},
    };
    for (const TurnCase& c : kCases) {
        SCOPED_TRACE(c.name);
        for (const bool gliding : {false, true}) {
            Board board;
            Figure figure(board, c.type, 0);
            BringTo(figure, c.rotation, c.column, c.row);
            GlideOffset(figure, c.pixelOffset);
            for (const auto& [row, column] : c.occupied)
                board.Set(row, column, kMarkerCell);
            const bool done = gliding ? figure.RotateGliding(c.turn, 1) : figure.Rotate(c.turn);
            EXPECT_EQ(done, gliding ? c.gliding : c.plain);
            const int step = c.turn == kRightTurn ? 3 : 1;
            EXPECT_EQ(figure.Rotation(), done ? (c.rotation + step) % 4 : c.rotation);
            EXPECT_EQ(figure.Column(), c.column);
        }
    }
}

TEST(FigureMoves, RepeatedTurnsStopAtTheFirstBlockedOne) {
    Board board;
    Figure figure(board, kL, 0);
    EXPECT_TRUE(figure.RotateGliding(Turn::CounterClockwise, 0));
    EXPECT_EQ(figure.Rotation(), 0);
    EXPECT_TRUE(figure.RotateGliding(Turn::CounterClockwise, 3));
    EXPECT_EQ(figure.Rotation(), 3);
    board.Set(1, 6, kMarkerCell);  // rotations 0 and 2 need the cell, 1 and 3 do not
    BringTo(figure, 3, 4, 0);
    EXPECT_FALSE(figure.RotateGliding(Turn::CounterClockwise, 2));
    EXPECT_EQ(figure.Rotation(), 3);
    board.Set(1, 6, kEmptyCell);
    board.Set(3, 4, kMarkerCell);  // rotation 1 alone needs this one
    EXPECT_FALSE(figure.RotateGliding(Turn::CounterClockwise, 2));
    EXPECT_EQ(figure.Rotation(), 0);
}

TEST(FigureMoves, SidewaysStepsNeedRoomInEveryRowTheFigureCovers) {
    struct Case {
        int pixelOffset;
        Point occupied;
        bool left;
        bool right;
    };
    // A square with its cells in rows 6 and 7, columns 4 and 5.
    constexpr Case kCases[] = {
        {0, {6, 3}, false, true}, {0, {7, 6}, true, false}, {0, {8, 3}, true, true},
        {5, {8, 3}, false, true}, {5, {8, 6}, true, false}, {15, {6, 6}, true, false},
        {5, {9, 3}, true, true},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::Message()
                     << c.pixelOffset << ": " << c.occupied.first << ", " << c.occupied.second);
        Board board;
        board.Set(c.occupied.first, c.occupied.second, 1);
        for (const bool toTheLeft : {true, false}) {
            Figure figure(board, kSquare, 0);
            BringTo(figure, 0, 4, 5);
            GlideOffset(figure, c.pixelOffset);
            const bool moved = toTheLeft ? figure.MoveLeftGliding() : figure.MoveRightGliding();
            EXPECT_EQ(moved, toTheLeft ? c.left : c.right);
            EXPECT_EQ(figure.Column(), 4 + (!moved ? 0 : toTheLeft ? -1 : 1));
            EXPECT_EQ(figure.PixelOffset(), c.pixelOffset);
        }
    }
}

TEST(FigureMoves, WallsAndFloorStopPlainMoves) {
    for (int type = kBar; type <= kT; ++type) {
        SCOPED_TRACE(type);
        Board board;
        Figure figure(board, type, 0);
        std::set<int> columns;
        std::set<int> rows;
        const auto collect = [&] {
            for (const FigureCell cell : figure.Cells()) {
                columns.insert(figure.Column() + cell.dx);
                rows.insert(figure.Row() + cell.dy);
            }
        };
        while (figure.MoveLeft())
            collect();
        while (figure.MoveRight())
            collect();
        while (figure.MoveDown())
            collect();
        EXPECT_EQ(*columns.begin(), 0);
        EXPECT_EQ(*columns.rbegin(), kBoardColumns - 1);
        EXPECT_EQ(*rows.rbegin(), kBoardRows - 1);
    }
}

TEST(FigureGlide, MovesOnlyOnceMoreThanOnePixelIsOwed) {
    struct Case {
        std::vector<double> pixels;
        int row;
        int offset;
    };
    const Case kCases[] = {
        {{0.4, 0.4}, 0, 0},
        {{0.4, 0.4, 0.4}, 0, 1},
        {{0.4, 0.4, 0.4, 0.75}, 0, 1},  // 0.2 stayed owed: 0.95
        {{0.4, 0.4, 0.4, 0.85}, 0, 2},  // 1.05
        {{1.0}, 0, 0},
        {{1.0, 0.001}, 0, 1},
        {{1.999}, 0, 1},
        {{16.0}, 1, 0},
        {{15.5, 0.75}, 1, 0},
        {{40.0}, 2, 8},
        {{1e18}, 20, 0},
    };
    for (const Case& c : kCases) {
        Board board;
        Figure figure(board, kBar, 0);
        for (const double pixels : c.pixels)
            figure.Glide(pixels);
        EXPECT_EQ(figure.Row(), c.row);
        EXPECT_EQ(figure.PixelOffset(), c.offset);
    }
}

TEST(FigureGlide, IsBlockedOnlyOnARowAndKeepsWhatItOwes) {
    Board board;
    board.Set(5, 4, kMarkerCell);
    Figure figure(board, kBar, 0);  // cells in row 1
    EXPECT_TRUE(figure.Glide(47.5));
    EXPECT_EQ(figure.PixelOffset(), 15);
    EXPECT_FALSE(figure.Glide(3.0));
    EXPECT_EQ(figure.Row(), 3);
    EXPECT_EQ(figure.PixelOffset(), 0);
    // 2.5 pixels are still owed: without a pixel more the way is asked for and, once free, taken.
    EXPECT_FALSE(figure.Glide(0.0));
    board.Set(5, 4, kEmptyCell);
    EXPECT_TRUE(figure.Glide(0.0));
    EXPECT_EQ(figure.PixelOffset(), 2);
    // Once on its way into a row it arrives there, whatever has come into the row meanwhile.
    board.FillRow(5, kMarkerCell);
    board.FillRow(6, kMarkerCell);
    EXPECT_FALSE(figure.Glide(20.0));
    EXPECT_EQ(figure.Row(), 4);
    EXPECT_EQ(figure.PixelOffset(), 0);
}

TEST(FigureGlide, EndsWhenTheFigureMovesByWholeRowsAgain) {
    Board board;
    Figure figure(board, kSquare, 0);
    BringTo(figure, 0, 4, 18);
    GlideOffset(figure, 5);
    ASSERT_TRUE(figure.MoveDown());  // now on the floor
    EXPECT_EQ(figure.PixelOffset(), 0);
    EXPECT_FALSE(figure.Glide(20.0));
    EXPECT_EQ(figure.Row(), 19);
}

TEST(FigureLock, WritesTheTypeAndLiftingStopsAtTheTop) {
    Board board;
    Figure figure(board, kS, 0);
    figure.LiftOneRow();
    EXPECT_EQ(figure.Row(), 0);
    BringTo(figure, 0, 0, 19);
    figure.Lock();
    std::set<Point> cells;
    for (int row = 0; row < kBoardRows; ++row) {
        for (int column = 0; column < kBoardColumns; ++column) {
            if (board.At(row, column) == kS) cells.insert({row, column});
        }
    }
    EXPECT_EQ(cells, (std::set<Point>{{20, 1}, {20, 2}, {21, 0}, {21, 1}}));
    EXPECT_FALSE(figure.Fits());
    figure.LiftOneRow();
    figure.LiftOneRow();
    EXPECT_EQ(figure.Row(), 17);
    EXPECT_TRUE(figure.Fits());
}

}  // namespace
}  // namespace korvane
