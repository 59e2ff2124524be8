#include "platform/draw/bmp_header.h"

#include <algorithm>
#include <bit>

#include "platform/draw/bmp_bytes.h"

namespace korvane {
namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::uint32_t kCoreHeaderSize = 12;
constexpr std::uint32_t kInfoHeaderSize = 40;
constexpr std::uint32_t kLargestInfoHeaderSize = 124;
/// Channel masks follow the header of 40 bytes, or are part of a later one.
constexpr std::size_t kMasks = kFileHeaderSize + kInfoHeaderSize;

enum Compression : std::uint32_t { kPlain = 0, kRuns8 = 1, kRuns4 = 2, kBitFields = 3 };

/// What the two kinds of header tell in fields of different sizes.
struct Facts {
    std::uint32_t headerSize;
    std::int64_t width;
    std::int64_t height;  ///< negative: rows from the top down
    unsigned bits;
    std::uint32_t compression;
    std::size_t colours;  ///< 0: as many as the bits can tell apart
};

std::optional<Facts> ReadFacts(std::span<const std::byte> file) {
    if (file.size() < kFileHeaderSize + kCoreHeaderSize || file.size() > kMaxBitmapBytes)
        return std::nullopt;
    if (WordAt(file, 0) != 0x4D42) return std::nullopt;  // "BM"
    const std::uint32_t size = LongAt(file, 14);
    if (size == kCoreHeaderSize)
        return Facts{size, WordAt(file, 18), WordAt(file, 20), WordAt(file, 24), kPlain, 0};
    if (size < kInfoHeaderSize || size > kLargestInfoHeaderSize ||
        file.size() < kFileHeaderSize + size)
        return std::nullopt;
    return Facts{size,
                 static_cast<std::int32_t>(LongAt(file, 18)),
                 static_cast<std::int32_t>(LongAt(file, 22)),
                 WordAt(file, 28),
                 LongAt(file, 30),
                 LongAt(file, 46)};
}

bool IsKnownFormat(const Facts& facts) {
    switch (facts.compression) {
        case kPlain:
            return facts.bits == 1 || facts.bits == 4 || facts.bits == 8 || facts.bits == 16 ||
                   facts.bits == 24 || facts.bits == 32;
        case kRuns8:
            return facts.bits == 8 && facts.height > 0;
        case kRuns4:
            return facts.bits == 4 && facts.height > 0;
        case kBitFields:
            return facts.bits == 16 || facts.bits == 32;
        default:
            return false;
    }
}

/// No value for a mask with gaps, or one wider than a channel's values are here.
std::optional<BmpChannel> ChannelOf(std::uint32_t mask) {
    if (mask == 0) return BmpChannel{};
    const int shift = std::countr_zero(mask);
    const std::uint32_t most = mask >> shift;
    if ((most & (most + 1)) != 0 || most > 0xFFFF) return std::nullopt;
    return BmpChannel{shift, most};
}

std::optional<BmpChannels> ReadChannels(std::span<const std::byte> file, const Facts& facts) {
    if (facts.compression != kBitFields)
        return facts.bits == 16 ? BmpChannels{{{10, 31}, {5, 31}, {0, 31}}} : kUsualChannels;
    BmpChannels channels;
    if (file.size() < kMasks + 4 * channels.size()) return std::nullopt;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const std::optional<BmpChannel> channel = ChannelOf(LongAt(file, kMasks + 4 * i));
        if (!channel) return std::nullopt;
        channels[i] = *channel;
    }
    return channels;
}

bool PlacePalette(std::span<const std::byte> file, const Facts& facts, BmpLayout& layout) {
    const std::size_t most = std::size_t{1} << layout.bits;
    const bool core = facts.headerSize == kCoreHeaderSize;
    layout.paletteOffset = kFileHeaderSize + facts.headerSize;
    layout.paletteEntryBytes = core ? 3 : 4;
    layout.paletteCount = facts.colours == 0 ? most : facts.colours;
    // The old header cannot tell that there are fewer colours: they end where the pixels begin.
    if (core)
        layout.paletteCount =
            std::min(most, (layout.pixelOffset - layout.paletteOffset) / layout.paletteEntryBytes);
    return layout.paletteCount <= most &&
           layout.paletteOffset + layout.paletteCount * layout.paletteEntryBytes <= file.size();
}

}  // namespace

std::optional<BmpLayout> ReadBmpHeader(std::span<const std::byte> file) {
    const std::optional<Facts> facts = ReadFacts(file);
    if (!facts || !IsKnownFormat(*facts)) return std::nullopt;
    const std::int64_t rows = facts->height < 0 ? -facts->height : facts->height;
    if (facts->width < 1 || facts->width > kMaxBitmapSide || rows < 1 || rows > kMaxBitmapSide ||
        facts->width * rows * 4 > kMaxDecodedBytes)
        return std::nullopt;
    const std::optional<BmpChannels> channels = ReadChannels(file, *facts);
    if (!channels) return std::nullopt;

    BmpLayout layout;
    layout.size = {static_cast<std::int32_t>(facts->width), static_cast<std::int32_t>(rows)};
    layout.topDown = facts->height < 0;
    layout.bits = facts->bits;
    layout.channels = *channels;
    layout.runLength = facts->compression == kRuns8 || facts->compression == kRuns4;
    layout.rowBytes = (static_cast<std::size_t>(facts->width) * layout.bits + 31) / 32 * 4;
    layout.pixelOffset = LongAt(file, 10);
    if (layout.pixelOffset < kFileHeaderSize + facts->headerSize ||
        layout.pixelOffset > file.size())
        return std::nullopt;
    const std::size_t pixelBytes = file.size() - layout.pixelOffset;
    if (!layout.runLength && layout.rowBytes * static_cast<std::size_t>(rows) > pixelBytes)
        return std::nullopt;
    if (layout.bits <= 8 && !PlacePalette(file, *facts, layout)) return std::nullopt;
    return layout;
}

}  // namespace korvane
