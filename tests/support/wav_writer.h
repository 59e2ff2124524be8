#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/sound/sample.h"

namespace korvane {

/// What a WAV file of a test holds; the defaults make an ordinary one.
struct WavRecipe {
    std::uint16_t tag = 1;
    std::uint16_t channels = 1;
    std::uint32_t rate = 44100;
    std::uint16_t bits = 16;
    std::size_t frames = 100;
    /// From -1 to below 1.
    std::function<double(std::size_t frame, int channel)> wave = [](std::size_t, int) {
        return 0.5;
    };
    /// The size of a chunk of unknown kind before the format; 0: there is none.
    std::uint32_t unknownBytes = 0;
    /// How much larger a frame is in the header than in the data.
    std::uint32_t extraFrameBytes = 0;
};

std::vector<std::byte> MakeWav(const WavRecipe& recipe);
/// The file's sound, loaded; null when it is refused.
std::shared_ptr<const Sample> MakeSample(const WavRecipe& recipe);

}  // namespace korvane
