#include "tests/support/test_skin.h"

#include <array>
#include <functional>
#include <sstream>
#include <tuple>

#include "platform/base/types.h"
#include "tests/support/bmp_writer.h"

namespace korvane {
namespace {

/// The colour of a point of a picture of this size.
using Paint = std::function<std::uint32_t(int x, int y, SIZE size)>;

constexpr int kCell = 16;

bool IsBorder(int x, int y, SIZE size, int thickness) {
    return x < thickness || y < thickness || x >= size.cx - thickness || y >= size.cy - thickness;
}

/// A plate with a border; key colour 1 shows through its corners.
Paint Plate(std::uint32_t colour) {
    return [=](int x, int y, SIZE size) {
        const bool corner = (x < 4 || x >= size.cx - 4) && (y < 4 || y >= size.cy - 4);
        if (corner) return kTestKeys[1];
        return IsBorder(x, y, size, 2) ? 0xFFFFFFu : colour;
    };
}

/// A frame whose inside is key colour 0.
Paint Frame(std::uint32_t colour) {
    return [=](int x, int y, SIZE size) { return IsBorder(x, y, size, 3) ? colour : kTestKeys[0]; };
}

/// Each cell shows the bits of `first` + its number as a column of dots; the right two columns and
/// all else are key.
Paint Glyphs(int first) {
    return [=](int x, int y, SIZE) {
        const int code = first + x / kCell;
        const int column = x % kCell;
        if (column == 0) return 0xFFFFFFu;
        const bool dot = y / 2 < 8 && column >= 4 && column < 12 && (code >> (y / 2) & 1) != 0;
        return dot ? 0xF0F0A0u : kTestKeys[0];
    };
}

std::uint32_t Tile(int x, int y, SIZE) {
    constexpr std::array<std::uint32_t, 8> kColours = {0xF2B84B, 0x2BB3A3, 0xC8386A, 0x5AB6F2,
                                                       0x7B4FD0, 0xA8D83A, 0xF07850, 0x8A93A5};
    if (IsBorder(x % kCell, y, {kCell, kCell}, 1)) return kTestKeys[1];
    return kColours[static_cast<std::size_t>(x / kCell)];
}

std::uint32_t Bars(int x, int, SIZE size) {
    return x % 8 == 7 ? kTestKeys[1] : Tile(x / 8 * kCell + 8, 8, size);
}

void Write(const TemporaryFolder& folder, const std::string& skin, const std::string& name,
           SIZE size, const Paint& paint) {
    folder.Write("Skins/" + skin + "/" + name + ".bmp",
                 MakeBmp({.width = size.cx, .height = size.cy, .pixel = [&](int x, int y) {
                              return paint(x, y, size);
                          }}));
}

void WriteColorKeys(const TemporaryFolder& folder, const std::string& skin) {
    Write(folder, skin, "colorkey", {3, 1}, [](int x, int, SIZE) { return kTestKeys[x]; });
}

const std::tuple<const char*, SIZE, Paint> kTestPictures[] = {
    {"Background",
     {64, 64},
     [](int x, int y, SIZE) { return (x ^ y) & 32 ? 0x101830u : 0x142040u; }},
    {"Letters", {416, 16}, Glyphs('A')},
    {"Numbers", {272, 16}, Glyphs('0')},
    {"Game/Background",
     {100, 90},
     [](int x, int y, SIZE) {
         return static_cast<std::uint32_t>((x / 10 + y / 10) % 2 * 0x080810);
     }},
    {"Game/previewframe", {82, 60}, Frame(0xA0A0A0)},
    {"Game/playboard", {218, 372}, Frame(0x5B6B8C)},
    {"Game/gameover", {142, 48}, Plate(0x702020)},
    {"Game/winner", {150, 64}, Plate(0x207020)},
    {"Game/looser", {90, 48}, Plate(0x702060)},
    {"Game/pause", {80, 48}, Plate(0x202070)},
    {"Game/blocks", {128, 16}, Tile},
    {"Game/join1", {150, 64}, Plate(0x404080)},
    {"Game/join2", {141, 64}, Plate(0x408040)},
    {"Game/battleagain", {599, 46}, Plate(0x806020)},
    {"Game/statistics", {56, 20}, Bars},
    {"Game/statisticsframe", {82, 66}, Frame(0x809090)},
};

/// Pictures of one folder with the same cells.
struct FlatPictures {
    SIZE cell;
    int cells;
    const char* folder;
    const char* names;
};

constexpr FlatPictures kFlatPictures[] = {
    {{64, 64}, 1, "", "Background"},
    {{16, 16}, 26, "", "Letters"},
    {{16, 16}, 17, "", "Numbers"},
    {{624, 100}, 1, "menu/", "logo"},
    {{109, 12}, 1, "menu/", "LeftPlayer RightPlayer"},
    {{118, 36}, 2, "menu/", "1playerbutt 2playerbutt"},
    {{109, 32}, 2, "menu/", "easybutt easybutt2 mediumbutt mediumbutt2"},
    {{109, 32}, 2, "menu/", "hardbutt hardbutt2 timebutt timebutt2"},
    {{44, 32}, 2, "menu/", "ccwrotbutt ccwrotbutt2 cwrotbutt cwrotbutt2"},
    {{118, 36}, 2, "menu/", "battlebutt battlebutt2 quakebutt musicbutt musicbutt2 sfxbutt"},
    {{118, 36}, 2, "menu/", "sfxbutt2 confbutt startbutt quitbutt aboutbutt backbutt"},
    {{118, 36}, 2, "menu/", "backbutt2 resetbutt resetbutt2"},
    {{65, 64}, 2, "KeyConfig/", "keybuttongrey"},
    {{29, 44}, 20, "KeyConfig/", "alpha1"},
    {{29, 44}, 6, "KeyConfig/", "alpha2"},
    {{29, 44}, 20, "KeyConfig/", "keys1 keys2"},
    {{532, 100}, 1, "HighScore/", "highscore"},
    {{16, 18}, 1, "HighScore/", "cursor"},
    {{116, 36}, 2, "HighScore/", "menubutt menuButt2 playButt playButt2"},
};

/// The colour of a flat cell is 0x40PPCC with the numbers of picture and cell. The key colours have
/// another first byte.
constexpr std::uint32_t kMark = 0x400000;

/// Calls `visit` with every flat picture's number, name and cells.
template <typename Visit>
void VisitFlatPictures(Visit visit) {
    std::uint32_t number = 0;
    for (const FlatPictures& pictures : kFlatPictures) {
        std::istringstream names(pictures.names);
        for (std::string name; names >> name; ++number)
            visit(number, pictures.folder + name, pictures);
    }
}

}  // namespace

void WriteTestSkin(const TemporaryFolder& folder, const std::string& skin) {
    for (const auto& [name, size, paint] : kTestPictures)
        Write(folder, skin, name, size, paint);
    WriteColorKeys(folder, skin);
}

void WriteFlatSkin(const TemporaryFolder& folder, const std::string& skin) {
    WriteColorKeys(folder, skin);
    VisitFlatPictures([&](std::uint32_t number, const auto& name, const FlatPictures& pictures) {
        const SIZE cell = pictures.cell;
        Write(folder, skin, name, {cell.cx * pictures.cells, cell.cy}, [=](int x, int, SIZE) {
            return kMark | number << 8 | static_cast<std::uint32_t>(x / cell.cx);
        });
    });
}

std::string FlatCellOf(std::uint32_t colour) {
    std::string cell = "-";
    VisitFlatPictures([&](std::uint32_t number, const auto& name, const FlatPictures&) {
        if ((colour & ~0xFFu) == (kMark | number << 8))
            cell = name + " " + std::to_string(colour & 0xFF);
    });
    return cell;
}

}  // namespace korvane
