#include <algorithm>

#include "game/rules/player.h"
#include "game/rules/random.h"

namespace korvane {
namespace {

constexpr std::array<int, kDifficultyCount> kFirstStartingRow = {kBoardRows, 19, 17};
constexpr int kHolesPerRow = 3;

constexpr std::uint32_t kFiguresPerJunkBlock = 10;
constexpr int kLowestJunkRow = 18;

constexpr std::uint32_t kFiguresPerGarbageRow = 15;
// Rows at the top that must be empty for a row to be pushed in.
constexpr int kFreeRowsForDifficulty = 10;
constexpr int kFreeRowsForBattle = 5;

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

void Player::AddStartingGarbage() {
    const auto difficulty = static_cast<std::size_t>(theSettings.PlayedDifficulty(side_));
    const int first = kFirstStartingRow[difficulty];
    for (int row = first; row < kBoardRows; ++row)
        FillRandomly(board_, row);
    for (int row = first; row < kBoardRows; ++row) {
        // These holes fall in columns 0 to 7 only.
        for (int i = 0; i < kHolesPerRow; ++i)
            board_.Set(row, Random() & 7, kEmptyCell);
    }
}

/// What a difficulty adds when its time has come with a new figure.
void Player::AddDifficultyGarbage() {
    const Difficulty difficulty = theSettings.PlayedDifficulty(side_);
    if (difficulty == Difficulty::Medium && figureCount_ % kFiguresPerJunkBlock == 0) {
        AddJunkBlock();
    }
    if (difficulty == Difficulty::Hard && figureCount_ % kFiguresPerGarbageRow == 0 &&
        !rowsPending_) {
        PushGarbageRow(kFreeRowsForDifficulty);
    }
}

/// One block in the lowest empty row that is not near the floor; it floats there.
void Player::AddJunkBlock() {
    for (int row = kLowestJunkRow; row >= 0; --row) {
        if (!board_.IsRowEmpty(row)) continue;
        board_.Set(row, RandomColumn(), kMarkerCell);
        return;
    }
}

/// Pushes the stack up by a row of random cells with one to three sure holes. False, with nothing
/// changed, when one of the topmost rows is not empty.
bool Player::PushGarbageRow(int requiredFreeRows) {
    for (int row = 0; row < requiredFreeRows; ++row) {
        if (!board_.IsRowEmpty(row)) return false;
    }
    constexpr int kLastRow = kBoardRows - 1;
    board_.RaiseRows(std::max(requiredFreeRows - 1, 1));
    FillRandomly(board_, kLastRow);
    for (int i = 0; i < kHolesPerRow; ++i)
        board_.Set(kLastRow, RandomColumn(), kEmptyCell);
    return true;
}

void Player::ReceiveRows(int count) {
    for (int i = 0; i < count; ++i) {
        if (PushGarbageRow(kFreeRowsForBattle) && current_) current_->LiftOneRow();
    }
}

}  // namespace korvane
