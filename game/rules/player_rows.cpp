#include "game/rules/level_sound.h"
#include "game/rules/level_table.h"
#include "game/rules/player.h"

namespace korvane {
namespace {

constexpr std::array kRowPoints = {0, 50, 150, 400, 900};
constexpr int kLandingBonus = 4;
constexpr int kShownScoreStep = 5;

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

/// Marks, counts and scores every full row, those that still wait for their removal included.
void Player::ScanRows() {
    int rows = 0;
    for (int row = 0; row < kBoardRows; ++row) {
        const bool full = board_.IsRowFull(row);
        fullRows_[static_cast<std::size_t>(row)] = full;
        if (!full) continue;
        board_.FillRow(row, kMarkerCell);
        ++rows;
    }
    if (rows > 0) rowsPending_ = true;
    lines_ += rows;
    PlayRowSound(rows);
    score_ += PointsFor(rows);
    lastRows_ = rows;
    if (!gameOver_) score_ += kLandingBonus;
}

/// A board full of old rows can complete more than there are sounds for; that is silent.
void Player::PlayRowSound(int rows) {
    constexpr std::array kRowSounds = {Sound::Single, Sound::Double, Sound::Triple, Sound::Tetris};
    const auto index = static_cast<std::size_t>(rows) - 1;
    if (index < kRowSounds.size()) PlaySoundOf(kSfxRowsDone, kRowSounds[index]);
}

/// The falling figure stays where it is; the rows under it close up.
void Player::RemoveFullRows() {
    for (int row = 0; row < kBoardRows; ++row) {
        if (fullRows_[static_cast<std::size_t>(row)]) board_.RemoveRow(row);
    }
    rowsPending_ = false;
}

void Player::UpdateLevel() {
    const auto played = static_cast<std::uint32_t>(minutes_ * 60 + seconds_);
    const int before = level_;
    level_ = theSettings.timeBased[IndexOf(side_)]
                 ? HighestLevel(theLevelTable.secondsForLevel,
                                [&](std::uint32_t seconds) { return played >= seconds; })
                 : HighestLevel(theLevelTable.figuresForLevel,
                                [&](std::uint32_t figures) { return figureCount_ > figures; });
    const LevelSpeeds& speeds =
        theSettings.scrollingPieces ? theLevelTable.scrollingPxPerSecond : theLevelTable.normalMs;
    const auto difficulty = static_cast<std::size_t>(theSettings.PlayedDifficulty(side_));
    fallInterval_ = speeds[static_cast<std::size_t>(level_)][difficulty];
    if (level_ != before && MayPlay(kSfxLevelChange)) PlayLevelSound();
}

void Player::StepShownScore() {
    const bool climbs =
        theSettings.countUpScore && !gameOver_ && score_ - shownScore_ > kShownScoreStep;
    shownScore_ = climbs ? shownScore_ + kShownScoreStep : score_;
}

}  // namespace korvane
