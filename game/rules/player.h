#pragma once

#include <cstdint>
#include <memory>

#include "game/rules/field.h"
#include "game/rules/figure.h"
#include "game/rules/figure_statistics.h"
#include "game/rules/player_sounds.h"
#include "game/rules/playing_clock.h"
#include "game/rules/side.h"

namespace korvane {

/// What KeyDown and KeyUp return.
inline constexpr int kKeyTaken = 0;     ///< the key is this player's, also when it had no effect
inline constexpr int kKeyRefused = -1;  ///< somebody else may have it

/// One playing field with its figures, score and counters.
///
/// The life of a game: idle (game over, not joined) until `StartGame`; then playing, paused or won
/// until a new figure finds no room. All ticks are milliseconds that wrap around, so every test is
/// an unsigned difference. The choices of the player's side are read from `theSettings` and
/// `theLevelTable` at the moment they matter.
class Player {
  public:
    /// Without sounds it plays in silence.
    explicit Player(Side side, std::unique_ptr<PlayerSounds> sounds = nullptr);
    virtual ~Player() = default;
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    /// Loads every sound anew from the current skin.
    void LoadPlayerSounds();

    /// Begins a new game; `timed` shows the playing time. True: the first figure found room.
    bool StartGame(bool timed);
    /// Back to idle, with everything that was counted at zero, the wins included.
    void ResetPlayer();
    /// One frame of `seconds` since the last one; to be called while `IsRunning`.
    void UpdatePlayer(double seconds);

    /// A press (or automatic repeat) and a release of a virtual key.
    int KeyDown(std::uint8_t key);
    int KeyUp(std::uint8_t key);
    /// The keys held down must be pressed again.
    void ReleaseHeldKeys();

    /// Returns whether the game is now paused. Held keys are released either way.
    bool TogglePause();
    void SetJoined(bool joined);
    /// Wins the battle, once.
    void DeclareWinner();
    void ResetWins() { wins_ = 0; }

    /// Battle: `count` rows of garbage push the board up, each as long as rows 0 to 4 are empty,
    /// and lift the falling figure.
    void ReceiveRows(int count);

    /// One frame of the shown score's climb to the real one.
    void StepShownScore();
    /// Brings `Minutes` and `Seconds` up to now; while paused, won or over they stay.
    void UpdatePlayingTime();

    bool IsPaused() const { return paused_; }
    bool IsJoined() const { return joined_; }
    bool IsRunning() const { return !gameOver_; }
    bool HasWon() const { return won_; }

    int Score() const { return score_; }
    int ShownScore() const { return shownScore_; }
    int Lines() const { return lines_; }
    int Level() const { return level_; }
    int Wins() const { return wins_; }
    std::uint32_t FigureCount() const { return figureCount_; }
    bool IsTimedGame() const { return clock_.IsTimed(); }
    int Minutes() const { return clock_.PlayedSeconds() / 60; }
    int Seconds() const { return clock_.PlayedSeconds() % 60; }

    /// Rows completed by the last lock, until the frame has passed them on and sets 0.
    int RowsLastLock() const { return lastRows_; }
    void SetRowsLastLock(int rows) { lastRows_ = rows; }

    /// This game's result is in the high-score table and its name is being typed.
    bool HighScoreEntered() const { return highScoreEntered_; }
    void SetHighScoreEntered(bool entered) { highScoreEntered_ = entered; }

    Side PlayerSide() const { return side_; }
    /// The screen's x of the board's column 0.
    int BoardScreenX() const { return boardScreenX_; }
    const Board& GameBoard() const { return field_.board; }
    /// Puts a prepared position under the falling figure.
    void SetBoard(const Board& board) { field_.board = board; }
    /// The falling figure and the one after it; null while there is none.
    const Figure* CurrentFigure() const { return current_.get(); }
    const Figure* NextFigure() const { return next_.get(); }
    const FigureStatistics& Statistics() const { return statistics_; }

  private:
    enum class LandState { Falling, Landed, LockNow };
    using FigureMove = bool (Figure::*)();

    struct HeldKeys {
        bool drop = false;
        bool left = false;
        bool right = false;
    };

    // Life of a game and of a figure.
    void ResetGame();
    std::unique_ptr<Figure> MakeFigure(int type);
    bool SpawnNext();
    bool CanMoveFigure() const { return !paused_ && !gameOver_ && !won_ && current_; }
    void TurnFigure();

    // Moving and falling.
    void StepSideways(FigureMove plain, FigureMove gliding);
    void UpdateFall(double seconds);
    void FallOrLand(std::uint32_t now, double seconds);
    bool FallsOn(double seconds);
    bool FallStep(double seconds);
    void DropWhileHeld();
    void HardDrop();
    void SoftDropStep();
    void LockFigure(std::uint32_t now);

    // Rows, score, level and garbage.
    void ScanRows();
    void PlayRowSound(int rows);
    void UpdateLevel();
    void AddDifficultyGarbage();

    void PlaySound(GameSound sound) {
        if (sounds_) sounds_->Play(sound);
    }

    const Side side_;
    const int boardScreenX_;
    const std::unique_ptr<PlayerSounds> sounds_;
    Field field_;
    std::unique_ptr<Figure> current_;
    std::unique_ptr<Figure> next_;
    FigureStatistics statistics_;
    PlayingClock clock_;
    HeldKeys held_;

    int score_ = 0;
    int shownScore_ = 0;
    int lines_ = 0;
    int level_ = 0;
    int wins_ = 0;
    int lastRows_ = 0;
    std::uint32_t figureCount_ = 0;

    /// Milliseconds a row takes or, gliding, pixels per second.
    std::uint32_t fallInterval_ = 0;
    LandState landState_ = LandState::Falling;
    std::uint32_t lastFallTick_ = 0;
    std::uint32_t lastSoftDropTick_ = 0;
    std::uint32_t lastSideMoveTick_ = 0;
    std::uint32_t landTick_ = 0;
    std::uint32_t lockTick_ = 0;

    bool gameOver_ = true;
    bool joined_ = false;
    bool paused_ = false;
    bool won_ = false;
    bool highScoreEntered_ = false;
};

}  // namespace korvane
