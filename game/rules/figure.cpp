#include "game/rules/figure.h"

#include <algorithm>

#include "game/rules/random.h"

namespace korvane {
namespace {

using Shape = std::array<FigureCells, kRotations>;

// Rotations 0 to 3, each a quarter turn counter-clockwise from the one before. Shapes that look the
// same after half a turn toggle between two states and do not turn about a fixed cell.
constexpr std::array kShapes = {
    // Bar
    Shape{{{{{0, 1}, {1, 1}, {2, 1}, {3, 1}}},
           {{{1, 0}, {1, 1}, {1, 2}, {1, 3}}},
           {{{0, 1}, {1, 1}, {2, 1}, {3, 1}}},
           {{{1, 0}, {1, 1}, {1, 2}, {1, 3}}}}},
    // Z
    Shape{{{{{0, 1}, {1, 1}, {1, 2}, {2, 2}}},
           {{{1, 0}, {0, 1}, {1, 1}, {0, 2}}},
           {{{0, 1}, {1, 1}, {1, 2}, {2, 2}}},
           {{{1, 0}, {0, 1}, {1, 1}, {0, 2}}}}},
    // Square
    Shape{{{{{0, 1}, {1, 1}, {0, 2}, {1, 2}}},
           {{{0, 1}, {1, 1}, {0, 2}, {1, 2}}},
           {{{0, 1}, {1, 1}, {0, 2}, {1, 2}}},
           {{{0, 1}, {1, 1}, {0, 2}, {1, 2}}}}},
    // L
    Shape{{{{{0, 1}, {1, 1}, {2, 1}, {0, 2}}},
           {{{0, 1}, {0, 2}, {0, 3}, {1, 3}}},
           {{{2, 1}, {0, 2}, {1, 2}, {2, 2}}},
           {{{0, 1}, {1, 1}, {1, 2}, {1, 3}}}}},
    // S
    Shape{{{{{1, 1}, {2, 1}, {0, 2}, {1, 2}}},
           {{{0, 0}, {0, 1}, {1, 1}, {1, 2}}},
           {{{1, 1}, {2, 1}, {0, 2}, {1, 2}}},
           {{{0, 0}, {0, 1}, {1, 1}, {1, 2}}}}},
    // J
    Shape{{{{{0, 1}, {1, 1}, {2, 1}, {2, 2}}},
           {{{0, 1}, {1, 1}, {0, 2}, {0, 3}}},
           {{{0, 1}, {0, 2}, {1, 2}, {2, 2}}},
           {{{1, 1}, {1, 2}, {0, 3}, {1, 3}}}}},
    // T
    Shape{{{{{0, 1}, {1, 1}, {2, 1}, {1, 2}}},
           {{{1, 0}, {1, 1}, {2, 1}, {1, 2}}},
           {{{1, 0}, {0, 1}, {1, 1}, {2, 1}}},
           {{{1, 0}, {0, 1}, {1, 1}, {1, 2}}}}},
};

static_assert(kShapes.size() == kFigureTypes);

FigureType KnownType(int type) {
    return type >= kBar && type <= kT ? static_cast<FigureType>(type) : kT;
}

}  // namespace

Figure::Figure(Board& board, int type, int boardScreenX)
    : board_(board), type_(KnownType(type)), boardScreenX_(boardScreenX) {}

bool Figure::Rotate(Turn turn) {
    const int target = Turned(turn);
    if (!HasRoom(target, 0, 0)) return false;
    rotation_ = target;
    LeaveGlide();
    return true;
}

bool Figure::MoveDown() {
    if (!HasRoom(rotation_, 1, 0)) return false;
    ++row_;
    LeaveGlide();
    return true;
}

bool Figure::MoveLeft() {
    if (!HasRoom(rotation_, 0, -1)) return false;
    --column_;
    LeaveGlide();
    return true;
}

bool Figure::MoveRight() {
    if (!HasRoom(rotation_, 0, 1)) return false;
    ++column_;
    LeaveGlide();
    return true;
}

bool Figure::RotateGliding(Turn turn, int times) {
    for (; times > 0; --times) {
        const int target = Turned(turn);
        if (!HasRoomGliding(target, 0)) return false;
        rotation_ = target;
    }
    return true;
}

bool Figure::MoveLeftGliding() {
    if (!HasRoomGliding(rotation_, -1)) return false;
    --column_;
    return true;
}

bool Figure::MoveRightGliding() {
    if (!HasRoomGliding(rotation_, 1)) return false;
    ++column_;
    return true;
}

bool Figure::Glide(double pixels) {
    pixelsOwed_ += pixels;
    if (pixelsOwed_ <= 1.0) return true;
    while (pixelsOwed_ >= 1.0) {
        // Between two rows the figure is known to have room in the lower one.
        if (pixelOffset_ == 0 && !HasRoom(rotation_, 1, 0)) return false;
        pixelsOwed_ -= 1.0;
        if (++pixelOffset_ == kCellPixels) {
            pixelOffset_ = 0;
            ++row_;
        }
    }
    return true;
}

bool Figure::Fits() const {
    return HasRoom(rotation_, 0, 0);
}

void Figure::Lock() {
    for (const FigureCell cell : Cells()) {
        board_.Set(row_ + cell.dy, column_ + cell.dx, static_cast<std::uint8_t>(type_));
    }
}

void Figure::LiftOneRow() {
    row_ = std::max(row_ - 1, 0);
}

const FigureCells& Figure::CellsOf(int rotation) const {
    return kShapes[static_cast<std::size_t>(type_ - kBar)][static_cast<std::size_t>(rotation)];
}

/// Whether the cells of a rotation would lie on empty ones, moved by some rows and columns.
bool Figure::HasRoom(int rotation, int down, int right) const {
    return std::ranges::all_of(CellsOf(rotation), [&](FigureCell cell) {
        return board_.IsFree(row_ + cell.dy + down, column_ + cell.dx + right);
    });
}

/// The same for a figure that, when it stands between two rows, covers both.
bool Figure::HasRoomGliding(int rotation, int right) const {
    return HasRoom(rotation, 0, right) && (pixelOffset_ == 0 || HasRoom(rotation, 1, right));
}

int Figure::Turned(Turn turn) const {
    constexpr int kCount = static_cast<int>(kRotations);
    return (rotation_ + (turn == Turn::Clockwise ? kCount - 1 : 1)) % kCount;
}

/// The way of moving can be changed under a falling figure. A move by whole rows has looked at one
/// row only, so a glide left over from before could carry the figure into cells, even the floor,
/// that nobody has looked at.
void Figure::LeaveGlide() {
    pixelOffset_ = 0;
    pixelsOwed_ = 0.0;
}

int RandomFigureType() {
    return Random() % static_cast<int>(kFigureTypes) + 1;
}

}  // namespace korvane
