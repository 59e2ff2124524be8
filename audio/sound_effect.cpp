#include "audio/sound_effect.h"

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "audio/audio_error.h"

namespace korvane {
namespace {

/// Never reached: an effect is cut before it is played again.
constexpr std::uint32_t kSimultaneous = 3;
constexpr std::uint32_t kLoadFlags = 0x20000;  ///< one playback too many ends the oldest

HSAMPLE Load(const std::string& path) {
    return BASS_SampleLoad(/*fromMemory=*/false, path, 0, 0, kSimultaneous, kLoadFlags);
}

}  // namespace

bool MayPlay(std::uint8_t event) {
    return theSettings.soundEffects && audioReady && (theSettings.sfxMask & event) != 0;
}

SoundEffect::SoundEffect(const std::string& file) {
    if (!audioReady) return;
    sample_ = Load("Skins\\" + theSettings.skinName + "\\Audio\\" + file);
    if (sample_ != 0) return;
    const std::string fallback = "skins\\Original\\audio\\" + file;
    sample_ = Load(fallback);
    if (sample_ == 0) ShowLoadError(fallback + " can't be loaded!");
}

SoundEffect::~SoundEffect() {
    // The library frees what is left when it is closed.
    if (!audioReady || sample_ == 0) return;
    StopSounding();
    BASS_SampleFree(sample_);
}

void SoundEffect::Play() {
    if (sample_ == 0) return;
    StopSounding();
    channel_ = BASS_SamplePlay(sample_);
}

void SoundEffect::StopSounding() {
    if (channel_ != kNeverPlayed && BASS_ChannelIsActive(channel_)) BASS_ChannelStop(sample_);
}

}  // namespace korvane
