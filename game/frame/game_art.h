#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "audio/sound_effect.h"
#include "gfx/surface.h"

namespace korvane {

/// The pictures of the game screen.
enum class Art : std::uint8_t {
    Background,      ///< tiled behind menu, high scores and frame-rate counter
    GameBackground,  ///< tiled over each half of the game screen
    PreviewFrame,
    Playboard,
    GameOver,
    Winner,
    Loser,
    Pause,
    Blocks,  ///< a strip of 16 x 16 cell pictures, values 1 to 8
    Join2,   ///< on the right board
    Join1,   ///< on the left board
    BattleAgain,
    Statistics,  ///< the bars of the chart
    StatisticsFrame,
    Count,
};

/// Loads and holds the pictures of the game screen and the sound of a new level; there is one,
/// empty until it is loaded.
class GameArt {
  public:
    virtual ~GameArt() = default;

    /// The skin's key colours, then every picture; the display must exist.
    void Load();
    /// Every picture again, from the current skin for the current display; the key colours stay.
    /// Does nothing before Load.
    void Reload();
    /// The sound of a new level, from the current skin.
    void LoadLevelSound();

    /// Only after Load.
    const Surface& Picture(Art art) const { return *pictures_[static_cast<std::size_t>(art)]; }
    /// Null before LoadLevelSound.
    SoundEffect* LevelSound() const { return levelSound_.get(); }

  private:
    std::array<std::unique_ptr<Surface>, static_cast<std::size_t>(Art::Count)> pictures_;
    std::unique_ptr<SoundEffect> levelSound_;
    bool loaded_ = false;
};

/// The pictures of this process; app/static_objects.cpp makes them before `main` runs.
extern GameArt& theGameArt;

/// Draws the 16 x 16 picture of a board cell of value 1 to 8; 0 and less draw nothing.
void DrawBlockCell(int x, int y, int value);

}  // namespace korvane
