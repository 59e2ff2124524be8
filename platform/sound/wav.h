#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace korvane {

/// The largest WAV file that is read: room for the longest sound in the largest format (5.5 MiB)
/// and for other chunks.
inline constexpr std::size_t kMaxWavBytes = std::size_t{6} << 20;
inline constexpr int kMinWavRate = 8000;
inline constexpr int kMaxWavRate = 48000;
inline constexpr int kMaxWavSeconds = 30;

/// What a WAV file holds.
struct WavSound {
    int rate = 0;                       ///< frames per second
    int channels = 0;                   ///< 1 or 2
    std::vector<std::int16_t> samples;  ///< frames one after the other, left before right
};

/// Reads a RIFF file with uncompressed samples of 8 or 16 bits in one or two channels. Chunks of
/// other kinds are skipped. No value for any other format, for rates and lengths outside the limits
/// above, for a sound without frames and for a file that ends before its sound does.
std::optional<WavSound> ReadWav(std::span<const std::byte> file);

}  // namespace korvane
