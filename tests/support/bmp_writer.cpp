#include "tests/support/bmp_writer.h"

#include <cstdlib>

namespace korvane {
namespace {

class Bytes {
  public:
    void Put(std::uint64_t value, int count) {
        for (int i = 0; i < count; ++i) {
            bytes_.push_back(static_cast<std::byte>(value & 0xFF));
            value >>= 8;
        }
    }
    void PadTo(std::size_t multiple) {
        while (bytes_.size() % multiple != 0)
            bytes_.push_back(std::byte{0});
    }
    void PadBy(std::size_t count) { bytes_.resize(bytes_.size() + count); }
    void Append(const std::vector<std::byte>& more) {
        bytes_.insert(bytes_.end(), more.begin(), more.end());
    }
    std::vector<std::byte>& Get() { return bytes_; }

  private:
    std::vector<std::byte> bytes_;
};

std::vector<std::byte> MakeRow(const BmpRecipe& recipe, int y) {
    Bytes row;
    if (recipe.bits >= 24) {
        for (int x = 0; x < recipe.width; ++x)
            row.Put(recipe.pixel(x, y), recipe.bits / 8);
    } else {
        const int perByte = 8 / recipe.bits;
        for (int x = 0; x < recipe.width; x += perByte) {
            std::uint32_t packed = 0;
            for (int i = 0; i < perByte; ++i)
                packed =
                    packed << recipe.bits | (x + i < recipe.width ? recipe.pixel(x + i, y) : 0);
            row.Put(packed, 1);
        }
    }
    row.PadTo(4);
    return row.Get();
}

}  // namespace

std::vector<std::byte> MakeBmp(const BmpRecipe& recipe) {
    constexpr std::uint32_t kFileHeader = 14;
    const auto paletteBytes = static_cast<std::uint32_t>(recipe.palette.size() * 4);
    Bytes file;
    file.Put(0x4D42, 2);
    file.Put(0, 8);  // size and reserved: nobody reads them
    file.Put(kFileHeader + recipe.infoSize + paletteBytes, 4);
    file.Put(recipe.infoSize, 4);
    file.Put(static_cast<std::uint32_t>(recipe.width), 4);
    file.Put(static_cast<std::uint32_t>(recipe.height), 4);
    file.Put(1, 2);
    file.Put(static_cast<std::uint32_t>(recipe.bits), 2);
    file.Put(recipe.compression, 4);
    file.Put(0, 12);
    file.Put(static_cast<std::uint32_t>(recipe.palette.size()), 4);
    file.Put(0, 4);
    if (recipe.infoSize > 40) file.PadBy(recipe.infoSize - 40);
    for (const std::uint32_t colour : recipe.palette)
        file.Put(colour, 4);
    const int rows = std::abs(recipe.height);
    for (int stored = 0; stored < rows; ++stored)
        file.Append(MakeRow(recipe, recipe.height < 0 ? stored : rows - 1 - stored));
    return file.Get();
}

}  // namespace korvane
