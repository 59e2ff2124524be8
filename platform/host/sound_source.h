#pragma once

#include <cstdint>
#include <span>

namespace korvane {

/// All sound is 16-bit stereo at this many frames per second, left before right.
inline constexpr int kSoundRate = 44100;
inline constexpr int kSoundChannels = 2;
/// The frames that a device asks for at once: 11.6 ms, so that what is asked for now is heard
/// within two buffers without the device running dry on a busy machine.
inline constexpr int kSoundBufferFrames = 512;

/// Where a sound device takes its frames from.
class SoundSource {
  public:
    virtual ~SoundSource() = default;
    /// Fills interleaved stereo samples with what is to be heard next. Called on a thread of the
    /// device's own, never from two threads at once.
    virtual void Render(std::span<std::int16_t> samples) = 0;
};

}  // namespace korvane
