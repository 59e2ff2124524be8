#include "tests/support/flat_skin.h"

#include <algorithm>
#include <filesystem>

#include "tests/support/bmp_writer.h"

namespace korvane {
namespace {

const std::vector<FlatPicture> kPictures = {
    {"Background", 64, 64, 1},
    {"Letters", 16, 16, 26},
    {"Numbers", 16, 16, 17},
    {"menu/logo", 624, 100, 1},
    {"menu/LeftPlayer", 109, 12, 1},
    {"menu/RightPlayer", 109, 12, 1},
    {"menu/1playerbutt", 118, 36, 2},
    {"menu/2playerbutt", 118, 36, 2},
    {"menu/easybutt", 109, 32, 2},
    {"menu/easybutt2", 109, 32, 2},
    {"menu/mediumbutt", 109, 32, 2},
    {"menu/mediumbutt2", 109, 32, 2},
    {"menu/hardbutt", 109, 32, 2},
    {"menu/hardbutt2", 109, 32, 2},
    {"menu/timebutt", 109, 32, 2},
    {"menu/timebutt2", 109, 32, 2},
    {"menu/ccwrotbutt", 44, 32, 2},
    {"menu/ccwrotbutt2", 44, 32, 2},
    {"menu/cwrotbutt", 44, 32, 2},
    {"menu/cwrotbutt2", 44, 32, 2},
    {"menu/battlebutt", 118, 36, 2},
    {"menu/battlebutt2", 118, 36, 2},
    {"menu/quakebutt", 118, 36, 2},
    {"menu/musicbutt", 118, 36, 2},
    {"menu/musicbutt2", 118, 36, 2},
    {"menu/sfxbutt", 118, 36, 2},
    {"menu/sfxbutt2", 118, 36, 2},
    {"menu/confbutt", 118, 36, 2},
    {"menu/startbutt", 118, 36, 2},
    {"menu/quitbutt", 118, 36, 2},
    {"menu/aboutbutt", 118, 36, 2},
    {"menu/backbutt", 118, 36, 2},
    {"menu/backbutt2", 118, 36, 2},
    {"menu/resetbutt", 118, 36, 2},
    {"menu/resetbutt2", 118, 36, 2},
    {"KeyConfig/keybuttongrey", 65, 64, 2},
    {"KeyConfig/alpha1", 29, 44, 20},
    {"KeyConfig/alpha2", 29, 44, 6},
    {"KeyConfig/keys1", 29, 44, 20},
    {"KeyConfig/keys2", 29, 44, 20},
    {"HighScore/highscore", 532, 100, 1},
    {"HighScore/cursor", 16, 18, 1},
    {"HighScore/menubutt", 116, 36, 2},
    {"HighScore/menuButt2", 116, 36, 2},
    {"HighScore/playButt", 116, 36, 2},
    {"HighScore/playButt2", 116, 36, 2},
};

// 0x40PPCC: picture and cell. The key colours have another first byte.
constexpr std::uint32_t kMark = 0x400000;

std::string PathOf(const std::string& skin, const std::string& name) {
    return "Skins/" + skin + "/" + name + ".bmp";
}

void Write(const TemporaryFolder& folder, const std::string& path, const FlatPicture& picture,
           std::size_t index) {
    BmpRecipe recipe;
    recipe.width = picture.cellWidth * picture.cells;
    recipe.height = picture.height;
    recipe.pixel = [&](int x, int) {
        return kMark | static_cast<std::uint32_t>(index) << 8 |
               static_cast<std::uint32_t>(x / picture.cellWidth);
    };
    folder.Write(path, MakeBmp(recipe));
}

}  // namespace

void WriteFlatSkin(const TemporaryFolder& folder, const std::string& skin) {
    BmpRecipe keys{.width = 3};
    keys.pixel = [](int x, int) { return 0xFF0000u + static_cast<std::uint32_t>(x); };
    folder.Write(PathOf(skin, "colorkey"), MakeBmp(keys));
    for (std::size_t i = 0; i < kPictures.size(); ++i)
        Write(folder, PathOf(skin, kPictures[i].name), kPictures[i], i);
}

void WriteFlatPicture(const TemporaryFolder& folder, const std::string& skin,
                      const std::string& name, int cellWidth, int height) {
    const auto picture = std::ranges::find(kPictures, name, &FlatPicture::name);
    Write(folder, PathOf(skin, name), {name, cellWidth, height, picture->cells},
          static_cast<std::size_t>(picture - kPictures.begin()));
}

void RemoveFlatPicture(const TemporaryFolder& folder, const std::string& skin,
                       const std::string& name) {
    std::filesystem::remove(folder.Path() + "/" + PathOf(skin, name));
}

std::string FlatPictureOf(std::uint32_t colour) {
    const std::size_t index = colour >> 8 & 0xFF;
    if ((colour & 0xFF0000) != kMark || index >= kPictures.size()) return "-";
    return kPictures[index].name + " " + std::to_string(colour & 0xFF);
}

}  // namespace korvane
