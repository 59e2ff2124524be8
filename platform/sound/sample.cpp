#include "platform/sound/sample.h"

#include <samplerate.h>

#include <cmath>
#include <utility>

#include "platform/host/sound_source.h"
#include "platform/sound/wav.h"

namespace korvane {
namespace {

/// The same sound with kSoundRate frames per second; empty when the library cannot convert it.
std::vector<std::int16_t> Resample(const WavSound& sound) {
    const double ratio = static_cast<double>(kSoundRate) / sound.rate;
    const std::size_t channels = static_cast<std::size_t>(sound.channels);
    const std::size_t frames = sound.samples.size() / channels;
    const auto room = static_cast<std::size_t>(std::ceil(static_cast<double>(frames) * ratio)) + 1;
    std::vector<float> before(sound.samples.size());
    std::vector<float> after(room * channels);
    src_short_to_float_array(sound.samples.data(), before.data(), static_cast<int>(before.size()));
    SRC_DATA job{};
    job.data_in = before.data();
    job.input_frames = static_cast<long>(frames);
    job.data_out = after.data();
    job.output_frames = static_cast<long>(room);
    job.src_ratio = ratio;
    if (src_simple(&job, SRC_SINC_FASTEST, sound.channels) != 0) return {};
    std::vector<std::int16_t> samples(static_cast<std::size_t>(job.output_frames_gen) * channels);
    // Resampling may overshoot a little; this limits it.
    src_float_to_short_array(after.data(), samples.data(), static_cast<int>(samples.size()));
    return samples;
}

}  // namespace

std::optional<Sample> LoadSample(std::span<const std::byte> file) {
    std::optional<WavSound> sound = ReadWav(file);
    if (!sound) return std::nullopt;
    if (sound->rate != kSoundRate) sound->samples = Resample(*sound);
    if (sound->samples.empty()) return std::nullopt;
    return Sample{sound->channels, std::move(sound->samples)};
}

}  // namespace korvane
