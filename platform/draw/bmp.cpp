#include "platform/draw/bmp.h"

#include <array>
#include <utility>

#include "platform/draw/bmp_bytes.h"

namespace korvane {
namespace {

/// The last pixel of a file has no fourth byte to load.
void Decode24(std::span<const std::byte> row, std::span<std::uint32_t> pixels) {
    for (std::size_t x = 0; x + 1 < pixels.size(); ++x)
        pixels[x] = LongAt(row, 3 * x) & 0x00FFFFFF;
    const std::size_t last = 3 * (pixels.size() - 1);
    pixels.back() = WordAt(row, last) | ByteAt(row, last + 2) << 16;
}

std::uint32_t ColourOf(std::uint32_t pixel, const BmpChannels& channels) {
    const auto& [red, green, blue] = channels;
    return red.Of(pixel) << 16 | green.Of(pixel) << 8 | blue.Of(pixel);
}

void DecodeChannels(std::span<const std::byte> row, const BmpLayout& layout,
                    std::span<std::uint32_t> pixels) {
    const bool usual = layout.bits == 32 && layout.channels == kUsualChannels;
    for (std::size_t x = 0; x < pixels.size(); ++x) {
        const std::uint32_t pixel = layout.bits == 16 ? WordAt(row, 2 * x) : LongAt(row, 4 * x);
        pixels[x] = usual ? pixel & 0x00FFFFFF : ColourOf(pixel, layout.channels);
    }
}

void DecodeIndices(std::span<const std::byte> row, unsigned bits,
                   const std::array<std::uint32_t, 256>& palette, std::span<std::uint32_t> pixels) {
    if (bits == 8) {
        for (std::size_t x = 0; x < pixels.size(); ++x)
            pixels[x] = palette[ByteAt(row, x)];
        return;
    }
    const std::size_t perByte = 8 / bits;
    const std::uint32_t mask = (1u << bits) - 1;
    for (std::size_t x = 0; x < pixels.size(); ++x) {
        const std::size_t shift = 8 - bits * (x % perByte + 1);
        pixels[x] = palette[ByteAt(row, x / perByte) >> shift & mask];
    }
}

}  // namespace

std::optional<BmpFile> BmpFile::Open(std::vector<std::byte> file) {
    const std::optional<BmpLayout> layout = ReadBmpHeader(file);
    if (!layout) return std::nullopt;
    std::optional<BmpRuns> runs;
    if (layout->runLength) {
        runs = BmpRuns::Find(std::span(file).subspan(layout->pixelOffset), *layout);
        if (!runs) return std::nullopt;
    }
    return BmpFile(std::move(file), *layout, std::move(runs));
}

BmpFile::BmpFile(std::vector<std::byte> file, const BmpLayout& layout, std::optional<BmpRuns> runs)
    : file_(std::move(file)), layout_(layout), runs_(std::move(runs)) {
    for (std::size_t i = 0; i < layout_.paletteCount; ++i) {
        const std::size_t at = layout_.paletteOffset + layout_.paletteEntryBytes * i;
        palette_[i] = WordAt(file_, at) | ByteAt(file_, at + 2) << 16;
    }
}

void BmpFile::ReadRow(int y, std::span<std::uint32_t> pixels) const {
    const auto stored = static_cast<std::size_t>(layout_.topDown ? y : layout_.size.cy - 1 - y);
    if (runs_) {
        std::array<std::uint8_t, kMaxBitmapSide> indices;
        runs_->ReadRow(Pixels(), stored, std::span(indices).first(pixels.size()));
        for (std::size_t x = 0; x < pixels.size(); ++x)
            pixels[x] = palette_[indices[x]];
        return;
    }
    const auto row = Pixels().subspan(stored * layout_.rowBytes, layout_.rowBytes);
    if (layout_.bits == 24) return Decode24(row, pixels);
    if (layout_.bits > 8) return DecodeChannels(row, layout_, pixels);
    DecodeIndices(row, layout_.bits, palette_, pixels);
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
