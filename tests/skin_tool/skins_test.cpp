#include <stdlib.h>
#include <sys/wait.h>

#include <fstream>
#include <set>
#include <sstream>

#include "platform/headless/headless_host.h"
#include "tests/skin_tool/skin_tool_fixture.h"
#include "tools/korvane-skin/catalogue_table.h"
#include "tools/korvane-skin/checks.h"
#include "tools/korvane-skin/new_skin.h"
#include "tools/korvane-skin/screens.h"
#include "tools/korvane-skin/skin_files.h"
#include "tools/korvane-skin/text_places.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

/// Keeps the names of the files that the game reads.
class RecordingFiles final : public Files {
  public:
    RecordingFiles(const std::string& folder, std::set<std::string>& asked)
        : files_(OpenDiskFiles(folder)), asked_(asked) {}
    ReadResult TryRead(std::string_view path, std::size_t cap) override {
        asked_.emplace(path);
        return files_->TryRead(path, cap);
    }
    bool Replace(std::string_view, std::span<const std::byte>) override { return false; }
    bool Delete(std::string_view, std::span<const std::byte>) override { return false; }
    std::optional<std::vector<FolderEntry>> List(std::string_view) override { return {}; }

  private:
    std::unique_ptr<Files> files_;
    std::set<std::string>& asked_;
};

class SkinTool : public SkinToolFixture {
  protected:
    static std::vector<ScreenPicture> ScreensOf(const std::string& skin) {
        EXPECT_EQ(UseSkin(skin, ""), "");
        return DrawScreens();
    }
};

TEST_F(SkinTool, CatalogueListsExactlyThePicturesThatTheGameLoads) {
    std::set<std::string> asked;
    Headless().UseFiles(std::make_unique<RecordingFiles>(folder.Path(), asked));
    DrawScreens();
    std::erase_if(asked, [](const std::string& path) { return path.starts_with("data"); });
    std::set<std::string> known;
    for (const PictureRow& row : kPictures)
        known.insert(Text("Skins\\Mine\\", row.file));
    EXPECT_EQ(asked, known);
}

TEST_F(SkinTool, AnEmptySkinAnywhereShowsTheOriginal) {
    const std::vector<ScreenPicture> original = ScreensOf(folder.Path() + "/Skins/Original");
    const fs::path bare = fs::path(folder.Path()) / "Skins/Bare";
    fs::create_directory(bare);
    const std::vector<ScreenPicture> fallen = ScreensOf(bare.string());
    ASSERT_EQ(original.size(), fallen.size());
    for (std::size_t i = 0; i < original.size(); ++i) {
        EXPECT_EQ(original[i].pixels.size(), 640u * 480u) << original[i].caption;
        EXPECT_TRUE(original[i].pixels == fallen[i].pixels) << original[i].caption;
    }
}

TEST_F(SkinTool, ANewSkinIsACopyUnderAFreeName) {
    constexpr auto kReadOnly = fs::perms::owner_read;
    const TemporaryFolder home;
    const std::vector<std::string> game = {home.Path() + "/korvane", folder.Path()};
    fs::permissions(folder.Path() + "/Skins/Original/colorkey.bmp", kReadOnly);
    fs::permissions(folder.Path() + "/Skins/Original/Audio", kReadOnly | fs::perms::owner_exec);
    for (const char* name : {"", ".", "..", "a/b", "a\\b", ".hidden", "Mine", "mINE", "Original",
                             "C:", "blank ", "two\nlines"})
        EXPECT_FALSE(MakeNewSkin(name, game).wasMade) << name;
    EXPECT_FALSE(MakeNewSkin(std::string(LongestSkinName() + 1, 'n'), game).wasMade);
    EXPECT_FALSE(MakeNewSkin("My skin", {home.Path()}).wasMade);
    home.Write("korvane/Skins/Original/Letters.bmp", folder.Read("Skins/Original/Numbers.bmp"));

    const NewSkin made = MakeNewSkin("My skin", game);
    EXPECT_TRUE(made.wasMade) << made.text;
    const std::string place = game[0] + "/Skins/My skin";
    EXPECT_NE(made.text.find(place), std::string::npos) << made.text;
    for (const char* file : {"colorkey.bmp", "Game/blocks.bmp", "Audio", "Audio/sniffit.xm"}) {
        if (!fs::is_directory(place + "/" + file)) {
            EXPECT_EQ(home.Read(Text("korvane/Skins/My skin/", file)),
                      folder.Read(Text("Skins/Original/", file)));
        }
        const fs::perms allowed = fs::status(place + "/" + file).permissions();
        EXPECT_NE(allowed & fs::perms::owner_write, fs::perms::none) << file;
    }
    EXPECT_EQ(home.Read("korvane/Skins/My skin/Letters.bmp"),
              folder.Read("Skins/Original/Numbers.bmp"));
    EXPECT_FALSE(MakeNewSkin("My SKIN", game).wasMade);
}

TEST_F(SkinTool, ExitStatusTellsHowItWent) {
    const std::string skins = folder.Path() + "/Skins/";
    const std::pair<std::string, int> kCases[] = {
        {"check " + skins + "Mine", 0},
        {"check " + skins + "Broken", 1},
        {"check " + skins + "None", 2},
        {"check", 2},
        {"paint " + skins + "Mine", 2},
        {"measure " + skins + "Mine", 0},
        {"measure " + skins + "None", 2},
        {"sheet " + skins + "Mine " + folder.Path() + "/sheet.png", 0},
        {"sheet " + skins + "Mine " + folder.Path() + "/no/sheet.png", 2},
        {"catalogue", 0},
        {"catalogue --json", 0},
        {"--help", 0},
    };
    folder.Write("Skins/Broken/Letters.bmp", {});
    for (const auto& [words, result] : kCases) {
        const std::string command = Text(KORVANE_SKIN_PROGRAM " ", words, " >/dev/null 2>&1");
        EXPECT_EQ(WEXITSTATUS(system(command.c_str())), result) << words;
    }
    EXPECT_GT(folder.Read("sheet.png").size(), 1000u);
}

constexpr std::uint32_t kInk = 0xF00000;  // and the kind

/// The characters of a skin as solid cells whose colour tells their kind.
void WriteSolidCharacters(const TemporaryFolder& folder) {
    for (const char* file : {"Letters.bmp", "Numbers.bmp"}) {
        BmpRecipe solid = GoodPicture(RowOf(file));
        solid.pixel = [isLetters = file[0] == 'L'](int x, int) {
            return kInk | (isLetters ? kLetters : x < 10 * 16 ? kDigits : kSigns);
        };
        folder.Write(Text("Skins/Mine/", file), MakeBmp(solid));
    }
}

/// Adds the text places that a point lies in; false without any. Right boards count as left ones.
bool AddPlacesAt(bool inMenu, unsigned kind, POINT point, std::set<std::size_t>& places) {
    bool isInOne = false;
    if (!inMenu && point.x >= 320) point.x -= 320;
    for (std::size_t i = 0; i < kTextPlaces.size(); ++i) {
        const TextPlace& place = kTextPlaces[i];
        if (LiesOnBackground(place.ground) != inMenu || (place.kinds & kind) == 0) continue;
        for (int row = 0; row < place.rows; ++row) {
            if (!Contains(place.Row(row, 0, 16), point)) continue;
            places.insert(i);
            isInOne = true;
        }
    }
    return isInOne;
}

TEST_F(SkinTool, TextPlacesAreExactlyWhereTheGameWrites) {
    WriteSolidCharacters(folder);
    std::set<std::size_t> used;
    for (const auto& [caption, pixels] : ScreensOf(folder.Path() + "/Skins/Mine")) {
        if (caption.starts_with("Boards apart") || caption.starts_with("Letters")) continue;
        constexpr std::string_view kMenus = "MCKH";  // menu, credits, keys, high scores
        const bool inMenu = kMenus.find(caption[0]) != kMenus.npos;
        for (int i = 0; i < 640 * 480 && !HasFailure(); ++i) {
            const unsigned kind = pixels[static_cast<std::size_t>(i)] ^ kInk;
            if (kind != kLetters && kind != kDigits && kind != kSigns) continue;
            EXPECT_TRUE(AddPlacesAt(inMenu, kind, {i % 640, i / 640}, used))
                << caption << ' ' << i % 640 << ", " << i / 640;
        }
    }
    EXPECT_EQ(used.size(), kTextPlaces.size());
}

TEST(ShippedSkins, HaveNoFaults) {
    int skins = 0;
    for (const auto& entry : fs::directory_iterator(KORVANE_SOURCE_FOLDER "/Skins")) {
        if (!entry.is_directory()) continue;
        ++skins;
        ASSERT_EQ(UseSkin(entry.path().string(), ""), "");
        const Report report = CheckSkin();
        std::ostringstream all;
        report.Print(all);
        EXPECT_EQ(report.Count(Severity::Note), report.Findings().size()) << all.str();
    }
    EXPECT_GE(skins, 4);
}

TEST(SkinGuide, HasTheTableOfTheCatalogue) {
    std::ifstream file(KORVANE_SOURCE_FOLDER "/docs/skins.md");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_NE(text.find(CatalogueAsMarkdown()), std::string::npos)
        << "docs/skins.md should hold this:\n\n"
        << CatalogueAsMarkdown();
}

}  // namespace
}  // namespace korvane
