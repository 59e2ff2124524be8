#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace korvane {

/// A short sound in memory, ready to be mixed: kSoundRate frames per second.
struct Sample {
    int channels = 1;                   ///< 1 or 2
    std::vector<std::int16_t> samples;  ///< frames one after the other

    std::size_t Frames() const { return samples.size() / static_cast<std::size_t>(channels); }
};

/// Reads a WAV file (see platform/sound/wav.h) and converts it to the device's rate; no value for a
/// file that is not accepted.
std::optional<Sample> LoadSample(std::span<const std::byte> file);

}  // namespace korvane
