#pragma once

#include "game/game_frame.h"

namespace korvane {

/// What shows while no game runs: how to start one, and the scores of the last.
class StartScreens final : public FrameScreens {
  public:
    StartScreens();

    void DrawMenu() override;
    void DrawHighScores() override;
    int Submit(Side side, int score, int lines, int level) override;

    /// The players that a game from here is for: 1 or 2.
    int Players() const { return players_; }
    void SelectTwoPlayers() { players_ = 2; }

  private:
    int players_;
};

/// Null before the start-up has made it and after the window is gone.
extern std::unique_ptr<StartScreens> startScreens;

}  // namespace korvane
