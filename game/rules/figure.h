#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "game/rules/board.h"

namespace korvane {

enum FigureType : int { kBar = 1, kZ, kSquare, kL, kS, kJ, kT };

inline constexpr std::size_t kFigureTypes = 7;
inline constexpr std::size_t kRotations = 4;

/// A cell of a figure, counted from the figure's origin: columns to the right, rows downwards.
struct FigureCell {
    std::int8_t dx = 0;
    std::int8_t dy = 0;

    bool operator==(const FigureCell&) const = default;
};

using FigureCells = std::array<FigureCell, 4>;

enum class Turn { CounterClockwise, Clockwise };

/// A falling figure on its player's board.
///
/// It moves in one of two ways: a whole row at a time (Rotate, MoveDown, MoveLeft, MoveRight), or
/// gliding pixel by pixel, when it can stand between two rows and needs room in both. Every
/// operation that returns a bool tells whether it was done; a blocked one changes nothing unless it
/// says so. Only `Lock` writes the board.
class Figure {
  public:
    /// A figure at the top of the board. A type that does not exist becomes kT. `boardScreenX` is
    /// the screen's x of the board's column 0.
    Figure(Board& board, int type, int boardScreenX);
    virtual ~Figure() = default;
    Figure(const Figure&) = delete;
    Figure& operator=(const Figure&) = delete;

    bool Rotate(Turn turn);
    bool MoveDown();
    bool MoveLeft();
    bool MoveRight();

    /// Turns `times` times; turns done before a blocked one stay.
    bool RotateGliding(Turn turn, int times);
    bool MoveLeftGliding();
    bool MoveRightGliding();
    /// Adds to the pixels owed and moves down by their whole number once they exceed one. False
    /// when the way into a next row is blocked; the figure then stands exactly on its row and what
    /// it could not move stays owed.
    bool Glide(double pixels);

    /// Whether all four cells lie on empty ones.
    bool Fits() const;
    /// Writes the figure into the board.
    void Lock();
    /// One row up, but not above row 0.
    void LiftOneRow();

    FigureType Type() const { return type_; }
    int Rotation() const { return rotation_; }
    /// Board column and row of the origin that `Cells` count from; the column may be negative.
    int Column() const { return column_; }
    int Row() const { return row_; }
    /// How far the figure has glided from its row towards the next, 0 to kCellPixels - 1.
    int PixelOffset() const { return pixelOffset_; }
    int BoardScreenX() const { return boardScreenX_; }
    const FigureCells& Cells() const { return CellsOf(rotation_); }

  private:
    const FigureCells& CellsOf(int rotation) const;
    bool HasRoom(int rotation, int down, int right) const;
    bool HasRoomGliding(int rotation, int right) const;
    int Turned(Turn turn) const;
    void LeaveGlide();

    Board& board_;
    FigureType type_;
    int rotation_ = 0;
    int column_ = 4;
    int row_ = 0;
    int pixelOffset_ = 0;
    double pixelsOwed_ = 0.0;
    int boardScreenX_;
};

/// A random type for a new figure.
int RandomFigureType();

}  // namespace korvane
