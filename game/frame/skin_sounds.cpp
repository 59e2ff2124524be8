#include "game/frame/skin_sounds.h"

#include "app/state/settings.h"
#include "game/frame/game_art.h"

namespace korvane {
namespace {

struct SoundRow {
    const char* file;
    std::uint8_t event;
};

// In the order of `GameSound`, which is the order of loading.
constexpr std::array kSounds = {
    SoundRow{"Landed.wav", kSfxFigureLanding}, SoundRow{"Rotate.wav", kSfxRotate},
    SoundRow{"Single.wav", kSfxRowsDone},      SoundRow{"Double.wav", kSfxRowsDone},
    SoundRow{"Triple.wav", kSfxRowsDone},      SoundRow{"Tetris.wav", kSfxRowsDone},
    SoundRow{"NewLevel.wav", kSfxLevelChange},
};
static_assert(kSounds.size() == static_cast<std::size_t>(GameSound::NewLevel) + 1);

/// The most that all sounds of a skin may take. Nobody needs to count while they are loaded: these
/// and the menu's one fit at their longest, as each file is kept once.
constexpr std::size_t kMaxSkinSoundBytes = std::size_t{64} << 20;
static_assert((kSounds.size() + 1) * kMaxSoundBytes <= kMaxSkinSoundBytes);

}  // namespace

void SkinSounds::Load() {
    for (std::size_t i = 0; i < effects_.size(); ++i) {
        effects_[i].reset();
        effects_[i] = std::make_unique<SoundEffect>(kSounds[i].file);
    }
}

void SkinSounds::Play(GameSound sound) {
    const auto index = static_cast<std::size_t>(sound);
    if (!MayPlay(kSounds[index].event)) return;
    SoundEffect* effect =
        sound == GameSound::NewLevel ? theGameArt.LevelSound() : effects_[index].get();
    if (effect) effect->Play();
}

}  // namespace korvane
