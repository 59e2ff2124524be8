#include "tests/support/sound_player.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

void ExpectSoundField(const Board& board) {
    for (int column = 0; column < kBoardColumns; ++column) {
        for (int row = 0; row < kBoardRows; ++row) {
            ASSERT_LE(board.At(row, column), kMarkerCell);
        }
        ASSERT_EQ(board.At(kBoardRows, column), 1) << "the floor has a hole";
    }
}

void ExpectFigureInside(const Figure& figure) {
    ASSERT_TRUE(figure.PixelOffset() >= 0 && figure.PixelOffset() < kCellPixels);
    // Between two rows it covers the lower one as well.
    const int lowest = figure.PixelOffset() == 0 ? kBoardRows - 1 : kBoardRows - 2;
    for (const FigureCell cell : figure.Cells()) {
        const int row = figure.Row() + cell.dy;
        const int column = figure.Column() + cell.dx;
        ASSERT_TRUE(row >= 0 && row <= lowest) << row;
        ASSERT_TRUE(column >= 0 && column < kBoardColumns) << column;
    }
}

}  // namespace

void ExpectSoundPlayer(const Player& player) {
    ExpectSoundField(player.GameBoard());
    if (player.CurrentFigure()) ExpectFigureInside(*player.CurrentFigure());
    ASSERT_TRUE(player.Level() >= 0 && player.Level() <= 9);
    ASSERT_TRUE(player.Seconds() >= 0 && player.Seconds() < 60);
    ASSERT_GE(player.Score(), player.ShownScore());
    ASSERT_EQ(static_cast<std::uint32_t>(player.Statistics().Total()), player.FigureCount());
}

}  // namespace korvane
