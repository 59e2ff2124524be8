#pragma once

#include <array>
#include <memory>

#include "audio/sound_effect.h"
#include "game/rules/player_sounds.h"

namespace korvane {

/// A player's own six sound effects of the current skin; the sound of a new level is the one that
/// `theGameArt` keeps for both players.
class SkinSounds final : public PlayerSounds {
  public:
    void Load() override;
    void Play(GameSound sound) override;

  private:
    static constexpr auto kOwnSounds = static_cast<std::size_t>(GameSound::NewLevel);

    std::array<std::unique_ptr<SoundEffect>, kOwnSounds> effects_;
};

}  // namespace korvane
