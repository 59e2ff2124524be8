#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>

namespace korvane {

inline constexpr int kBoardRows = 22;
inline constexpr int kBoardColumns = 10;
inline constexpr int kCellPixels = 16;

/// What a cell of the board holds; 1 to 7 are cells of that figure type.
enum : std::uint8_t { kEmptyCell = 0, kMarkerCell = 8 };

/// The playing field: rows 0 (top) to 21 of ten cells each, and below them a floor, row 22, that is
/// always occupied, so that looking one row down needs no test of its own.
class Board {
  public:
    Board();

    /// Empties the field; the floor stays.
    void Clear();

    /// The value of a cell, row 0 to 22.
    std::uint8_t At(int row, int column) const { return cells_[Index(row, column)]; }

    /// Writes a cell of the field, row 0 to 21.
    void Set(int row, int column, std::uint8_t value) {
        assert(row < kBoardRows);
        cells_[Index(row, column)] = value;
    }

    /// Whether a figure's cell can be there: an empty cell of the field. Any point may be asked.
    bool IsFree(int row, int column) const {
        return row >= 0 && row <= kBoardRows && column >= 0 && column < kBoardColumns &&
               At(row, column) == kEmptyCell;
    }

    bool IsRowEmpty(int row) const;
    /// No empty cell in it, whatever the values.
    bool IsRowFull(int row) const;
    void FillRow(int row, std::uint8_t value);

    /// Takes a row out: the rows above it move down one and row 0 becomes empty.
    void RemoveRow(int row);
    /// Moves the rows `first` (1 or more) to 21 up one, over row first - 1; row 21 becomes empty.
    void RaiseRows(int first);

    bool operator==(const Board&) const = default;

  private:
    static std::size_t Index(int row, int column) {
        assert(row >= 0 && row <= kBoardRows && column >= 0 && column < kBoardColumns);
        return static_cast<std::size_t>(row * kBoardColumns + column);
    }

    std::array<std::uint8_t, (kBoardRows + 1) * kBoardColumns> cells_;
};

}  // namespace korvane
