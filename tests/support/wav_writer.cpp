#include "tests/support/wav_writer.h"

#include <cmath>
#include <string_view>

#include "platform/base/byte_stream.h"

namespace korvane {

std::vector<std::byte> MakeWav(const WavRecipe& recipe) {
    using namespace std::string_view_literals;
    const auto frameBytes = static_cast<std::uint32_t>(recipe.channels * recipe.bits / 8);
    const auto dataBytes = static_cast<std::uint32_t>(recipe.frames) * frameBytes;
    ByteWriter file;
    const auto write = [&](auto... fields) { (file.Write(fields), ...); };
    write("RIFF"sv, 36 + dataBytes, "WAVE"sv);
    if (recipe.unknownBytes != 0) {
        const std::string content(recipe.unknownBytes + recipe.unknownBytes % 2, 'x');
        write("LIST"sv, recipe.unknownBytes, std::string_view(content));
    }
    write("fmt "sv, std::uint32_t{16}, recipe.tag, recipe.channels, recipe.rate,
          recipe.rate * frameBytes, static_cast<std::uint16_t>(frameBytes + recipe.extraFrameBytes),
          recipe.bits, "data"sv, dataBytes);
    const std::size_t end = file.Bytes().size() + dataBytes;
    for (std::size_t i = 0; i < recipe.frames * recipe.channels; ++i) {
        const double value =
            recipe.wave(i / recipe.channels, static_cast<int>(i % recipe.channels));
        if (recipe.bits == 8) file.Write(static_cast<std::uint8_t>(std::lround(value * 128) + 128));
        if (recipe.bits == 16) file.Write(static_cast<std::int16_t>(std::lround(value * 32768)));
    }
    // Samples of other sizes are silence.
    file.Write(std::string(end - file.Bytes().size(), '\0'));
    return {file.Bytes().begin(), file.Bytes().end()};
}

std::shared_ptr<const Sample> MakeSample(const WavRecipe& recipe) {
    auto sample = LoadSample(std::make_shared<std::vector<std::byte>>(MakeWav(recipe)));
    return sample ? std::make_shared<const Sample>(*std::move(sample)) : nullptr;
}

}  // namespace korvane
