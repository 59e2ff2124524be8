#include "platform/sound/sample.h"

#include <samplerate.h>

#include <algorithm>
#include <utility>

#include "platform/host/sound_source.h"

namespace korvane {

std::optional<Sample> LoadSample(SharedBytes file) {
    const std::optional<WavSound> sound = ReadWav(*file);
    if (!sound) return std::nullopt;
    // Less than one frame at the device's rate would be silent.
    const auto frames = sound->Samples() / static_cast<std::size_t>(sound->channels);
    if (frames * kSoundRate < static_cast<std::size_t>(sound->rate)) return std::nullopt;
    return Sample{std::move(file), *sound};
}

SampleReader::SampleReader(std::shared_ptr<const Sample> sample) : sample_(std::move(sample)) {}

SampleReader::~SampleReader() = default;

void SampleReader::Deleter::operator()(SRC_STATE_tag* converter) const {
    src_delete(converter);
}

std::span<std::int16_t> SampleReader::Read(std::span<std::int16_t> room) {
    std::size_t filled = 0;
    while (filled < room.size() && !ended_) {
        const std::span<std::int16_t> rest = room.subspan(filled);
        const std::size_t count = IsConverted() ? Convert(rest) : Copy(rest);
        filled += count;
        ended_ = count == 0 || (!IsConverted() && next_ == sample_->sound.Samples());
    }
    return room.first(filled);
}

bool SampleReader::IsConverted() const {
    return sample_->sound.rate != kSoundRate;
}

std::size_t SampleReader::Copy(std::span<std::int16_t> room) {
    const WavSound& sound = sample_->sound;
    const std::size_t count = std::min(room.size(), sound.Samples() - next_);
    for (std::size_t i = 0; i < count; ++i)
        room[i] = sound.At(next_ + i);
    next_ += count;
    return count;
}

void SampleReader::MakeConverter() {
    const auto giveInput = [](void* reader, float** data) {
        const std::span<float> input = static_cast<SampleReader*>(reader)->NextInput();
        *data = input.data();
        return static_cast<long>(input.size()) / static_cast<SampleReader*>(reader)->Channels();
    };
    int error = 0;
    converter_.reset(src_callback_new(giveInput, SRC_SINC_FASTEST, Channels(), &error, this));
}

std::span<float> SampleReader::NextInput() {
    const std::size_t count = std::min(input_.size(), sample_->sound.Samples() - next_);
    for (float& sample : std::span(input_).first(count))
        sample = static_cast<float>(sample_->sound.At(next_++)) / 32768.0F;
    return std::span(input_).first(count);
}

std::size_t SampleReader::Convert(std::span<std::int16_t> room) {
    if (!std::exchange(isMade_, true)) MakeConverter();
    if (!converter_) return 0;
    const double ratio = static_cast<double>(kSoundRate) / sample_->sound.rate;
    const long frames = static_cast<long>(std::min(room.size(), output_.size())) / Channels();
    const long read = src_callback_read(converter_.get(), ratio, frames, output_.data());
    const auto count = static_cast<std::size_t>(std::max(0L, read) * Channels());
    // Conversion may overshoot a little; this limits it.
    src_float_to_short_array(output_.data(), room.data(), static_cast<int>(count));
    return count;
}

}  // namespace korvane
