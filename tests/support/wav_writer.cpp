#include "tests/support/wav_writer.h"

#include <cmath>
#include <string_view>

#include "platform/base/byte_stream.h"

namespace korvane {
namespace {

using namespace std::string_view_literals;

void WriteSample(ByteWriter& file, int bits, double value) {
    if (bits == 8) {
        file.Write(static_cast<std::uint8_t>(std::lround(value * 128) + 128));
    } else {
        file.Write(static_cast<std::int16_t>(std::lround(value * 32768)));
    }
}

void WriteUnknownChunk(ByteWriter& file, std::uint32_t size) {
    file.Write("LIST"sv);
    file.Write(size);
    file.Write(std::string(size + size % 2, 'x'));
}

}  // namespace

std::vector<std::byte> MakeWav(const WavRecipe& recipe) {
    const int frameBytes = recipe.channels * recipe.bits / 8;
    const auto dataBytes =
        static_cast<std::uint32_t>(recipe.frames) * static_cast<std::uint32_t>(frameBytes);
    ByteWriter file;
    file.Write("RIFF"sv);
    file.Write(36 + dataBytes);
    file.Write("WAVE"sv);
    if (recipe.unknownBytes != 0) WriteUnknownChunk(file, recipe.unknownBytes);
    file.Write("fmt "sv);
    file.Write(std::uint32_t{16});
    file.Write(recipe.tag);
    file.Write(recipe.channels);
    file.Write(recipe.rate);
    file.Write(recipe.rate * static_cast<std::uint32_t>(frameBytes));
    file.Write(static_cast<std::uint16_t>(frameBytes + recipe.frameBytesError));
    file.Write(recipe.bits);
    file.Write("data"sv);
    file.Write(dataBytes);
    for (std::size_t frame = 0; frame < recipe.frames; ++frame)
        for (int channel = 0; channel < recipe.channels; ++channel)
            WriteSample(file, recipe.bits, recipe.wave(frame, channel));
    return {file.Bytes().begin(), file.Bytes().end()};
}

}  // namespace korvane
