#include "tests/skin_tool/skin_tool_fixture.h"

#include "app/state/settings.h"
#include "platform/headless/headless_host.h"
#include "tests/support/test_audio.h"
#include "tools/korvane-skin/catalogue_table.h"
#include "tools/korvane-skin/skin_files.h"

namespace korvane {
namespace {

constexpr std::array<std::uint32_t, 3> kKeys = {0xFF00FF, 0x00FF00, 0x00FFFF};
constexpr std::uint32_t kDark = 0x101018;
constexpr std::uint32_t kGrey = 0x606068;
constexpr std::uint32_t kWhite = 0xFFFFFF;

void WriteGoodSkin(const TemporaryFolder& folder, const std::string& skin) {
    for (const PictureRow& row : kPictures)
        folder.Write("Skins/" + skin + "/" + ShownName(row.file), MakeBmp(GoodPicture(row)));
    WriteTestAudio(folder, skin);
}

}  // namespace

BmpRecipe GoodPicture(const PictureRow& row) {
    BmpRecipe recipe{.width = row.FileSize().cx, .height = row.FileSize().cy};
    const std::uint32_t key = row.key == kNoKey ? kDark : kKeys[static_cast<std::size_t>(row.key)];
    if (row.kind == PictureKind::Keys) {
        recipe.pixel = [](int x, int) { return kKeys[static_cast<std::size_t>(x)]; };
    } else if (row.file == "Game\\blocks.bmp") {
        recipe.pixel = [](int x, int) { return static_cast<std::uint32_t>(x / 16 + 1) * 0x1F1F1F; };
    } else if (row.kind == PictureKind::Cells) {
        recipe.pixel = [=](int x, int y) {
            const bool isInk = x % row.room.cx > 2 && x % row.room.cx < 12 && y > 2 && y < 13;
            return isInk ? kWhite : key;
        };
    } else if (row.file == "Game\\statisticsframe.bmp") {
        recipe.pixel = [](int, int) { return kDark; };
    } else if (row.kind != PictureKind::Tile) {
        recipe.pixel = [=](int x, int y) { return x + y == 0 ? key : kGrey; };
    } else {
        recipe.pixel = [](int, int) { return kDark; };
    }
    return recipe;
}

void SkinToolFixture::SetUp() {
    Headless().Reset();
    WriteGoodSkin(folder, "Original");
    std::filesystem::create_directory(folder.Path() + "/Skins/Mine");
    Restore();
    Use("Mine");
}

void SkinToolFixture::TearDown() {
    Headless().Reset();
    theSettings.SetDefaults();
}

void SkinToolFixture::Restore() const {
    namespace fs = std::filesystem;
    const fs::path skins = fs::path(folder.Path()) / "Skins";
    std::vector<fs::path> strangers;
    for (const auto& entry : fs::recursive_directory_iterator(skins / "Mine")) {
        if (!fs::exists(skins / "Original" / fs::relative(entry.path(), skins / "Mine")))
            strangers.push_back(entry.path());
    }
    for (const fs::path& stranger : strangers)
        fs::remove_all(stranger);
    for (const auto& entry : fs::recursive_directory_iterator(skins / "Original")) {
        if (!entry.is_regular_file()) continue;
        const std::string name = fs::relative(entry.path(), skins / "Original").string();
        const std::vector<std::byte> good = folder.Read("Skins/Original/" + name);
        if (folder.Read("Skins/Mine/" + name) != good) folder.Write("Skins/Mine/" + name, good);
    }
}

void SkinToolFixture::Use(const std::string& skin) const {
    ASSERT_EQ(UseSkin(folder.Path() + "/Skins/" + skin, ""), "");
}

}  // namespace korvane
