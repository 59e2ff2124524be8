#include "game/rules/figure.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "game/rules/random.h"

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

TEST(RandomValues, FollowTheSeed) {
    // Worked out by hand from state := state * 214013 + 2531011, value := bits 16 to 30.
    SeedRandom(1);
    for (const int want : {41, 18467, 6334, 26500, 19169})
        EXPECT_EQ(Random(), want);
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
        {"a cell in the other turn's way", kT, 1, 4, 5, 0, kRightTurn, {{5, 4}}, true, true},
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

}  // namespace
}  // namespace korvane
