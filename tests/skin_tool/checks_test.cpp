#include "tools/korvane-skin/checks.h"

#include <functional>
#include <span>

#include "tests/skin_tool/skin_tool_fixture.h"
#include "tests/support/wav_writer.h"
#include "tools/korvane-skin/colour.h"
#include "tools/korvane-skin/text_places.h"

namespace korvane {
namespace {

class SkinChecks : public SkinToolFixture {
  protected:
    void WriteText(const std::string& name, std::string_view text) const {
        folder.Write("Skins/Mine/" + name, std::as_bytes(std::span(text)));
    }
    void WritePicture(const PictureRow& row, const BmpRecipe& recipe) const {
        folder.Write("Skins/Mine/" + ShownName(row.file), MakeBmp(recipe));
    }

    /// The one thing that is found, or several of the same kind.
    static testing::AssertionResult Finds(Severity severity, const std::string& file,
                                          const std::string& text, std::size_t count = 1) {
        const Report report = CheckSkin();
        bool isRight = report.Findings().size() == count;
        for (const Finding& finding : report.Findings())
            isRight &= finding.severity == severity && finding.file == file &&
                       finding.text.find(text) != std::string::npos;
        if (isRight) return testing::AssertionSuccess();
        std::ostringstream all;
        report.Print(all);
        return testing::AssertionFailure() << all.str() << "instead of: " << file << ": " << text;
    }

    /// Which kinds of characters are hard to read somewhere, and what else is found.
    static std::string HardToRead() {
        const Report report = CheckSkin();
        std::string kinds;
        for (const Finding& finding : report.Findings()) {
            const auto isOf = [&](const char* count) {
                return finding.text.find(Text("of ", count, " characters are hard to read")) !=
                       std::string::npos;
            };
            kinds += isOf("26")   ? "letters "
                     : isOf("10") ? "digits "
                     : isOf("7")  ? "signs "
                                  : finding.text;
        }
        return kinds;
    }
};

TEST_F(SkinChecks, NothingIsFoundInAFaultlessSkin) {
    EXPECT_TRUE(Finds(Severity::Note, "", "", 0));
}

TEST_F(SkinChecks, FilesThatAreMissingStrangeOrUnreadable) {
    struct Case {
        Severity severity;
        const char* file;
        const char* content;  ///< null: the file is missing
        const char* text;
    };
    constexpr Case kCases[] = {
        {Severity::Note, "Game/pause.bmp", nullptr, "the Original's shows"},
        {Severity::Note, "colorkey.bmp", nullptr, "the Original's shows"},
        {Severity::Note, "Audio", nullptr, "the Original's music and sounds"},
        {Severity::Note, "Audio/module.txt", nullptr, "the Original's music"},
        {Severity::Note, "Audio/Rotate.wav", nullptr, "the Original's is heard"},
        {Severity::Error, "menu/logo.bmp", "\x89PNG...", "is a PNG file"},
        {Severity::Error, "menu/logo.bmp", "\xFF\xD8...", "is a JPEG file"},
        {Severity::Error, "menu/logo.bmp", "GIF", "no BMP"},
        {Severity::Error, "menu/logo.bmp", "BM and no more", "damaged"},
        {Severity::Error, "Audio/sniffit.xm", "Extended Module: no", "is no module"},
        {Severity::Error, "Audio/Button.wav", "RIFF", "is no sound"},
        {Severity::Warning, "menu/startbut.bmp", "", "misspelt"},
        {Severity::Warning, "Audio/Trible.wav", "", "misspelt"},
    };
    for (const auto& [severity, file, content, text] : kCases) {
        Restore();
        if (content) WriteText(file, content);
        if (!content) Remove(Text("Skins/Mine/", file));
        EXPECT_TRUE(Finds(severity, file, text));
    }
    Restore();
    Remove("Skins/Mine/Game/pause.bmp");
    Remove("Skins/Original/Game/pause.bmp");
    EXPECT_TRUE(Finds(Severity::Error, "Game/pause.bmp", "neither"));
}

/// What makes a good picture another one.
using Change = std::function<void(BmpRecipe&)>;

Change Sized(int width, int height) {
    return [=](BmpRecipe& picture) {
        picture.width = width;
        picture.height = height;
    };
}

Change Filled(const RECT& area, std::uint32_t colour) {
    return [=](BmpRecipe& picture) {
        picture.pixel = [=, good = picture.pixel](int x, int y) {
            return Contains(area, {x, y}) ? colour : good(x, y);
        };
    };
}

Change Dotted(int x, int y, std::uint32_t colour) {
    return Filled({x, y, x + 1, y + 1}, colour);
}

Change Filled(std::uint32_t colour) {
    return Filled({0, 0, 1000, 1000}, colour);
}

/// The third tile and the fourth.
Change Tiles(std::uint32_t third, std::uint32_t fourth) {
    return [=](BmpRecipe& picture) {
        Filled({32, 0, 48, 16}, third)(picture);
        Filled({48, 0, 64, 16}, fourth)(picture);
    };
}

/// The third tile has the first colour above and the second below, the fourth the reverse.
Change Halved(std::uint32_t one, std::uint32_t other) {
    return [=](BmpRecipe& picture) {
        Tiles(one, other)(picture);
        Filled({32, 8, 48, 16}, other)(picture);
        Filled({48, 8, 64, 16}, one)(picture);
    };
}

TEST_F(SkinChecks, PicturesThatAreChanged) {
    struct Case {
        const char* file;
        Change change;
        const char* text;  ///< null: nothing is found
        Severity severity = Severity::Warning;
        std::size_t count = 1;
        const char* inFile = nullptr;  ///< where it is told, if not there
    };
    constexpr Severity kError = Severity::Error;
    const Case kCases[] = {
        {"Background.bmp", Sized(15, 64), "thousands of times"},
        {"Letters.bmp", Sized(415, 16), "26 cells", kError},
        {"Game\\statistics.bmp", Sized(56, 19), "7 cells", kError},
        {"KeyConfig\\keys2.bmp", Sized(581, 44), "never shows"},
        {"menu\\LeftPlayer.bmp", Sized(110, 12), "its room is 109 x 12"},
        {"menu\\1playerbutt.bmp", Sized(236, 37), "its room is 118 x 36"},
        {"menu\\1playerbutt.bmp", Sized(235, 36), "equally wide", kError},
        {"menu\\easybutt2.bmp", Sized(218, 31), "cut like menu/easybutt.bmp", kError},
        {"menu\\logo.bmp", Sized(633, 100), "leaves the screen", kError},
        {"Game\\playboard.bmp", Sized(217, 372), "does not fit round"},
        {"Game\\playboard.bmp", Sized(218, 375), "leaves the screen", kError},
        // A good pause picture is grey, but for its key colour 00FF00 at 0, 0.
        {"Game\\pause.bmp", Dotted(5, 5, 0x07FC07), "1 pixel (at 5, 5: #07FC07) too close"},
        {"Game\\pause.bmp", Dotted(5, 5, 0x08FC07), nullptr},
        {"Game\\pause.bmp", Dotted(5, 5, 0x00FB00), nullptr},
        {"Game\\pause.bmp", Dotted(1, 0, 0x49B649), "in a fringe round the key colour #00FF00"},
        {"Game\\pause.bmp", Dotted(1, 0, 0x4AB54A), nullptr},
        {"Game\\pause.bmp", Dotted(1, 1, 0x49B649), nullptr},
        {"Game\\pause.bmp", Dotted(5, 5, 0xFF00FF), "here key colour 2 (#00FF00) is transparent"},
        {"Background.bmp", Dotted(5, 5, 0x00FFFF), "key colour 3, which shows as it is: nothing"},
        {"Letters.bmp", Dotted(14 + 16, 5, 0xFFFFFF), "the characters B use the right two columns"},
        {"KeyConfig\\keys1.bmp", Filled(0xFFFFFF), "drawn as boxes"},
        // White numbers on a ground that has 4.5 to 1 just not, and just so.
        {"Game\\statisticsframe.bmp", Filled(0x777777), "on Game/statisticsframe.bmp",
         Severity::Warning, 1, "Numbers.bmp"},
        {"Game\\statisticsframe.bmp", Filled(0x767676), nullptr},
        {"KeyConfig\\alpha2.bmp", Filled({32, 3, 41, 13}, 0x909090),
         "1 of 6 characters are hard to read on KeyConfig/keybuttongrey.bmp (cell 2 "},
        {"Game\\blocks.bmp", Filled(0x606060), "look alike", Severity::Warning, 4 * 28},
        {"Game\\blocks.bmp", Tiles(0xF00030, 0x206030), "tiles 3 and 4 look alike with protanopia"},
        {"Game\\blocks.bmp", Tiles(0xC01020, 0x009010),
         "tiles 3 and 4 look alike with deuteranopia"},
        // Halves of the same two greys the other way round: seen without marks they are one colour.
        {"Game\\blocks.bmp", Halved(0xC0C0C0, 0x202020), "tiles 3 and 4 differ only in their marks",
         Severity::Warning, 3},
        {"Game\\blocks.bmp", Tiles(0x0040F0, 0x7060F0), "tiles 3 and 4 look alike with tritanopia"},
    };
    for (std::size_t i = 0; const Case& c : kCases) {
        SCOPED_TRACE(testing::Message() << "case " << i++ << ", " << c.file);
        Restore();
        BmpRecipe picture = GoodPicture(RowOf(c.file));
        c.change(picture);
        WritePicture(RowOf(c.file), picture);
        EXPECT_TRUE(
            c.text ? Finds(c.severity, c.inFile ? c.inFile : ShownName(c.file), c.text, c.count)
                   : Finds(Severity::Note, "", "", 0));
    }
}

TEST_F(SkinChecks, GroundsWhereTextStands) {
    struct Case {
        const char* file;
        RECT area;           ///< of the ground, where it is too light for white
        bool isSeenThrough;  ///< the chart's frame is transparent
        std::string found;
    };
    // A good character fills the rows 3 to 12 of its cell.
    const Case kCases[] = {
        {"Background.bmp", {436, 104, 516, 120}, false, "letters "},            // the heading SCORE
        {"Background.bmp", {9, 390, 25, 406}, false, "letters digits signs "},  // the last name
        {"Background.bmp", {0, 0, 9, 480}, false, ""},
        {"Background.bmp", {0, 0, 520, 104}, false, ""},
        {"Game\\Background.bmp", {234, 277, 298, 293}, false, "letters "},  // WINS
        {"Game\\Background.bmp", {294, 355, 310, 371}, false, "digits "},   // of a score, the fifth
        {"Game\\Background.bmp", {230, 0, 234, 372}, false, ""},
        {"Game\\Background.bmp", {234, 349, 314, 358}, false, ""},  // below SCORE, above its value
        {"Game\\Background.bmp", {234, 107, 320, 123}, false, ""},
        {"Game\\Background.bmp", {234, 107, 320, 123}, true, "digits "},  // the number of figures
    };
    for (const auto& [file, area, isSeenThrough, found] : kCases) {
        Restore();
        BmpRecipe ground = GoodPicture(RowOf(file));
        Sized(RowOf(file).file == kMenuGround ? 520 : 320, 480)(ground);
        Filled(area, 0x777777)(ground);
        WritePicture(RowOf(file), ground);
        BmpRecipe frame = GoodPicture(RowOf("Game\\statisticsframe.bmp"));
        Filled(0xFF00FF)(frame);
        if (isSeenThrough) WritePicture(RowOf("Game\\statisticsframe.bmp"), frame);
        EXPECT_EQ(HardToRead(), found) << file << ' ' << area.left << ", " << area.top;
    }
}

TEST_F(SkinChecks, KeyColoursOfTheirOwn) {
    const PictureRow& row = RowOf("colorkey.bmp");
    BmpRecipe keys = GoodPicture(row);
    keys.pixel = [](int x, int) {
        return std::array{0xFF00FFu, 0x00C0C0u, 0x00FFFFu}[static_cast<std::size_t>(x)];
    };
    WritePicture(row, keys);
    EXPECT_TRUE(Finds(Severity::Note, "", "", 0));
    Remove("Skins/Mine/Game/pause.bmp");
    EXPECT_TRUE(Finds(Severity::Warning, "Game/pause.bmp",
                      "the Original's shows its key colour #00FF00 here"));
    // The indices have the bytes of the three keys, which alone the game looks at.
    Restore();
    constexpr std::array kBytes = {0xFFu, 0u, 0xFFu, 0u, 0xFFu, 0u, 0xFFu, 0xFFu, 0u};
    BmpRecipe palette{.width = 9, .bits = 8, .palette = std::vector<std::uint32_t>(256)};
    palette.pixel = [&](int x, int) { return kBytes[static_cast<std::size_t>(x)]; };
    WritePicture(row, palette);
    EXPECT_TRUE(Finds(Severity::Error, "colorkey.bmp", "24 bits"));
}

TEST_F(SkinChecks, EntriesOfModuleText) {
    constexpr const char* kName = "FILENAME:\nsniffit.xm\n";
    constexpr const char* kMenu = "Menu start position:\r\n0\r\n";
    constexpr const char* kGame = "GAME START POSITION:\n8\n";
    constexpr const char* kScores = "HIGH SCORE START POSITION:\n54\n";
    const std::vector<std::pair<std::string, std::pair<Severity, const char*>>> kCases = {
        {Text("\n", kName, kMenu, kGame, kScores),
         {Severity::Warning, "HIGH SCORE START POSITION: in line 8 is not read"}},
        {Text(kName, kMenu, kGame), {Severity::Warning, "says nothing under HIGH SCORE"}},
        {Text("FILENAME: sniffit.xm\n", kMenu, kGame, kScores),
         {Severity::Warning, "line 1 is not read: FILENAME: stands alone"}},
        {Text("FILENAME:\nsnifit.xm\n", kMenu, kGame, kScores),
         {Severity::Error, "\"snifit.xm\", which is not in Audio"}},
        {Text(kName, kMenu, "GAME START POSITION:\n60\n", kScores),
         {Severity::Warning, "60 is beyond the module's 60 positions"}},
        {Text(kName, kMenu, "GAME START POSITION:\n-1\n", kScores),
         {Severity::Warning, "-1 is below 0"}},
        {Text(kName, kMenu, "GAME START POSITION:\nstart\n", kScores),
         {Severity::Warning, "\"start\", which counts as 0"}},
    };
    for (const auto& [content, found] : kCases) {
        WriteText("Audio/module.txt", content);
        EXPECT_TRUE(Finds(found.first, "Audio/module.txt", found.second));
    }
}

TEST_F(SkinChecks, SoundsBeyondTheLimits) {
    folder.Write("Skins/Mine/Audio/Tetris.wav", MakeWav({.rate = 96000}));
    EXPECT_TRUE(Finds(Severity::Error, "Audio/Tetris.wav", "8000 to 48000 Hz"));
}

TEST(SkinReport, IsSortedByFileAndCounted) {
    Report report;
    report.Add(Severity::Note, "b.bmp", "first");
    report.Add(Severity::Error, "b.bmp", "second");
    report.Add(Severity::Warning, "a\\z.bmp", "third\nand \x1B[1m");
    std::ostringstream out;
    report.Print(out);
    EXPECT_EQ(out.str(),
              "warning  a/z.bmp: third?and ?[1m\nerror  b.bmp: second\nnote  b.bmp: first\n"
              "1 error, 1 warning, 1 note\n");
}

}  // namespace
}  // namespace korvane
