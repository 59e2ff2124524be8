#include <algorithm>

#include "game/rules/player.h"
#include "platform/host/kernel.h"

namespace korvane {
namespace {

constexpr std::uint32_t kSideMoveMs = 80;
constexpr std::uint32_t kRowRemovalMs = 200;

// A figure that rests can be slid for this long before it locks. Falling by rows it has until the
// next fall anyway.
constexpr std::uint32_t kPlainLockMs = 0;
constexpr std::uint32_t kGlidingLockMs = 200;

// Longer than any figure takes for one row.
constexpr double kHardDropSeconds = 5.0;

/// How far a figure has fallen, in pixels.
int DepthOf(const Figure& figure) {
    return figure.Row() * kCellPixels + figure.PixelOffset();
}

}  // namespace

void Player::UpdatePlayer(double seconds) {
    // Taken once: both keys held move the figure there and back in one frame.
    const bool mayMove = GetTickCount() - lastSideMoveTick_ > kSideMoveMs;
    if (held_.left && mayMove) StepSideways(&Figure::MoveLeft, &Figure::MoveLeftGliding);
    if (held_.right && mayMove) StepSideways(&Figure::MoveRight, &Figure::MoveRightGliding);
    UpdateFall(seconds);
    if (held_.drop) DropWhileHeld();
}

/// A blocked step leaves the tick, so that the figure moves as soon as the way is free.
void Player::StepSideways(FigureMove plain, FigureMove gliding) {
    if (!CanMoveFigure()) return;
    const FigureMove step = theSettings.scrollingPieces ? gliding : plain;
    if ((current_.get()->*step)()) lastSideMoveTick_ = GetTickCount();
}

void Player::UpdateFall(double seconds) {
    const std::uint32_t now = GetTickCount();
    const bool gliding = theSettings.scrollingPieces;
    if (!gliding && now - lastFallTick_ < fallInterval_) return;
    if (paused_ || won_) return;
    if (landState_ == LandState::Falling) FallOrLand(now, seconds);
    lastFallTick_ = now;
    const std::uint32_t lockMs = gliding ? kGlidingLockMs : kPlainLockMs;
    if (landState_ == LandState::Landed && now - landTick_ > lockMs) {
        landState_ = FallsOn(seconds) ? LandState::Falling : LandState::LockNow;
    }
    if (landState_ == LandState::LockNow) LockFigure(now);
}

void Player::FallOrLand(std::uint32_t now, double seconds) {
    if (now - lockTick_ > kRowRemovalMs) field_.RemoveMarkedRows();
    if (FallStep(seconds)) return;
    landState_ = LandState::Landed;
    landTick_ = now;
    PlaySound(GameSound::Landed);
}

/// Whether a figure found resting has been slid off what it stood on. A long glide can carry it to
/// its next rest within the one step; it is then blocked again, but has moved.
bool Player::FallsOn(double seconds) {
    if (!current_) return true;
    const int depth = DepthOf(*current_);
    return FallStep(seconds) || DepthOf(*current_) != depth;
}

/// False when the figure is blocked; without a figure that can move, nothing is.
bool Player::FallStep(double seconds) {
    if (!CanMoveFigure()) return true;
    return theSettings.scrollingPieces ? current_->Glide(fallInterval_ * seconds)
                                       : current_->MoveDown();
}

void Player::DropWhileHeld() {
    if (theSettings.dropDelayMs == 0) {
        HardDrop();
        held_.drop = false;
    } else if (GetTickCount() - lastSoftDropTick_ > theSettings.dropDelayMs) {
        SoftDropStep();
    }
}

/// Straight down. A step that is not blocked may still not move: at a speed of 0, or without a
/// figure that can move.
void Player::HardDrop() {
    if (!current_) return;
    int depth = 0;
    do {
        depth = DepthOf(*current_);
    } while (FallStep(kHardDropSeconds) && DepthOf(*current_) != depth);
}

void Player::SoftDropStep() {
    if (!CanMoveFigure() || landState_ != LandState::Falling) return;
    // A magnitude from a damaged file must not pull the figure up.
    const bool moved = theSettings.scrollingPieces
                           ? current_->Glide(std::max(theSettings.dropMagnitude, 0))
                           : current_->MoveDown();
    // The ordinary fall must not add a step right behind it.
    if (moved) lastFallTick_ = lastSoftDropTick_ = GetTickCount();
}

/// The next figure falls already while the completed rows are still to be seen. Rows that wait
/// since the last lock go first, and the figure's own cells sink with what lies above them: every
/// row is counted once.
void Player::LockFigure(std::uint32_t now) {
    lockTick_ = now;
    if (current_) current_->Lock();
    field_.RemoveMarkedRows();
    SpawnNext();
    ScanRows();
}

}  // namespace korvane
