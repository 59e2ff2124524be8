#include "game/rules/field.h"

#include <algorithm>

#include "game/rules/random.h"

namespace korvane {
namespace {

/// Where the starting garbage of each difficulty begins; Easy has none.
constexpr std::array<int, kDifficultyCount> kFirstStartingRow = {kBoardRows, 19, 17};
constexpr int kHolesPerRow = 3;
constexpr int kLowestJunkRow = 18;

/// 0 to 7, so that one cell in eight stays empty.
std::uint8_t RandomCell() {
    return static_cast<std::uint8_t>(Random() & 7);
}

int RandomColumn() {
    return Random() % kBoardColumns;
}

void FillRandomly(Board& board, int row) {
    for (int column = 0; column < kBoardColumns; ++column)
        board.Set(row, column, RandomCell());
}

}  // namespace

void Field::Clear() {
    board.Clear();
    isMarked_.fill(false);
}

void Field::Reset(Difficulty difficulty) {
    Clear();
    AddStartingGarbage(difficulty);
}

void Field::AddStartingGarbage(Difficulty difficulty) {
    const int first = kFirstStartingRow[static_cast<std::size_t>(difficulty)];
    for (int row = first; row < kBoardRows; ++row)
        FillRandomly(board, row);
    for (int row = first; row < kBoardRows; ++row) {
        // These holes fall in columns 0 to 7 only.
        for (int i = 0; i < kHolesPerRow; ++i)
            board.Set(row, Random() & 7, kEmptyCell);
    }
}

int Field::MarkFullRows() {
    for (int row = 0; row < kBoardRows; ++row) {
        const bool full = board.IsRowFull(row);
        isMarked_[static_cast<std::size_t>(row)] = full;
        if (full) board.FillRow(row, kMarkerCell);
    }
    return static_cast<int>(std::ranges::count(isMarked_, true));
}

bool Field::HasMarkedRows() const {
    return std::ranges::find(isMarked_, true) != isMarked_.end();
}

void Field::RemoveMarkedRows() {
    for (int row = 0; row < kBoardRows; ++row) {
        if (isMarked_[static_cast<std::size_t>(row)]) board.RemoveRow(row);
    }
    isMarked_.fill(false);
}

void Field::AddJunkBlock() {
    for (int row = kLowestJunkRow; row >= 0; --row) {
        if (!board.IsRowEmpty(row)) continue;
        board.Set(row, RandomColumn(), kMarkerCell);
        return;
    }
}

bool Field::PushGarbageRow(int requiredFreeRows) {
    for (int row = 0; row < requiredFreeRows; ++row) {
        if (!board.IsRowEmpty(row)) return false;
    }
    constexpr int kLastRow = kBoardRows - 1;
    const int highest = std::max(requiredFreeRows - 1, 1);
    board.RaiseRows(highest);
    std::shift_left(isMarked_.begin() + highest - 1, isMarked_.end(), 1);
    isMarked_.back() = false;
    FillRandomly(board, kLastRow);
    for (int i = 0; i < kHolesPerRow; ++i)
        board.Set(kLastRow, RandomColumn(), kEmptyCell);
    return true;
}

}  // namespace korvane
