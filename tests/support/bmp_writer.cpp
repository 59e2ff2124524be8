#include "tests/support/bmp_writer.h"

#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/base/byte_stream.h"

namespace korvane {
namespace {

using namespace std::string_view_literals;

/// One row of pixels, filled up to a multiple of four bytes.
void WriteRow(ByteWriter& file, const BmpRecipe& recipe, int y) {
    std::string row(static_cast<std::size_t>((recipe.width * recipe.bits + 31) / 32 * 4), '\0');
    for (int x = 0; x < recipe.width; ++x) {
        const std::uint32_t pixel = recipe.pixel(x, y);
        const int firstBit = x * recipe.bits;
        char* at = &row[static_cast<std::size_t>(firstBit / 8)];
        if (recipe.bits < 8) *at |= static_cast<char>(pixel << (8 - recipe.bits - firstBit % 8));
        for (int shift = 0; shift + 8 <= recipe.bits; shift += 8)
            *at++ = static_cast<char>(pixel >> shift);
    }
    file.Write(row);
}

}  // namespace

std::vector<std::byte> MakeBmp(const BmpRecipe& recipe) {
    ByteWriter file;
    const auto writeLongs = [&](auto... fields) {
        (file.Write(static_cast<std::uint32_t>(fields)), ...);
    };
    const bool old = recipe.infoSize == 12;
    file.Write("BM"sv);
    writeLongs(
        /*size=*/0, /*reserved=*/0,
        14 + recipe.infoSize + recipe.masks.size() * 4 + recipe.palette.size() * (old ? 3 : 4),
        recipe.infoSize);
    if (old) {
        writeLongs(recipe.width | recipe.height << 16, /*planes=*/1 | recipe.bits << 16);
    } else {
        writeLongs(recipe.width, recipe.height, /*planes=*/1 | recipe.bits << 16,
                   recipe.compression, 0, 0, 0, recipe.palette.size(), 0);
        file.Write(std::string(recipe.infoSize - 40, '\0'));
    }
    for (const std::uint32_t mask : recipe.masks)
        file.Write(mask);
    for (const std::uint32_t colour : recipe.palette) {
        file.Write(static_cast<std::uint16_t>(colour));
        file.Write(static_cast<std::uint8_t>(colour >> 16));
        if (!old) file.Write(std::uint8_t{0});
    }
    if (!recipe.code.empty()) {
        file.Write(recipe.code);
        return {file.Bytes().begin(), file.Bytes().end()};
    }
    const int rows = std::abs(recipe.height);
    for (int stored = 0; stored < rows; ++stored)
        WriteRow(file, recipe, recipe.height < 0 ? stored : rows - 1 - stored);
    return {file.Bytes().begin(), file.Bytes().end()};
}

}  // namespace korvane
