#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "game/rules/player.h"
#include "game/rules/quake.h"
#include "game/rules/side.h"
#include "platform/base/types.h"

namespace korvane {

/// The screens round the game, as far as a frame needs them.
class FrameScreens {
  public:
    virtual ~FrameScreens() = default;
    virtual void DrawMenu() = 0;
    virtual void DrawHighScores() = 0;
    /// Offers a finished game's result to the high-score table; the row it took, or -1.
    virtual int Submit(Side side, int score, int lines, int level) = 0;
};

/// What runs from frame to frame beside the two players.
struct MatchState {
    QuakeState quake;
    /// Whose results go to the high-score table first and second.
    std::optional<Side> firstEntry;
    std::optional<Side> secondEntry;
    /// The frame-rate counter.
    int frameCount = 0;
    std::uint32_t frameRateTick = 0;
    std::string frameRateText;
};

extern MatchState theMatch;

/// The two players; null before the start-up has made them and after the window is gone.
extern std::unique_ptr<Player> rightPlayer;
extern std::unique_ptr<Player> leftPlayer;

inline bool BothPlayersExist() {
    return rightPlayer && leftPlayer;
}

/// Right before left, as everything that concerns both players is done.
inline std::array<Player*, 2> BothPlayers() {
    return {rightPlayer.get(), leftPlayer.get()};
}

/// Reads the game clock, settles the winners of a battle and lets both games go on for the time
/// that has passed.
void AdvanceGame();

/// Draws the screen that shows (menu, game or high scores) and presents it. Returns the display's
/// negative result when presenting failed, else 0.
HRESULT DrawGameFrame(FrameScreens& screens);

}  // namespace korvane
