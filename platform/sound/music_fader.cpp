#include "platform/sound/music_fader.h"

#include <algorithm>
#include <utility>

namespace korvane {

void MusicFader::Cut(MusicStream& stream) {
    // What is still fading from the cut before goes on under the new tail.
    const std::array<float, kTailSamples> before = std::exchange(tail_, {});
    const std::size_t heard = std::exchange(faded_, 0);
    stream.Render(tail_);
    for (std::size_t i = 0; i < tail_.size(); ++i) {
        const auto left = static_cast<float>((tail_.size() - i) / kSoundChannels);
        tail_[i] *= Level() * left / kFadeOutFrames;
    }
    for (std::size_t i = heard; i < before.size(); ++i)
        tail_[i - heard] += before[i];
    begun_ = 0;
}

void MusicFader::Render(MusicStream* stream, std::span<float> mix) {
    std::ranges::fill(mix, 0.0F);
    if (stream != nullptr) {
        stream->Render(mix);
        FadeIn(mix);
    }
    AddTail(mix);
}

void MusicFader::FadeIn(std::span<float> mix) {
    for (std::size_t i = 0; i < mix.size() && begun_ < kFadeInFrames; i += kSoundChannels) {
        for (float& sample : mix.subspan(i, kSoundChannels))
            sample *= Level();
        ++begun_;
    }
}

void MusicFader::AddTail(std::span<float> mix) {
    const std::size_t count = std::min(mix.size(), tail_.size() - faded_);
    for (std::size_t i = 0; i < count; ++i)
        mix[i] += tail_[faded_++];
}

}  // namespace korvane
