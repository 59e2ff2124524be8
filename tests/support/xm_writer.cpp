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

using Byte = std::uint8_t;
using Word = std::uint16_t;
using Long = std::uint32_t;

template <typename Field>
void WriteAs(ByteWriter& file, std::initializer_list<int> values) {
    for (const int value : values)
        file.Write(static_cast<Field>(value));
}

void WriteZeros(ByteWriter& file, std::size_t count) {
    file.Write(std::string(count, '\0'));
}

void WriteHeader(ByteWriter& file, const XmRecipe& recipe, int patterns) {
    file.Write("Extended Module: " + std::string(20, ' ') + "\x1A" + std::string(20, ' '));
    WriteAs<Word>(file, {0x0104});
    WriteAs<Long>(file, {276});
    WriteAs<Word>(file, {recipe.orders, /*restart=*/0, /*channels=*/1, patterns, /*instruments=*/1,
                         /*linear pitches=*/1, /*speed=*/6, /*tempo=*/125});
    for (int order = 0; order < 256; ++order)
        WriteAs<Byte>(file, {order < recipe.orders ? order % patterns : 0});
}

/// A note in the first row, then empty rows.
void WritePattern(ByteWriter& file, int tone, std::size_t rows, std::optional<Byte> jump) {
    std::vector<Byte> cells = {kNoteAndInstrument, static_cast<Byte>(kLowestNote + 3 * tone), 1};
    cells.resize(cells.size() + rows - 1, kPacked);
    if (jump) {
        cells.back() = kEffect;
        cells.insert(cells.end(), {kJumpToOrder, *jump});
    }
    WriteAs<Long>(file, {9});
    WriteAs<Byte>(file, {0});
    WriteAs<Word>(file, {static_cast<int>(rows), static_cast<int>(cells.size())});
    for (const Byte cell : cells)
        file.Write(cell);
}

/// One period of a square wave, repeated for ever.
void WriteInstrument(ByteWriter& file) {
    WriteAs<Long>(file, {263});
    WriteZeros(file, 22 + 1);
    WriteAs<Word>(file, {1});
    WriteAs<Long>(file, {40});
    WriteZeros(file, 263 - 33);
    WriteAs<Long>(file, {kWaveBytes, 0, kWaveBytes});
    WriteAs<Byte>(file, {/*volume=*/64, 0, /*loops forwards=*/1, /*centre=*/128, 0, 0});
    WriteZeros(file, 22);
    for (int i = 0; i < kWaveBytes; ++i)
        WriteAs<Byte>(file, {i == 0 ? 60 : i == kWaveBytes / 2 ? -120 : 0});
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
