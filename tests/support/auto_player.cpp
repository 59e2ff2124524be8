#include "tests/support/auto_player.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "game/rules/key_bindings.h"

namespace korvane {
namespace {

int TopOf(const Board& board, int column) {
    int row = 0;
    while (row < kBoardRows && board.IsFree(row, column))
        ++row;
    return row;
}

/// Lower is better: few cells high, few holes, an even surface.
int CostOf(const Board& board) {
    constexpr int kPerHeight = 5;
    constexpr int kPerHole = 8;
    constexpr int kPerStep = 2;
    constexpr int kPerFullRow = 8;
    int cost = 0;
    for (int column = 0; column < kBoardColumns; ++column) {
        const int top = TopOf(board, column);
        cost += kPerHeight * (kBoardRows - top);
        if (column > 0) cost += kPerStep * std::abs(top - TopOf(board, column - 1));
        for (int row = top; row < kBoardRows; ++row) {
            if (board.At(row, column) == kEmptyCell) cost += kPerHole;
        }
    }
    for (int row = 0; row < kBoardRows; ++row) {
        if (board.IsRowFull(row)) cost -= kPerFullRow * kBoardColumns;
    }
    return cost;
}

}  // namespace

void AutoPlayer::PressKeys() {
    const Figure* figure = player_.CurrentFigure();
    if (!figure || !player_.IsRunning()) return;
    const Side side = player_.PlayerSide();
    if (plannedFigure_ != player_.FigureCount()) PlanFigure();
    if (turnsLeft_ > 0) {
        Press(keyBindings.Key(Action::Rotate, side), true);
        --turnsLeft_;
    }
    Press(keyBindings.Key(Action::Left, side), figure->Column() > column_);
    Press(keyBindings.Key(Action::Right, side), figure->Column() < column_);
    // Once only: a hard drop must not take the following figure along.
    if (!dropped_ && turnsLeft_ == 0 && figure->Column() == column_) {
        Press(keyBindings.Key(Action::Drop, side), true);
        dropped_ = true;
    }
}

void AutoPlayer::PlanFigure() {
    plannedFigure_ = player_.FigureCount();
    const Placement best = BestPlacement();
    turnsLeft_ = best.turns;
    column_ = best.column;
    Press(keyBindings.Key(Action::Drop, player_.PlayerSide()), false);
    dropped_ = false;
}

AutoPlayer::Placement AutoPlayer::BestPlacement() const {
    Placement best{.cost = std::numeric_limits<int>::max()};
    const Turn turn = theSettings.clockwise[IndexOf(player_.PlayerSide())] ? Turn::Clockwise
                                                                           : Turn::CounterClockwise;
    for (int turns = 0; turns < static_cast<int>(kRotations); ++turns) {
        for (int shift = -kBoardColumns; shift < kBoardColumns; ++shift) {
            Board board = player_.GameBoard();
            Figure figure(board, player_.CurrentFigure()->Type(), 0);
            for (int i = 0; i < turns; ++i)
                figure.Rotate(turn);
            for (int i = 0; i < std::abs(shift); ++i) {
                shift < 0 ? figure.MoveLeft() : figure.MoveRight();
            }
            while (figure.MoveDown()) {
            }
            figure.Lock();
            const int cost = CostOf(board);
            if (cost < best.cost) best = {turns, figure.Column(), cost};
        }
    }
    return best;
}

void AutoPlayer::Press(std::uint8_t key, bool down) {
    down ? player_.KeyDown(key) : player_.KeyUp(key);
}

}  // namespace korvane
