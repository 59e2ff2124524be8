#pragma once

#include "game/frame/game_frame.h"

namespace korvane {

/// The menu and the high-score screen as a frame sees them; both must exist.
class ScreenAdapter final : public FrameScreens {
  public:
    void DrawMenu() override;
    void DrawHighScores() override;
    int Submit(Side side, int score, int lines, int level) override;
};

}  // namespace korvane
