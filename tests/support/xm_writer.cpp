#include "tests/support/xm_writer.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include "platform/base/byte_stream.h"

namespace korvane {
namespace {

constexpr int kLowestNote = 37;
constexpr std::uint8_t kPacked = 0x80;
constexpr std::uint8_t kNoteAndInstrument = kPacked | 0x03;
constexpr std::uint8_t kEffect = kPacked | 0x18;
constexpr std::uint8_t kJumpToOrder = 0x0B;
constexpr std::uint8_t kWaveBytes = 32;

template <typename Field>
void WriteAs(ByteWriter& file, std::initializer_list<int> values) {
    for (const int value : values)
        file.Write(static_cast<Field>(value));
}

void WriteHeader(ByteWriter& file, const XmRecipe& recipe, int patterns) {
    file.Write("Extended Module: " + std::string(20, ' ') + "\x1A" + std::string(20, ' '));
    WriteAs<std::uint16_t>(file, {0x0104});
    WriteAs<std::uint32_t>(file, {276});
    WriteAs<std::uint16_t>(
        file, {recipe.orders, /*restart=*/0, /*channels=*/1, patterns, /*instruments=*/1,
               /*linear pitches=*/1, /*speed=*/6, /*tempo=*/125});
    for (int order = 0; order < 256; ++order)
        WriteAs<std::uint8_t>(file, {order < recipe.orders ? order % patterns : 0});
}

/// A note in the first row, then empty rows.
void WritePattern(ByteWriter& file, int tone, std::size_t rows, std::optional<std::uint8_t> jump) {
    std::vector<std::uint8_t> cells = {kNoteAndInstrument,
                                       static_cast<std::uint8_t>(kLowestNote + 3 * tone), 1};
    cells.resize(cells.size() + rows - 1, kPacked);
    if (jump) {
        cells.back() = kEffect;
        cells.insert(cells.end(), {kJumpToOrder, *jump});
    }
    WriteAs<std::uint32_t>(file, {9});
    WriteAs<std::uint8_t>(file, {0});
    WriteAs<std::uint16_t>(file, {static_cast<int>(rows), static_cast<int>(cells.size())});
    for (const std::uint8_t cell : cells)
        file.Write(cell);
}

/// One period of a square wave, repeated for ever.
void WriteInstrument(ByteWriter& file) {
    WriteAs<std::uint32_t>(file, {263});
    file.Write(std::string(22 + 1, '\0'));
    WriteAs<std::uint16_t>(file, {1});
    WriteAs<std::uint32_t>(file, {40});
    file.Write(std::string(263 - 33, '\0'));
    WriteAs<std::uint32_t>(file, {kWaveBytes, 0, kWaveBytes});
    WriteAs<std::uint8_t>(file, {/*volume=*/64, 0, /*loops forwards=*/1, /*centre=*/128, 0, 0});
    file.Write(std::string(22, '\0'));
    for (int i = 0; i < kWaveBytes; ++i)
        WriteAs<std::uint8_t>(file, {i == 0 ? 60 : i == kWaveBytes / 2 ? -120 : 0});
}

}  // namespace

std::vector<std::byte> MakeXm(const XmRecipe& recipe) {
    const int patterns = std::min(recipe.orders, kXmTones);
    ByteWriter file;
    WriteHeader(file, recipe, patterns);
    for (int i = 0; i < patterns; ++i)
        WritePattern(file, i, recipe.rows, i == patterns - 1 ? recipe.jump : std::nullopt);
    WriteInstrument(file);
    return {file.Bytes().begin(), file.Bytes().end()};
}

}  // namespace korvane
