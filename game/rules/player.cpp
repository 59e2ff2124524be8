#include "game/rules/player.h"

#include <utility>

#include "app/state/process_state.h"
#include "game/rules/key_bindings.h"
#include "game/rules/random.h"
#include "platform/base/virtual_keys.h"
#include "platform/host/kernel.h"

namespace korvane {
namespace {

// The boards stand 320 pixels apart, the right player's to the right.
constexpr std::array kBoardScreenX = {365, 45};

constexpr std::array<std::uint8_t, 2> kNextIsBarKeys = {VK_F9, VK_F5};

}  // namespace

Player::Player(Side side, std::unique_ptr<PlayerSounds> sounds)
    : side_(side), boardScreenX_(kBoardScreenX[IndexOf(side)]), sounds_(std::move(sounds)) {
    LoadPlayerSounds();
}

void Player::LoadPlayerSounds() {
    if (sounds_) sounds_->Load();
}

void Player::ResetPlayer() {
    clock_.Reset();
    lastRows_ = wins_ = lines_ = level_ = 0;
    score_ = shownScore_ = 0;
    figureCount_ = 0;
    highScoreEntered_ = joined_ = false;
    gameOver_ = true;
    field_.Clear();
    current_.reset();
    next_.reset();
    statistics_.ResetChart();
}

bool Player::StartGame(bool timed) {
    highScoreEntered_ = false;
    joined_ = true;
    shownScore_ = 0;
    ResetGame();

    SeedRandom(static_cast<std::uint32_t>(SecondsSinceEpoch()));
    next_ = MakeFigure(RandomFigureType());
    gameOver_ = won_ = paused_ = false;
    clock_.Start(GetTickCount(), timed);
    return SpawnNext();
}

void Player::ResetGame() {
    ReleaseHeldKeys();
    current_.reset();
    next_.reset();
    statistics_.ResetChart();
    score_ = lines_ = level_ = 0;
    figureCount_ = 0;
    field_.Reset(PlayedDifficulty(theSettings, side_));
}

std::unique_ptr<Figure> Player::MakeFigure(int type) {
    return std::make_unique<Figure>(field_.board, type, boardScreenX_);
}

/// The next figure becomes the falling one. False: it found no room and the game is over; it stays
/// to be seen where it stands.
bool Player::SpawnNext() {
    lastSideMoveTick_ = lastSoftDropTick_ = lastFallTick_ = 0;
    if (gameOver_) return true;
    current_ = std::exchange(next_, MakeFigure(RandomFigureType()));
    if (!current_->Fits()) {
        gameOver_ = true;
        return false;
    }
    ++figureCount_;
    statistics_.AddFigure(current_->Type());
    UpdateLevel();
    AddDifficultyGarbage();
    landState_ = LandState::Falling;
    return true;
}

int Player::KeyDown(std::uint8_t key) {
    if (paused_) return kKeyRefused;
    const auto isKeyOf = [&](Action action) { return keyBindings.IsKeyOf(action, side_, key); };
    if (isKeyOf(Action::Left)) {
        held_.left = true;
    } else if (isKeyOf(Action::Right)) {
        held_.right = true;
    } else if (isKeyOf(Action::Rotate)) {
        TurnFigure();
    } else if (isKeyOf(Action::Drop)) {
        held_.drop = true;
    } else if (key == kNextIsBarKeys[IndexOf(side_)]) {
        if (nextFigureCheat) next_ = MakeFigure(kBar);
    } else {
        return kKeyRefused;
    }
    return kKeyTaken;
}

int Player::KeyUp(std::uint8_t key) {
    const auto isKeyOf = [&](Action action) { return keyBindings.IsKeyOf(action, side_, key); };
    bool* held = isKeyOf(Action::Left)    ? &held_.left
                 : isKeyOf(Action::Right) ? &held_.right
                 : isKeyOf(Action::Drop)  ? &held_.drop
                                          : nullptr;
    if (!held) return kKeyRefused;
    if (joined_) *held = false;
    return kKeyTaken;
}

void Player::ReleaseHeldKeys() {
    held_ = {};
}

void Player::TurnFigure() {
    if (!CanMoveFigure()) return;
    const Turn turn =
        theSettings.clockwise[IndexOf(side_)] ? Turn::Clockwise : Turn::CounterClockwise;
    const bool turned =
        theSettings.scrollingPieces ? current_->RotateGliding(turn, 1) : current_->Rotate(turn);
    if (turned) PlaySound(GameSound::Rotate);
}

bool Player::TogglePause() {
    const std::uint32_t now = GetTickCount();
    if (paused_) {
        clock_.Resume(now);
    } else {
        clock_.Pause(now);
    }
    ReleaseHeldKeys();
    paused_ = !paused_;
    return paused_;
}

void Player::SetJoined(bool joined) {
    joined_ = joined;
    gameOver_ = !joined;
}

void Player::DeclareWinner() {
    if (won_) return;
    won_ = true;
    ++wins_;
}

void Player::UpdatePlayingTime() {
    if (!paused_ && !won_ && !gameOver_) clock_.Update(GetTickCount());
}

}  // namespace korvane
