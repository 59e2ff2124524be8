#include "platform/sample.h"

#include <samplerate.h>

#include <algorithm>
#include <cmath>

#include "platform/sound_source.h"
#include "platform/wav.h"

namespace korvane {
namespace {

/// The same sound with kSoundRate frames per second; empty when the library refuses.
std::vector<float> Resample(const WavSound& sound) {
    const double ratio = static_cast<double>(kSoundRate) / sound.rate;
    const std::size_t channels = static_cast<std::size_t>(sound.channels);
    const std::size_t frames = sound.samples.size() / channels;
    const auto room = static_cast<std::size_t>(std::ceil(static_cast<double>(frames) * ratio)) + 1;
    std::vector<float> samples(room * channels);
    SRC_DATA job{};
    job.data_in = sound.samples.data();
    job.input_frames = static_cast<long>(frames);
    job.data_out = samples.data();
    job.output_frames = static_cast<long>(room);
    job.src_ratio = ratio;
    if (src_simple(&job, SRC_SINC_FASTEST, sound.channels) != 0) return {};
    samples.resize(static_cast<std::size_t>(job.output_frames_gen) * channels);
    return samples;
}

/// The nearest; resampling may overshoot a little. Without the library's rounding, whose calls
/// would be most of the work.
std::int16_t ToInteger(float sample) {
    const float scaled = std::clamp(sample * 32768.0F, -32768.0F, 32767.0F);
    return static_cast<std::int16_t>(scaled + std::copysign(0.5F, scaled));
}

}  // namespace

std::optional<Sample> LoadSample(std::span<const std::byte> file) {
    std::optional<WavSound> sound = ReadWav(file);
    if (!sound) return std::nullopt;
    if (sound->rate != kSoundRate) sound->samples = Resample(*sound);
    if (sound->samples.empty()) return std::nullopt;
    Sample sample;
    sample.channels = sound->channels;
    sample.samples.resize(sound->samples.size());
    std::ranges::transform(sound->samples, sample.samples.begin(), ToInteger);
    return sample;
}

}  // namespace korvane
