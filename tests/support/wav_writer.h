#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace korvane {

/// What a test wants to put into a WAV file; the defaults make an ordinary one.
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
    /// The size of an unknown chunk before the format; none for 0.
    std::uint32_t unknownBytes = 0;
    /// Added to the header's bytes for each frame.
    int frameBytesError = 0;
};

std::vector<std::byte> MakeWav(const WavRecipe& recipe);

}  // namespace korvane
