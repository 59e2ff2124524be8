#include "platform/sound/wav.h"

#include <string_view>

#include "platform/base/byte_stream.h"

namespace korvane {
namespace {

constexpr std::uint16_t kUncompressed = 1;

/// The chunk "fmt ".
struct WavFormat {
    std::uint16_t tag = 0;
    std::uint16_t channels = 0;
    std::uint32_t rate = 0;
    std::uint32_t bytesPerSecond = 0;
    std::uint16_t frameBytes = 0;
    std::uint16_t bits = 0;
};

struct Chunk {
    std::string_view name;
    std::span<const std::byte> content;
};

std::string_view TextOf(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// The next chunk; no value when the file ends before the chunk does.
std::optional<Chunk> NextChunk(ByteReader& reader) {
    Chunk chunk;
    std::uint32_t size = 0;
    chunk.name = TextOf(reader.Take(4));
    reader.Read(size);
    chunk.content = reader.Take(size);
    if (reader.HasEnded()) return std::nullopt;
    // Chunks begin at even places; the last one's padding may be missing.
    if (size % 2 != 0) reader.Take(1);
    return chunk;
}

std::optional<WavFormat> ReadFormat(std::span<const std::byte> content) {
    ByteReader reader(content);
    WavFormat format;
    reader.Read(format.tag);
    reader.Read(format.channels);
    reader.Read(format.rate);
    reader.Read(format.bytesPerSecond);
    reader.Read(format.frameBytes);
    reader.Read(format.bits);
    if (reader.HasEnded()) return std::nullopt;
    return format;
}

bool IsAccepted(const WavFormat& format) {
    return format.tag == kUncompressed && (format.channels == 1 || format.channels == 2) &&
           (format.bits == 8 || format.bits == 16) &&
           format.frameBytes == format.channels * format.bits / 8 && format.rate >= kMinWavRate &&
           format.rate <= kMaxWavRate;
}

std::optional<WavSound> SoundOf(const WavFormat& format, std::span<const std::byte> bytes) {
    const std::size_t frames = bytes.size() / format.frameBytes;
    if (frames == 0 || frames > std::size_t{kMaxWavSeconds} * format.rate) return std::nullopt;
    return WavSound{.rate = static_cast<int>(format.rate),
                    .channels = format.channels,
                    .bits = format.bits,
                    .bytes = bytes.first(frames * format.frameBytes)};
}

}  // namespace

std::optional<WavSound> ReadWav(std::span<const std::byte> file) {
    ByteReader reader(file);
    const std::string_view riff = TextOf(reader.Take(4));
    reader.Take(4);  // the size, which many programs write wrong; the chunks have their own
    const std::string_view wave = TextOf(reader.Take(4));
    if (riff != "RIFF" || wave != "WAVE") return std::nullopt;
    std::optional<WavFormat> format;
    while (const std::optional<Chunk> chunk = NextChunk(reader)) {
        if (chunk->name == "fmt ") {
            format = ReadFormat(chunk->content);
            if (!format || !IsAccepted(*format)) return std::nullopt;
        } else if (chunk->name == "data") {
            if (!format) return std::nullopt;
            return SoundOf(*format, chunk->content);
        }
    }
    return std::nullopt;
}

}  // namespace korvane
