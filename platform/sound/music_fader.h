#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "platform/host/sound_source.h"
#include "platform/sound/music_stream.h"

namespace korvane {

/// Joins pieces of music without steps between them: each begins softly, and what is cut off goes
/// on for a moment, fading out under what comes next. Belongs to the rendering thread.
class MusicFader {
  public:
    static constexpr int kFadeInFrames = kSoundBufferFrames / 2;  ///< 5.8 ms
    static constexpr int kFadeOutFrames = kSoundBufferFrames;     ///< 11.6 ms

    /// Ends what `stream` plays now: takes its next kFadeOutFrames frames to fade them out. It may
    /// be moved to another place or destroyed afterwards. What comes next begins softly.
    void Cut(MusicStream& stream);
    /// Overwrites `mix` with the next frames of a stream; of none when it is null.
    void Render(MusicStream* stream, std::span<float> mix);

  private:
    static constexpr std::size_t kTailSamples = std::size_t{kFadeOutFrames} * kSoundChannels;

    /// The loudness that the next frame of the music has, 0 to 1.
    float Level() const { return static_cast<float>(begun_) / kFadeInFrames; }
    void FadeIn(std::span<float> mix);
    void AddTail(std::span<float> mix);

    int begun_ = 0;  ///< frames since the music began, up to kFadeInFrames
    std::array<float, kTailSamples> tail_{};
    std::size_t faded_ = kTailSamples;  ///< how much of tail_ was heard
};

}  // namespace korvane
