#include "tests/support/xm_writer.h"

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

std::string Zeros(std::size_t count) {
    return std::string(count, '\0');
}

void WriteHeader(ByteWriter& file, const XmRecipe& recipe, int patterns) {
    file.Write("Extended Module: " + std::string(20, ' ') + "\x1A" + std::string(20, ' '));
    file.Write(Word{0x0104});
    file.Write(Long{276});
    for (const int field : {recipe.orders, /*restart=*/0, /*channels=*/1, patterns,
                            /*instruments=*/1, /*linear pitches=*/1, /*speed=*/6, /*tempo=*/125})
        file.Write(static_cast<Word>(field));
    for (int order = 0; order < 256; ++order)
        file.Write(static_cast<Byte>(order < recipe.orders ? order % patterns : 0));
}

void WritePattern(ByteWriter& file, int tone, int rows, std::optional<Byte> jump) {
    const std::vector<Byte> first = {kNoteAndInstrument, static_cast<Byte>(kLowestNote + 3 * tone),
                                     1};
    std::vector<Byte> cells = first;
    for (int row = 1; row < rows; ++row) {
        if (row == rows - 1 && jump) {
            cells.insert(cells.end(), {kEffect, kJumpToOrder, *jump});
        } else {
            cells.push_back(kPacked);
        }
    }
    file.Write(Long{9});
    file.Write(Byte{0});
    file.Write(static_cast<Word>(rows));
    file.Write(static_cast<Word>(cells.size()));
    for (const Byte cell : cells)
        file.Write(cell);
}

/// One period of a square wave, repeated for ever.
void WriteInstrument(ByteWriter& file) {
    file.Write(Long{263});
    file.Write(Zeros(22 + 1));
    file.Write(Word{1});
    file.Write(Long{40});
    file.Write(Zeros(263 - 33));
    for (const Long field : {Long{kWaveBytes}, Long{0}, Long{kWaveBytes}})
        file.Write(field);
    for (const int field : {/*volume=*/64, 0, /*loops forwards=*/1, /*centre=*/128, 0, 0})
        file.Write(static_cast<Byte>(field));
    file.Write(Zeros(22));
    for (int i = 0; i < kWaveBytes; ++i)
        file.Write(static_cast<Byte>(i == 0 ? 60 : i == kWaveBytes / 2 ? 256 - 120 : 0));
}

}  // namespace

std::vector<std::byte> MakeXm(const XmRecipe& recipe) {
    const int patterns = recipe.orders < kXmTones ? recipe.orders : kXmTones;
    ByteWriter file;
    WriteHeader(file, recipe, patterns);
    for (int i = 0; i < patterns; ++i)
        WritePattern(file, i, recipe.rows, i == patterns - 1 ? recipe.jump : std::nullopt);
    WriteInstrument(file);
    return {file.Bytes().begin(), file.Bytes().end()};
}

}  // namespace korvane
