#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace korvane {

/// What a BMP file of a test holds; the defaults make an ordinary one.
struct BmpRecipe {
    int width = 1;
    int height = 1;  ///< negative: rows from the top down
    int bits = 24;
    std::uint32_t compression = 0;
    std::uint32_t infoSize = 40;            ///< 12: the old header, with colours of three bytes
    std::vector<std::uint32_t> masks = {};  ///< after a header of 40 bytes
    /// 0x00RRGGBB of a point from the top left, or with `bits` up to 8 the palette index.
    std::function<std::uint32_t(int x, int y)> pixel = [](int, int) { return 0u; };
    std::vector<std::uint32_t> palette = {};
    std::string code = {};  ///< stands for the rows when it is not empty
};

std::vector<std::byte> MakeBmp(const BmpRecipe& recipe);

}  // namespace korvane
