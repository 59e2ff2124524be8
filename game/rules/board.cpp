#include "game/rules/board.h"

#include <algorithm>

namespace korvane {
namespace {

constexpr std::uint8_t kFloorCell = 1;

}  // namespace

Board::Board() {
    cells_.fill(kFloorCell);
    Clear();
}

void Board::Clear() {
    std::fill_n(cells_.begin(), kBoardRows * kBoardColumns, kEmptyCell);
}

bool Board::IsRowEmpty(int row) const {
    return std::all_of(&cells_[Index(row, 0)], &cells_[Index(row, 0)] + kBoardColumns,
                       [](std::uint8_t cell) { return cell == kEmptyCell; });
}

bool Board::IsRowFull(int row) const {
    return std::none_of(&cells_[Index(row, 0)], &cells_[Index(row, 0)] + kBoardColumns,
                        [](std::uint8_t cell) { return cell == kEmptyCell; });
}

void Board::FillRow(int row, std::uint8_t value) {
    assert(row < kBoardRows);
    std::fill_n(&cells_[Index(row, 0)], kBoardColumns, value);
}

void Board::RemoveRow(int row) {
    assert(row < kBoardRows);
    const auto end = cells_.begin() + static_cast<std::ptrdiff_t>(Index(row, 0));
    std::copy_backward(cells_.begin(), end, end + kBoardColumns);
    FillRow(0, kEmptyCell);
}

void Board::RaiseRows(int first) {
    assert(first >= 1);
    const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(Index(first, 0));
    std::copy(begin, cells_.begin() + kBoardRows * kBoardColumns, begin - kBoardColumns);
    FillRow(kBoardRows - 1, kEmptyCell);
}

}  // namespace korvane
