#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "platform/host/sound_source.h"
#include "platform/sound/music_fader.h"
#include "platform/sound/music_stream.h"
#include "platform/sound/sample.h"

namespace korvane {

/// Brings any sum of sounds into -1 to 1: unchanged up to three quarters, bent smoothly towards
/// full scale above, so that loud moments are not clipped hard. NaN gives 0.
float SoftLimit(float sample);

/// Mixes one piece of music with any number of samples.
///
/// One thread (the game's) says what is to sound, another (the device's) calls Render. The lock
/// between them is held for a few assignments. Decoding samples and the music's own work, jumps
/// included, are done by the rendering thread outside of it: nobody else touches a stream that
/// plays, and slow music holds up nothing but itself. What is stopped, paused, replaced or left by
/// a jump fades out in the next frames: see MusicFader.
class Mixer final : public SoundSource {
  public:
    /// Music that falls this far behind is switched off. Frames that take longer to compute than
    /// they last add to the delay, quicker ones make up for it.
    static constexpr std::chrono::milliseconds kPatience{1000};
    /// The most that one render adds to the delay. Opening a large module may take long, but only
    /// once, and twice as much must not reach kPatience.
    static constexpr std::chrono::milliseconds kLatestOnce{400};
    /// A sample that could not begin within this time, because no device asked for frames, is
    /// dropped: later it would no longer belong to what is seen. It must be longer than the 100 ms
    /// for which the device stays quiet at the start.
    static constexpr std::chrono::milliseconds kLatestStart{250};

    /// Plays a stream in the place of what played: from an order on, or without one from where it
    /// stands. False when this stream was once too slow.
    bool StartMusic(const std::shared_ptr<MusicStream>& stream, std::optional<int> order);
    // These do nothing when another stream plays.
    void StopMusic(const MusicStream& stream);
    void PauseMusic(const MusicStream& stream);
    void ResumeMusic(const MusicStream& stream);  ///< does nothing without a pause before
    bool IsMusicPlaying(const MusicStream& stream);

    /// Plays a sample from its beginning, as `channel`. With `limit` playbacks of it sounding
    /// already, the oldest ends.
    void PlaySample(std::shared_ptr<const Sample> sample, std::uint32_t channel, std::size_t limit);
    bool IsChannelSounding(std::uint32_t channel);
    void StopChannel(std::uint32_t channel);
    void StopSample(const Sample& sample);

    /// Ends everything at once, without a fade.
    void StopAll();

    void Render(std::span<std::int16_t> samples) override;

  private:
    enum class MusicState : std::uint8_t { Stopped, Playing, Paused };

    /// A sample that sounds. The rendering thread alone changes it.
    struct Voice {
        Voice(std::shared_ptr<const Sample> played, std::uint32_t number);

        const std::shared_ptr<const Sample> sample;
        const std::uint32_t channel;
        const std::uint64_t start;  ///< the host's counter when it was asked for
        SampleReader reader;
        bool hasBegun = false;
    };

    struct Jump {
        std::weak_ptr<MusicStream> stream;
        int order = 0;
    };

    using Seconds = std::chrono::duration<double>;

    bool IsCurrent(const MusicStream& stream) const { return music_.get() == &stream; }
    void RenderMusic();
    void WatchPace(const std::shared_ptr<MusicStream>& stream, Seconds took);
    void MixVoices();
    /// The voices that are to be heard; those that come too late end.
    void TakeVoices();
    /// Adds the next frames of a voice to the mix, as many as it still has.
    void MixVoice(Voice& voice);

    std::mutex mutex_;  // guards the next six
    std::shared_ptr<MusicStream> music_;
    std::shared_ptr<MusicStream> heardMusic_;  ///< what the last frames were taken from, or null
    MusicState state_ = MusicState::Stopped;
    Jump jump_;  ///< waits for the next frames of that stream
    std::weak_ptr<MusicStream> tooSlow_;
    std::vector<std::shared_ptr<Voice>> voices_;  ///< in the order in which they began

    // The rendering thread's own.
    std::vector<float> mix_;
    MusicFader fader_;
    std::vector<std::shared_ptr<Voice>> heard_;  ///< empty between two renders
    std::vector<std::int16_t> decoded_;          ///< of one voice
    Seconds behind_{};                           ///< never negative
    std::weak_ptr<MusicStream> watched_;         ///< the stream that behind_ belongs to
};

}  // namespace korvane
