#pragma once

#include <array>

#include "game/rules/board.h"
#include "game/rules/side.h"

namespace korvane {

/// A player's board with the rows that wait for their removal and the garbage that comes in.
class Field {
  public:
    Board board;

    /// An empty board with the starting garbage of a difficulty; no row waits.
    void Reset(Difficulty difficulty);
    /// An empty board; no row waits.
    void Clear();

    /// Finds every full row and fills it with markers; the number of full rows.
    int MarkFullRows();
    /// Some marked rows have not been removed yet.
    bool HasMarkedRows() const;
    /// Closes the board up over the marked rows; a falling figure stays where it is.
    void RemoveMarkedRows();

    /// Puts one block into the lowest empty row that is not near the floor, where it floats.
    void AddJunkBlock();
    /// Pushes the stack up, marked rows and all, by a row of random cells with one to three sure
    /// holes. False, with
    /// nothing changed, unless this many rows at the top are empty.
    bool PushGarbageRow(int requiredFreeRows);

  private:
    void AddStartingGarbage(Difficulty difficulty);

    std::array<bool, kBoardRows> isMarked_{};
};

}  // namespace korvane
