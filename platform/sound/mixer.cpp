#include "platform/sound/mixer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/host/host.h"

namespace korvane {
namespace {

/// The time since `start`, a reading of the host's counter; none on a machine without one.
std::chrono::duration<double> TimeSince(std::uint64_t start) {
    const std::uint64_t perSecond = TheHost().CounterFrequency();
    const std::uint64_t counts = TheHost().Counter() - start;
    return std::chrono::duration<double>(
        perSecond == 0 ? 0 : static_cast<double>(counts) / static_cast<double>(perSecond));
}

}  // namespace

float SoftLimit(float sample) {
    constexpr float kKnee = 0.75F;
    constexpr float kRoom = 1.0F - kKnee;
    if (std::isnan(sample)) return 0;
    const float over = std::abs(sample) - kKnee;
    if (over <= 0) return sample;
    // Slope 1 at the knee, full scale at infinity.
    return std::copysign(kKnee + kRoom * (1.0F - kRoom / (over + kRoom)), sample);
}

bool Mixer::StartMusic(const std::shared_ptr<MusicStream>& stream, std::optional<int> order) {
    std::shared_ptr<MusicStream> replaced = stream;
    const std::lock_guard lock(mutex_);
    if (tooSlow_.lock() == stream) return false;
    // A start without an order keeps a jump that is still waiting.
    if (order) jump_ = {stream, *order};
    music_.swap(replaced);
    state_ = MusicState::Playing;
    return true;
}

void Mixer::StopMusic(const MusicStream& stream) {
    std::shared_ptr<MusicStream> stopped;  // ends outside the lock
    const std::lock_guard lock(mutex_);
    if (!IsCurrent(stream)) return;
    state_ = MusicState::Stopped;
    music_.swap(stopped);
}

void Mixer::PauseMusic(const MusicStream& stream) {
    const std::lock_guard lock(mutex_);
    if (IsCurrent(stream) && state_ == MusicState::Playing) state_ = MusicState::Paused;
}

void Mixer::ResumeMusic(const MusicStream& stream) {
    const std::lock_guard lock(mutex_);
    if (IsCurrent(stream) && state_ == MusicState::Paused) state_ = MusicState::Playing;
}

bool Mixer::IsMusicPlaying(const MusicStream& stream) {
    const std::lock_guard lock(mutex_);
    return IsCurrent(stream) && state_ == MusicState::Playing;
}

/// Overwrites the mix with the music, or with silence.
void Mixer::RenderMusic() {
    std::shared_ptr<MusicStream> stream;
    std::shared_ptr<MusicStream> before;
    Jump jump;
    {
        const std::lock_guard lock(mutex_);
        if (state_ == MusicState::Playing) {
            stream = music_;
            if (jump_.stream.lock() == stream) jump = std::exchange(jump_, {});
        }
        before = std::exchange(heardMusic_, stream);
    }
    const bool jumps = !jump.stream.expired();
    if (before && (before != stream || jumps)) fader_.Cut(*before);
    before.reset();  // it may end here, before another module takes memory
    const std::uint64_t start = TheHost().Counter();
    if (stream && jumps) stream->Seek(jump.order);
    fader_.Render(stream.get(), mix_);
    if (stream) WatchPace(stream, TimeSince(start));
}

void Mixer::WatchPace(const std::shared_ptr<MusicStream>& stream, Seconds took) {
    const Seconds lasts(static_cast<double>(mix_.size()) / (kSoundRate * kSoundChannels));
    if (watched_.lock() != stream) behind_ = {};
    watched_ = stream;
    behind_ = std::max(Seconds{}, behind_ + std::min<Seconds>(took - lasts, kLatestOnce));
    if (behind_ < kPatience) return;
    const std::lock_guard lock(mutex_);
    tooSlow_ = stream;
    heardMusic_.reset();  // without a fade, which would take long again
    if (IsCurrent(*stream)) state_ = MusicState::Stopped;
}

Mixer::Voice::Voice(std::shared_ptr<const Sample> played, std::uint32_t number)
    : sample(std::move(played)), channel(number), start(TheHost().Counter()), reader(sample) {}

void Mixer::PlaySample(std::shared_ptr<const Sample> sample, std::uint32_t channel,
                       std::size_t limit) {
    const auto voice = std::make_shared<Voice>(std::move(sample), channel);
    const auto isSame = [&](const auto& other) { return other->sample == voice->sample; };
    const std::lock_guard lock(mutex_);
    if (std::ranges::count_if(voices_, isSame) >= static_cast<std::ptrdiff_t>(limit))
        voices_.erase(std::ranges::find_if(voices_, isSame));
    voices_.push_back(voice);
}

bool Mixer::IsChannelSounding(std::uint32_t channel) {
    const std::lock_guard lock(mutex_);
    return std::ranges::any_of(voices_,
                               [&](const auto& voice) { return voice->channel == channel; });
}

void Mixer::StopChannel(std::uint32_t channel) {
    const std::lock_guard lock(mutex_);
    std::erase_if(voices_, [&](const auto& voice) { return voice->channel == channel; });
}

void Mixer::StopSample(const Sample& sample) {
    const std::lock_guard lock(mutex_);
    std::erase_if(voices_, [&](const auto& voice) { return voice->sample.get() == &sample; });
}

void Mixer::TakeVoices() {
    const std::lock_guard lock(mutex_);
    std::erase_if(voices_, [](const auto& voice) {
        return !voice->hasBegun && TimeSince(voice->start) > kLatestStart;
    });
    heard_ = voices_;
}

void Mixer::MixVoices() {
    TakeVoices();
    for (const auto& voice : heard_)
        MixVoice(*voice);
    heard_.clear();
    const std::lock_guard lock(mutex_);
    std::erase_if(voices_, [](const auto& voice) { return voice->reader.HasEnded(); });
}

void Mixer::MixVoice(Voice& voice) {
    constexpr float kScale = 1.0F / 32768.0F;
    const auto channels = static_cast<std::size_t>(voice.reader.Channels());
    decoded_.resize(mix_.size() / kSoundChannels * channels);
    const std::span<const std::int16_t> samples = voice.reader.Read(decoded_);
    const std::size_t frames = samples.size() / channels;
    for (std::size_t i = 0; i < frames; ++i) {
        mix_[2 * i] += static_cast<float>(samples[i * channels]) * kScale;
        mix_[2 * i + 1] += static_cast<float>(samples[i * channels + channels - 1]) * kScale;
    }
    voice.hasBegun = true;
}

void Mixer::StopAll() {
    // These end outside the lock.
    std::shared_ptr<MusicStream> stopped;
    std::shared_ptr<MusicStream> heard;
    const std::lock_guard lock(mutex_);
    state_ = MusicState::Stopped;
    music_.swap(stopped);
    heardMusic_.swap(heard);
    voices_.clear();
}

void Mixer::Render(std::span<std::int16_t> samples) {
    mix_.resize(samples.size());
    RenderMusic();
    MixVoices();
    std::ranges::transform(mix_, samples.begin(), [](float sample) {
        const float scaled = SoftLimit(sample) * 32767.0F;
        return static_cast<std::int16_t>(scaled + std::copysign(0.5F, scaled));
    });
}

}  // namespace korvane
