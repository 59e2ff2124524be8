#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/sound/bass.h"
#include "platform/sound/wav.h"

namespace korvane {

/// The most that one file's sound takes, as its file holds it or decoded.
inline constexpr std::size_t kMaxSoundBytes = std::max(kMaxWavBytes, kMaxDecodedWavBytes);

/// Whether the sound of an event (one of the kSfx... bits) is to be played: sound effects are on,
/// there is a sound device, and the user has not switched this event off.
bool MayPlay(std::uint8_t event);

/// A short sound of the skin. It is silent without a sound device, and when neither the skin nor
/// the Original has its file; an error box shows a missing file.
class SoundEffect {
  public:
    /// `file` is relative to the skin's Audio folder.
    explicit SoundEffect(const std::string& file);
    virtual ~SoundEffect();
    SoundEffect(const SoundEffect&) = delete;
    SoundEffect& operator=(const SoundEffect&) = delete;

    /// Plays from the beginning and cuts what still sounds of the last time.
    void Play();

  private:
    static constexpr HCHANNEL kNeverPlayed = 0xFFFFFFFF;

    void StopSounding();

    HSAMPLE sample_ = 0;
    HCHANNEL channel_ = kNeverPlayed;
};

}  // namespace korvane
