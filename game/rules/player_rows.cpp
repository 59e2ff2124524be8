#include "game/rules/level_table.h"
#include "game/rules/player.h"

namespace korvane {
namespace {

constexpr std::array kRowPoints = {0, 50, 150, 400, 900};
constexpr int kLandingBonus = 4;
constexpr int kShownScoreStep = 5;

constexpr std::uint32_t kFiguresPerJunkBlock = 10;
constexpr std::uint32_t kFiguresPerGarbageRow = 15;
// Rows at the top that must be empty for a row to be pushed in.
constexpr int kFreeRowsForDifficulty = 10;
constexpr int kFreeRowsForBattle = 5;

/// Rows that one lock completed; a figure cannot complete more than the table knows, but a board
/// full of old rows can.
int PointsFor(int rows) {
    const auto index = static_cast<std::size_t>(rows);
    return index < kRowPoints.size() ? kRowPoints[index] : 0;
}

/// The highest level that has been reached, whatever the thresholds of those below; else 0.
template <typename IsReached>
int HighestLevel(const LevelThresholds& thresholds, IsReached isReached) {
    for (std::size_t level = kLevelCount - 1; level > 0; --level) {
        if (isReached(thresholds[level])) return static_cast<int>(level);
    }
    return 0;
}

}  // namespace

void Player::ScanRows() {
    const int rows = field_.MarkFullRows();
    lines_ += rows;
    PlayRowSound(rows);
    score_ += PointsFor(rows);
    lastRows_ = rows;
    if (!gameOver_) score_ += kLandingBonus;
}

/// A board full of old rows can complete more than there are sounds for; that is silent.
void Player::PlayRowSound(int rows) {
    constexpr std::array kRowSounds = {GameSound::Single, GameSound::Double, GameSound::Triple,
                                       GameSound::Tetris};
    const auto index = static_cast<std::size_t>(rows) - 1;
    if (index < kRowSounds.size()) PlaySound(kRowSounds[index]);
}

void Player::UpdateLevel() {
    const auto played = static_cast<std::uint32_t>(clock_.PlayedSeconds());
    const int before = level_;
    level_ = theSettings.timeBased[IndexOf(side_)]
                 ? HighestLevel(theLevelTable.secondsForLevel,
                                [&](std::uint32_t seconds) { return played >= seconds; })
                 : HighestLevel(theLevelTable.figuresForLevel,
                                [&](std::uint32_t figures) { return figureCount_ > figures; });
    const LevelSpeeds& speeds =
        theSettings.scrollingPieces ? theLevelTable.scrollingPxPerSecond : theLevelTable.normalMs;
    const auto difficulty = static_cast<std::size_t>(PlayedDifficulty(theSettings, side_));
    fallInterval_ = speeds[static_cast<std::size_t>(level_)][difficulty];
    if (level_ != before) PlaySound(GameSound::NewLevel);
}

/// What a difficulty adds when its time has come with a new figure.
void Player::AddDifficultyGarbage() {
    const Difficulty difficulty = PlayedDifficulty(theSettings, side_);
    if (difficulty == Difficulty::Medium && figureCount_ % kFiguresPerJunkBlock == 0) {
        field_.AddJunkBlock();
    }
    if (difficulty == Difficulty::Hard && figureCount_ % kFiguresPerGarbageRow == 0 &&
        !field_.HasMarkedRows()) {
        field_.PushGarbageRow(kFreeRowsForDifficulty);
    }
}

void Player::ReceiveRows(int count) {
    for (int i = 0; i < count; ++i) {
        if (field_.PushGarbageRow(kFreeRowsForBattle) && current_) current_->LiftOneRow();
    }
}

void Player::StepShownScore() {
    const bool climbs =
        theSettings.countUpScore && !gameOver_ && score_ - shownScore_ > kShownScoreStep;
    shownScore_ = climbs ? shownScore_ + kShownScoreStep : score_;
}

}  // namespace korvane
