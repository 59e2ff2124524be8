#include "tests/support/test_skin.h"

#include <array>
#include <cstdint>
#include <functional>

#include "tests/support/bmp_writer.h"

namespace korvane {
namespace {

using Paint = std::function<std::uint32_t(int x, int y)>;

constexpr int kCell = 16;

bool IsBorder(int x, int y, int width, int height, int thickness) {
    return x < thickness || y < thickness || x >= width - thickness || y >= height - thickness;
}

/// A plate with a border; `key` shows through its corners.
Paint Plate(int width, int height, std::uint32_t colour, std::uint32_t key) {
    return [=](int x, int y) {
        const bool corner = (x < 4 || x >= width - 4) && (y < 4 || y >= height - 4);
        if (corner) return key;
        return IsBorder(x, y, width, height, 2) ? 0xFFFFFFu : colour;
    };
}

/// A frame whose inside is the key colour.
Paint Frame(int width, int height, std::uint32_t colour, std::uint32_t key) {
    return [=](int x, int y) { return IsBorder(x, y, width, height, 3) ? colour : key; };
}

/// Each cell shows the bits of `first` + its number as a column of dots; the right two columns and
/// all else are key.
Paint Glyphs(int first) {
    return [=](int x, int y) {
        const int code = first + x / kCell;
        const int column = x % kCell;
        if (column == 0) return 0xFFFFFFu;
        const bool dot = y / 2 < 8 && column >= 4 && column < 12 && (code >> (y / 2) & 1) != 0;
        return dot ? 0xF0F0A0u : kTestKeys[0];
    };
}

std::uint32_t Tile(int x, int y) {
    constexpr std::array<std::uint32_t, 8> kColours = {0xF2B84B, 0x2BB3A3, 0xC8386A, 0x5AB6F2,
                                                       0x7B4FD0, 0xA8D83A, 0xF07850, 0x8A93A5};
    if (IsBorder(x % kCell, y, kCell, kCell, 1)) return kTestKeys[1];
    return kColours[static_cast<std::size_t>(x / kCell)];
}

std::uint32_t Bars(int x, int /*y*/) {
    return x % 8 == 7 ? kTestKeys[1] : Tile(x / 8 * kCell + 8, 8);
}

struct TestPicture {
    const char* name;
    int width;
    int height;
    Paint paint;
};

std::vector<TestPicture> Pictures() {
    const auto key0 = kTestKeys[0];
    const auto key1 = kTestKeys[1];
    return {
        {"Background.bmp", 64, 64,
         [](int x, int y) { return (x ^ y) & 32 ? 0x101830u : 0x142040u; }},
        {"Letters.bmp", 416, 16, Glyphs('A')},
        {"Numbers.bmp", 272, 16, Glyphs('0')},
        {"Game/Background.bmp", 100, 90,
         [](int x, int y) { return static_cast<std::uint32_t>((x / 10 + y / 10) % 2 * 0x080810); }},
        {"Game/previewframe.bmp", 82, 60, Frame(82, 60, 0xA0A0A0, key0)},
        {"Game/playboard.bmp", 218, 372, Frame(218, 372, 0x5B6B8C, key0)},
        {"Game/gameover.bmp", 142, 48, Plate(142, 48, 0x702020, key1)},
        {"Game/winner.bmp", 150, 64, Plate(150, 64, 0x207020, key1)},
        {"Game/looser.bmp", 90, 48, Plate(90, 48, 0x702060, key1)},
        {"Game/pause.bmp", 80, 48, Plate(80, 48, 0x202070, key1)},
        {"Game/blocks.bmp", 128, 16, Tile},
        {"Game/join1.bmp", 150, 64, Plate(150, 64, 0x404080, key1)},
        {"Game/join2.bmp", 141, 64, Plate(141, 64, 0x408040, key1)},
        {"Game/battleagain.bmp", 599, 46, Plate(599, 46, 0x806020, key1)},
        {"Game/statistics.bmp", 56, 20, Bars},
        {"Game/statisticsframe.bmp", 82, 66, Frame(82, 66, 0x809090, key0)},
    };
}

}  // namespace

void WriteTestSkin(const TemporaryFolder& folder, const std::string& skin) {
    const std::string root = "Skins/" + skin + "/";
    for (const TestPicture& picture : Pictures())
        folder.Write(
            root + picture.name,
            MakeBmp({.width = picture.width, .height = picture.height, .pixel = picture.paint}));
    folder.Write(
        root + "colorkey.bmp",
        MakeBmp({.width = 3, .height = 1, .pixel = [](int x, int) { return kTestKeys[x]; }}));
}

}  // namespace korvane
