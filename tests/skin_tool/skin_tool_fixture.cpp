#include "tests/skin_tool/skin_tool_fixture.h"

#include <filesystem>

#include "app/state/settings.h"
#include "platform/headless/headless_host.h"
#include "tests/support/test_audio.h"
#include "tests/support/test_skin.h"
#include "tools/korvane-skin/catalogue_table.h"
#include "tools/korvane-skin/skin_files.h"
#include "tools/korvane-skin/text_places.h"

namespace korvane {
namespace {

std::uint32_t GoodPixel(const PictureRow& row, int x, int y) {
    constexpr std::uint32_t kDark = 0x101018;
    const std::uint32_t key = row.key == kNoKey ? kDark : kTestKeys[row.key];
    if (row.kind == PictureKind::Keys) return kTestKeys[x];
    if (row.file == "Game\\blocks.bmp") return static_cast<std::uint32_t>(x / 16 + 1) * 0x1F1F1F;
    if (row.kind == PictureKind::Cells) {
        const int column = x % row.room.cx;
        return column > 2 && column < 12 && y > 2 && y < 13 ? 0xFFFFFF : key;
    }
    if (row.kind == PictureKind::Tile || row.file == "Game\\statisticsframe.bmp") return kDark;
    if (row.file == kMenuGround || row.file == kScoreGround) return x + y == 0 ? kDark : key;
    return x + y == 0 ? key : 0x606068;
}

}  // namespace

BmpRecipe GoodPicture(const PictureRow& row) {
    // What lies on a background need not be large.
    const SIZE size = LiesOnBackground(row.file) ? SIZE{8, 8} : row.FileSize();
    return {.width = size.cx, .height = size.cy, .pixel = [row](int x, int y) {
                return GoodPixel(row, x, y);
            }};
}

void SkinToolFixture::SetUp() {
    Headless().Reset();
    for (const PictureRow& row : kPictures)
        folder.Write("Skins/Original/" + ShownName(row.file), MakeBmp(GoodPicture(row)));
    WriteTestAudio(folder, "Original");
    Restore();
    ASSERT_EQ(UseSkin(folder.Path() + "/Skins/Mine", ""), "");
}

void SkinToolFixture::TearDown() {
    Headless().Reset();
    theSettings.SetDefaults();
}

void SkinToolFixture::Restore() const {
    const std::filesystem::path skins = folder.Path() + "/Skins";
    std::filesystem::remove_all(skins / "Mine");
    std::filesystem::copy(skins / "Original", skins / "Mine",
                          std::filesystem::copy_options::recursive);
}

}  // namespace korvane
