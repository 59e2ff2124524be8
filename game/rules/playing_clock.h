#pragma once

#include <cstdint>

namespace korvane {

/// The playing time of one player's game: what the TIME display shows and what time-based levels go
/// by. Ticks are milliseconds that wrap around.
class PlayingClock {
  public:
    /// A new game; the time shown stays that of the last one until the first `Update`.
    void Start(std::uint32_t now, bool timed) {
        startTick_ = now;
        timed_ = timed;
    }
    void Pause(std::uint32_t now) { pauseTick_ = now; }
    /// The playing time goes on where the pause began.
    void Resume(std::uint32_t now) { startTick_ += now - pauseTick_; }
    void Update(std::uint32_t now) { playedSeconds_ = static_cast<int>((now - startTick_) / 1000); }
    /// Shows 0:00.
    void Reset() { playedSeconds_ = 0; }

    /// Whether this game shows its time.
    bool IsTimed() const { return timed_; }
    int PlayedSeconds() const { return playedSeconds_; }

  private:
    std::uint32_t startTick_ = 0;
    std::uint32_t pauseTick_ = 0;
    bool timed_ = false;
    int playedSeconds_ = 0;
};

}  // namespace korvane
