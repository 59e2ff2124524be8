#include "platform/draw/bmp.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <utility>

namespace korvane {
namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::uint32_t kInfoHeaderSize = 40;
constexpr std::uint32_t kLargestInfoHeaderSize = 124;
constexpr std::uint32_t kUncompressed = 0;
constexpr std::uint32_t kBitFields = 3;

std::uint32_t Byte(std::span<const std::byte> file, std::size_t at) {
    return std::to_integer<std::uint32_t>(file[at]);
}
std::uint32_t Word(std::span<const std::byte> file, std::size_t at) {
    return Byte(file, at) | Byte(file, at + 1) << 8;
}
/// In one load; compilers do not turn four loads of a byte into one.
std::uint32_t Long(std::span<const std::byte> file, std::size_t at) {
    std::uint32_t value;
    std::memcpy(&value, file.subspan(at, sizeof(value)).data(), sizeof(value));
    return std::endian::native == std::endian::little ? value : __builtin_bswap32(value);
}

/// Some programs write 32-bit files with channel masks; the usual masks mean the usual pixels.
bool HasUsualMasks(std::span<const std::byte> file) {
    constexpr std::size_t kMasks = kFileHeaderSize + kInfoHeaderSize;
    constexpr std::array<std::uint32_t, 3> kUsual = {0x00FF0000, 0x0000FF00, 0x000000FF};
    if (file.size() < kMasks + 12) return false;
    for (std::size_t i = 0; i < kUsual.size(); ++i)
        if (Long(file, kMasks + 4 * i) != kUsual[i]) return false;
    return true;
}

bool IsKnownFormat(std::span<const std::byte> file, unsigned bits, std::uint32_t compression) {
    const bool knownDepth = bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
    if (compression == kBitFields) return bits == 32 && HasUsualMasks(file);
    return knownDepth && compression == kUncompressed;
}

std::optional<BmpLayout> ReadHeader(std::span<const std::byte> file) {
    if (file.size() < kFileHeaderSize + kInfoHeaderSize || file.size() > kMaxBitmapBytes)
        return std::nullopt;
    if (Word(file, 0) != 0x4D42) return std::nullopt;  // "BM"
    const std::uint32_t infoSize = Long(file, 14);
    if (infoSize < kInfoHeaderSize || infoSize > kLargestInfoHeaderSize) return std::nullopt;

    const std::int64_t width = static_cast<std::int32_t>(Long(file, 18));
    const std::int64_t height = static_cast<std::int32_t>(Long(file, 22));
    const std::int64_t rows = height < 0 ? -height : height;
    if (width < 1 || width > kMaxBitmapSide || rows < 1 || rows > kMaxBitmapSide)
        return std::nullopt;

    BmpLayout header;
    header.size = {static_cast<std::int32_t>(width), static_cast<std::int32_t>(rows)};
    header.topDown = height < 0;
    header.bits = Word(file, 28);
    if (!IsKnownFormat(file, header.bits, Long(file, 30))) return std::nullopt;

    header.rowBytes = (static_cast<std::size_t>(width) * header.bits + 31) / 32 * 4;
    header.pixelOffset = Long(file, 10);
    if (header.pixelOffset < kFileHeaderSize + infoSize || header.pixelOffset > file.size())
        return std::nullopt;
    if (width * rows * 4 > kMaxDecodedBytes) return std::nullopt;
    if (header.rowBytes * static_cast<std::size_t>(rows) > file.size() - header.pixelOffset)
        return std::nullopt;

    if (header.bits <= 8) {
        const std::size_t most = std::size_t{1} << header.bits;
        const std::size_t used = Long(file, 46);
        header.paletteOffset = kFileHeaderSize + infoSize;
        header.paletteCount = used == 0 ? most : used;
        if (header.paletteCount > most) return std::nullopt;
        if (header.paletteOffset + header.paletteCount * 4 > file.size()) return std::nullopt;
    }
    return header;
}

void DecodeRow(std::span<const std::byte> row, unsigned bits,
               const std::array<std::uint32_t, 256>& palette, std::span<std::uint32_t> pixels) {
    if (bits == 24) {
        // The last pixel of the file has no fourth byte to load.
        for (std::size_t x = 0; x + 1 < pixels.size(); ++x)
            pixels[x] = Long(row, 3 * x) & 0x00FFFFFF;
        const std::size_t last = 3 * (pixels.size() - 1);
        pixels.back() = Word(row, last) | Byte(row, last + 2) << 16;
    } else if (bits == 32) {
        for (std::size_t x = 0; x < pixels.size(); ++x)
            pixels[x] = Long(row, 4 * x) & 0x00FFFFFF;
    } else {
        const std::size_t perByte = 8 / bits;
        const std::uint32_t mask = (1u << bits) - 1;
        for (std::size_t x = 0; x < pixels.size(); ++x) {
            const std::size_t shift = 8 - bits * (x % perByte + 1);
            pixels[x] = palette[Byte(row, x / perByte) >> shift & mask];
        }
    }
}

}  // namespace

std::optional<BmpFile> BmpFile::Open(std::vector<std::byte> file) {
    const std::optional<BmpLayout> layout = ReadHeader(file);
    if (!layout) return std::nullopt;
    return BmpFile(std::move(file), *layout);
}

BmpFile::BmpFile(std::vector<std::byte> file, const BmpLayout& layout)
    : file_(std::move(file)), layout_(layout) {
    for (std::size_t i = 0; i < layout_.paletteCount; ++i)
        palette_[i] = Long(file_, layout_.paletteOffset + 4 * i) & 0x00FFFFFF;
}

void BmpFile::ReadRow(int y, std::span<std::uint32_t> pixels) const {
    const auto stored = static_cast<std::size_t>(layout_.topDown ? y : layout_.size.cy - 1 - y);
    DecodeRow(
        std::span(file_).subspan(layout_.pixelOffset + stored * layout_.rowBytes, layout_.rowBytes),
        layout_.bits, palette_, pixels);
}

std::optional<DecodedBitmap> DecodeBmp(std::span<const std::byte> file) {
    const auto bmp = BmpFile::Open({file.begin(), file.end()});
    if (!bmp) return std::nullopt;
    const auto width = static_cast<std::size_t>(bmp->Size().cx);
    const auto height = static_cast<std::size_t>(bmp->Size().cy);
    DecodedBitmap bitmap{bmp->Size(), std::vector<std::uint32_t>(width * height)};
    for (std::size_t y = 0; y < height; ++y)
        bmp->ReadRow(static_cast<int>(y), std::span(bitmap.pixels).subspan(y * width, width));
    return bitmap;
}

}  // namespace korvane
