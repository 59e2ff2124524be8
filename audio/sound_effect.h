#pragma once

#include <cstdint>
#include <string>

#include "platform/sound/bass.h"

namespace korvane {

/// Whether the sound of an event (one of the kSfx... bits) is to be played now: sound effects are
/// switched on, there is a sound device, and the user wants to hear this event.
bool MayPlay(std::uint8_t event);

/// A short sound of the skin. Without a sound device it stays silent, and so does one whose file
/// neither the skin nor the Original has; only the latter is told to the user.
class SoundEffect {
  public:
    /// `file` is relative to the skin's Audio folder.
    explicit SoundEffect(const std::string& file);
    virtual ~SoundEffect();
    SoundEffect(const SoundEffect&) = delete;
    SoundEffect& operator=(const SoundEffect&) = delete;

    /// From the beginning; what still sounds of the last time is cut.
    void Play();

  private:
    static constexpr HCHANNEL kNeverPlayed = 0xFFFFFFFF;

    void StopSounding();

    HSAMPLE sample_ = 0;
    HCHANNEL channel_ = kNeverPlayed;
};

}  // namespace korvane
