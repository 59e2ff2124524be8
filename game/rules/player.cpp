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

// In the order of `Player::Sound`.
constexpr std::array kSoundFiles = {"Landed.wav", "Rotate.wav", "Single.wav",
                                    "Double.wav", "Triple.wav", "Tetris.wav"};

}  // namespace

Player::Player(Side side) : side_(side), boardScreenX_(kBoardScreenX[IndexOf(side)]) {
    LoadPlayerSounds();
}

void Player::LoadPlayerSounds() {
    static_assert(kSoundFiles.size() == static_cast<std::size_t>(Sound::Count));
    for (std::size_t i = 0; i < kSoundFiles.size(); ++i) {
        sounds_[i].reset();
        sounds_[i] = std::make_unique<SoundEffect>(kSoundFiles[i]);
    }
}

void Player::PlaySoundOf(std::uint8_t event, Sound sound) {
    if (MayPlay(event)) sounds_[static_cast<std::size_t>(sound)]->Play();
}

void Player::ResetPlayer() {
    minutes_ = seconds_ = 0;
    lastRows_ = wins_ = lines_ = level_ = 0;
    score_ = shownScore_ = 0;
    figureCount_ = 0;
    highScoreEntered_ = joined_ = rowsPending_ = false;
    gameOver_ = true;
    board_.Clear();
    current_.reset();
    next_.reset();
    statistics_.ResetChart();
}

bool Player::StartGame(bool timed) {
    timedGame_ = timed;
    highScoreEntered_ = false;
    pauseStartTick_ = 0;
    joined_ = true;
    shownScore_ = 0;
    ResetField();

    SeedRandom(static_cast<std::uint32_t>(SecondsSinceEpoch()));
    next_ = MakeFigure(RandomFigureType());
    gameOver_ = won_ = paused_ = false;
    gameStartTick_ = GetTickCount();
    return SpawnNext();
}

void Player::ResetField() {
    ReleaseHeldKeys();
    rowsPending_ = false;
    current_.reset();
    next_.reset();
    statistics_.ResetChart();
    score_ = lines_ = level_ = 0;
    figureCount_ = 0;
    board_.Clear();
    AddStartingGarbage();
    fullRows_.fill(false);
}

std::unique_ptr<Figure> Player::MakeFigure(int type) {
    return std::make_unique<Figure>(board_, type, boardScreenX_);
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
        heldLeft_ = true;
    } else if (isKeyOf(Action::Right)) {
        heldRight_ = true;
    } else if (isKeyOf(Action::Rotate)) {
        TurnFigure();
    } else if (isKeyOf(Action::Drop)) {
        heldDrop_ = true;
    } else if (key == kNextIsBarKeys[IndexOf(side_)]) {
        if (nextFigureCheat) next_ = MakeFigure(kBar);
    } else {
        return kKeyRefused;
    }
    return kKeyTaken;
}

int Player::KeyUp(std::uint8_t key) {
    const auto isKeyOf = [&](Action action) { return keyBindings.IsKeyOf(action, side_, key); };
    bool* held = isKeyOf(Action::Left)    ? &heldLeft_
                 : isKeyOf(Action::Right) ? &heldRight_
                 : isKeyOf(Action::Drop)  ? &heldDrop_
                                          : nullptr;
    if (!held) return kKeyRefused;
    if (joined_) *held = false;
    return kKeyTaken;
}

void Player::ReleaseHeldKeys() {
    heldDrop_ = heldLeft_ = heldRight_ = false;
}

void Player::TurnFigure() {
    if (!CanMoveFigure()) return;
    const Turn turn =
        theSettings.clockwise[IndexOf(side_)] ? Turn::Clockwise : Turn::CounterClockwise;
    const bool turned =
        theSettings.scrollingPieces ? current_->RotateGliding(turn, 1) : current_->Rotate(turn);
    if (turned) PlaySoundOf(kSfxRotate, Sound::Rotate);
}

bool Player::TogglePause() {
    const std::uint32_t now = GetTickCount();
    if (paused_) {
        // The playing time goes on where the pause began.
        gameStartTick_ += now - pauseStartTick_;
        pauseStartTick_ = 0;
    } else {
        pauseStartTick_ = now;
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
    constexpr std::uint32_t kMsPerMinute = 60'000;
    if (paused_ || won_ || gameOver_) return;
    const std::uint32_t elapsed = GetTickCount() - gameStartTick_;
    minutes_ = static_cast<int>(elapsed / kMsPerMinute);
    seconds_ = static_cast<int>(elapsed % kMsPerMinute / 1000);
}

}  // namespace korvane
