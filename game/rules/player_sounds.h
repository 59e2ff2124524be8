#pragma once

#include <cstdint>

namespace korvane {

/// What a game lets be heard.
enum class GameSound : std::uint8_t { Landed, Rotate, Single, Double, Triple, Tetris, NewLevel };

/// The sounds of one player, handed to the rules, which know no sound device.
class PlayerSounds {
  public:
    virtual ~PlayerSounds() = default;
    /// Loads every sound anew from the current skin.
    virtual void Load() = 0;
    /// Plays a sound from its beginning, unless the user has switched that kind off.
    virtual void Play(GameSound sound) = 0;
};

}  // namespace korvane
