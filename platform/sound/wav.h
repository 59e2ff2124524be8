#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/host/sound_source.h"

namespace korvane {

/// The largest WAV file that is read: room for the longest sound in the largest format (5.5 MiB)
/// and for other chunks.
inline constexpr std::size_t kMaxWavBytes = std::size_t{6} << 20;
inline constexpr int kMinWavRate = 8000;
inline constexpr int kMaxWavRate = 48000;
inline constexpr int kMaxWavSeconds = 30;
/// What the longest sound takes once decoded: 16 bits at the device's rate.
inline constexpr std::size_t kMaxDecodedWavBytes =
    sizeof(std::int16_t) * kSoundChannels * kSoundRate * kMaxWavSeconds;

/// What a WAV file holds. A view: the file's bytes must outlive it.
struct WavSound {
    int rate = 0;      ///< frames per second
    int channels = 0;  ///< 1 or 2
    int bits = 0;      ///< of each sample, 8 or 16
    /// Whole frames one after the other, left before right.
    std::span<const std::byte> bytes;

    /// The number of samples: one for each channel of each frame.
    std::size_t Samples() const { return bytes.size() / static_cast<std::size_t>(bits / 8); }
    /// A sample as 16 bits; `index` is below Samples().
    std::int16_t At(std::size_t index) const;
};

// Here, as the loops over all samples need it.
inline std::int16_t WavSound::At(std::size_t index) const {
    // 8-bit samples are unsigned with silence at 128.
    if (bits == 8)
        return static_cast<std::int16_t>((std::to_integer<int>(bytes[index]) - 128) * 256);
    return static_cast<std::int16_t>(std::to_integer<unsigned>(bytes[2 * index]) |
                                     std::to_integer<unsigned>(bytes[2 * index + 1]) << 8);
}

/// Reads a RIFF file with uncompressed samples of 8 or 16 bits in one or two channels. Chunks of
/// other kinds are skipped. No value for any other format, for rates and lengths outside the limits
/// above, for a sound without frames and for a file that ends before its sound does.
std::optional<WavSound> ReadWav(std::span<const std::byte> file);

}  // namespace korvane
