#include "tools/korvane-skin/checks.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <span>
#include <tuple>
#include <variant>

#include "tests/skin_tool/skin_tool_fixture.h"
#include "tests/support/wav_writer.h"
#include "tools/korvane-skin/skin_text.h"
#include "tools/korvane-skin/text_places.h"

namespace korvane {
namespace {

/// Changes a good picture.
using Paint = std::function<void(BmpRecipe&)>;
/// What a file becomes: missing, a text, bytes or another picture.
using Change = std::variant<std::monostate, std::string, std::vector<std::byte>, Paint>;

class SkinChecks : public SkinToolFixture {
  protected:
    void Make(const std::string& file, const Change& change) const {
        const std::string path = "Skins/Mine/" + file;
        std::filesystem::remove_all(folder.Path() + "/" + path);
        if (const auto* text = std::get_if<std::string>(&change))
            folder.Write(path, std::as_bytes(std::span(*text)));
        if (const auto* bytes = std::get_if<std::vector<std::byte>>(&change))
            folder.Write(path, *bytes);
        if (const auto* paint = std::get_if<Paint>(&change)) {
            std::string name = file;
            std::ranges::replace(name, '/', '\\');
            BmpRecipe picture = GoodPicture(RowOf(name));
            (*paint)(picture);
            folder.Write(path, MakeBmp(picture));
        }
    }

    /// Whether there are just so many findings, all with this severity, file and text.
    static testing::AssertionResult Finds(Severity severity, const std::string& file,
                                          const std::string& text, std::size_t count = 1) {
        const Report report = CheckSkin();
        const auto isRight = [&](const Finding& finding) {
            return finding.severity == severity && finding.file == file &&
                   finding.text.find(text) != std::string::npos;
        };
        if (report.Findings().size() == count && std::ranges::all_of(report.Findings(), isRight))
            return testing::AssertionSuccess();
        std::ostringstream all;
        report.Print(all);
        return testing::AssertionFailure() << all.str() << "instead of: " << file << ": " << text;
    }
};

Paint Sized(int width, int height) {
    return [=](BmpRecipe& picture) {
        picture.width = width;
        picture.height = height;
    };
}

Paint Filled(std::uint32_t colour, const RECT& area = {0, 0, 1000, 1000}) {
    return [=](BmpRecipe& picture) {
        picture.pixel = [=, good = picture.pixel](int x, int y) {
            return Contains(area, {x, y}) ? colour : good(x, y);
        };
    };
}

/// A picture of a size that is all of one dark colour.
Paint Covering(SIZE size) {
    return [=](BmpRecipe& picture) {
        Sized(size.cx, size.cy)(picture);
        Filled(0x101018)(picture);
    };
}

Paint Dotted(int x, int y, std::uint32_t colour) {
    return Filled(colour, {x, y, x + 1, y + 1});
}

/// The third tile and the fourth; with `exchanged` the lower half of each has the other's colour.
Paint Tiles(std::uint32_t third, std::uint32_t fourth, bool exchanged = false) {
    return [=](BmpRecipe& picture) {
        Filled(third, {32, 0, 48, 16})(picture);
        Filled(fourth, {48, 0, 64, 16})(picture);
        if (!exchanged) return;
        Filled(fourth, {32, 8, 48, 16})(picture);
        Filled(third, {48, 8, 64, 16})(picture);
    };
}

/// A palette picture. Its indices are the bytes of the three keys, at which alone the game looks.
void PaintKeyIndices(BmpRecipe& picture) {
    picture = {.width = 9, .bits = 8, .palette = std::vector<std::uint32_t>(256)};
    picture.pixel = [](int x, int) { return 0xFFu * (0b011'101'101u >> x & 1u); };
}

/// A good module.txt, in which one text is replaced by another one.
std::string ModuleText(std::string_view from = "", std::string_view to = "") {
    std::string text =
        "FILENAME:\nsniffit.xm\nMenu start position:\r\n0\r\nGAME START POSITION:\n8\n"
        "HIGH SCORE START POSITION:\n54\n";
    return text.replace(text.find(from), from.size(), to);
}

using enum Severity;
constexpr std::monostate kMissing;

struct CheckCase {
    const char* file;
    Change change;
    Severity severity;
    const char* text;
    std::size_t count = 1;
    const char* inFile = nullptr;   ///< the file of the finding, if it is another one
    const char* without = nullptr;  ///< another file that is missing
};

const CheckCase kFaults[] = {
    {"Game/pause.bmp", kMissing, Note, "the Original's shows"},
    {"colorkey.bmp", kMissing, Note, "the Original's shows"},
    {"Audio", kMissing, Note, "the Original's music and sounds"},
    {"Audio/sniffit.xm", kMissing, Note, "the Original's music", 1, "Audio/module.txt",
     "Audio/module.txt"},
    {"Audio/Rotate.wav", kMissing, Note, "the Original's is heard"},
    {"menu/logo.bmp", "\x89PNG...", Error, "is a PNG file"},
    {"menu/logo.bmp", "\xFF\xD8...", Error, "is a JPEG file"},
    {"menu/logo.bmp", "GIF", Error, "no BMP"},
    {"menu/logo.bmp", "BM and no more", Error, "damaged"},
    {"Audio/sniffit.xm", "Extended Module: no", Error, "is no module"},
    {"Audio/Button.wav", "RIFF", Error, "is no sound"},
    {"Audio/Tetris.wav", MakeWav({.rate = 96000}), Error, "8000 to 48000 Hz"},
    {"menu/startbut.bmp", "", Warning, "misspelt"},
    {"Game/PAUSE.png", "\x89PNG", Warning, "save it as Game/pause.bmp", 1, nullptr,
     "Game/pause.bmp"},
    {"Audio/module.txt", kMissing, Warning, "write that file", 1, "Audio/sniffit.xm"},
    {"Audio/Trible.wav", "", Warning, "misspelt"},

    {"Letters.bmp", Sized(415, 16), Error, "26 cells"},
    {"Game/statistics.bmp", Sized(56, 19), Error, "7 cells"},
    {"KeyConfig/keys2.bmp", Sized(581, 44), Warning, "never shows"},
    {"menu/LeftPlayer.bmp", Sized(110, 12), Warning, "its room is 109 x 214"},
    {"menu/1playerbutt.bmp", Sized(236, 37), Warning, "its room is 118 x 36"},
    {"menu/1playerbutt.bmp", Sized(235, 36), Error, "equally wide"},
    {"menu/easybutt2.bmp", Sized(218, 31), Error, "cut like menu/easybutt.bmp"},
    {"menu/logo.bmp", Sized(633, 100), Error, "leaves the screen"},
    {"HighScore/highscore.bmp", Sized(533, 480), Warning, "its room is 532 x 480"},
    {"menu/logo.bmp", Covering({624, 480}), Warning, "hides the whole background"},
    {"KeyConfig/keybuttongrey.bmp", Sized(130, 112), Error, "leaves the screen"},
    {"KeyConfig/keybuttongrey.bmp", Sized(130, 111), Warning, "its room is 65 x 64"},
    {"Game/playboard.bmp", Sized(217, 372), Warning, "does not fit round"},
    {"Game/playboard.bmp", Sized(218, 375), Error, "leaves the screen"},

    // A good pause picture is grey, but for its key colour 00FF00 at 0, 0.
    {"Game/pause.bmp", Dotted(5, 5, 0x07FC07), Warning, "1 pixel (at 5, 5: #07FC07) too close"},
    {"Game/pause.bmp", Dotted(1, 0, 0x49B649), Warning, "a fringe round the key colour #00FF00"},
    {"Game/pause.bmp", Dotted(5, 5, 0xFF00FF), Warning, "here key colour 2 (#00FF00) is"},
    {"Background.bmp", Dotted(5, 5, 0x00FFFF), Warning, "key colour 3, which shows as it is: no"},
    {"Letters.bmp", Dotted(14 + 16, 5, 0xFFFFFF), Warning, "the characters B use the right two"},
    {"KeyConfig/keys1.bmp", Filled(0xFFFFFF), Warning, "drawn as boxes"},
    {"colorkey.bmp", PaintKeyIndices, Error, "24 bits"},

    // White numbers have a contrast of just below 4.5 to 1.
    {"Game/statisticsframe.bmp", Filled(0x777777), Warning, "on Game/statisticsframe.bmp", 1,
     "Numbers.bmp"},
    {"KeyConfig/alpha2.bmp", Filled(0x909090, {32, 3, 41, 13}), Warning,
     "1 of 6 characters are hard to read on KeyConfig/keybuttongrey.bmp (cell 2 "},
    {"Game/blocks.bmp", Filled(0x606060), Warning, "and 24 more pairs look alike"},
    {"Game/blocks.bmp", Tiles(0xF00030, 0x206030), Warning, "3 and 4 look alike with protanopia"},
    {"Game/blocks.bmp", Tiles(0xC01020, 0x009010), Warning, "3 and 4 look alike with deuteranopi"},
    {"Game/blocks.bmp", Tiles(0x0040F0, 0x7060F0), Warning, "3 and 4 look alike with tritanopia"},
    {"Game/blocks.bmp", Tiles(0xC0C0C0, 0x202020, true), Warning,
     "3 and 4 differ only in their marks"},

    {"Audio/module.txt", ModuleText("", "\n"), Warning, "HIGH SCORE START POSITION: in line 8 is"},
    {"Audio/module.txt", ModuleText("HIGH SCORE START POSITION:\n54\n"), Warning, "under HIGH SCO"},
    {"Audio/module.txt", ModuleText(":\nsniffit", ": sniffit"), Warning,
     "line 1 is not read: FILE"},
    {"Audio/module.txt", ModuleText("sniffit", "snifit"), Error,
     "\"snifit.xm\", which is not in Au"},
    {"Audio/module.txt", ModuleText("8", "60"), Warning, "60 is beyond the module's 60 positions"},
    {"Audio/module.txt", ModuleText("8", "-1"), Warning, "-1 is below 0"},
    {"Audio/module.txt", ModuleText("8", "start"), Warning, "\"start\", which counts as 0"},

    // Just good enough.
    {"Game/pause.bmp", Dotted(5, 5, 0x08FC07), Note, "", 0},
    {"Game/pause.bmp", Dotted(5, 5, 0x00FB00), Note, "", 0},
    {"Game/pause.bmp", Dotted(1, 0, 0x4AB54A), Note, "", 0},
    {"Game/pause.bmp", Dotted(1, 1, 0x49B649), Note, "", 0},
    {"Game/statisticsframe.bmp", Filled(0x767676), Note, "", 0},
    {"colorkey.bmp", Dotted(1, 0, 0x00C0C0), Note, "", 0},
};

TEST_F(SkinChecks, FindEachFaultAndNothingElse) {
    EXPECT_TRUE(Finds(Note, "", "", 0));
    for (std::size_t i = 0; const CheckCase& c : kFaults) {
        SCOPED_TRACE(testing::Message() << "case " << i++ << ", " << c.file);
        Restore();
        Make(c.file, c.change);
        if (c.without) Make(c.without, kMissing);
        EXPECT_TRUE(Finds(c.severity, c.inFile ? c.inFile : c.file, c.text, c.count));
    }
}

TEST_F(SkinChecks, MissingPicturesThatTheOriginalCannotReplace) {
    Make("Game/pause.bmp", kMissing);
    Make("colorkey.bmp", Dotted(1, 0, 0x00C0C0));
    EXPECT_TRUE(Finds(Warning, "Game/pause.bmp", "Original's shows its key colour #00FF00 here"));
    Restore();
    Make("Game/pause.bmp", kMissing);
    std::filesystem::remove(folder.Path() + "/Skins/Original/Game/pause.bmp");
    EXPECT_TRUE(Finds(Error, "Game/pause.bmp", "neither"));
}

TEST_F(SkinChecks, PicturesThatTakeTooMuchTogether) {
    const Paint huge = [](BmpRecipe& picture) {
        const std::uint32_t colour = picture.pixel(0, 0);
        picture = {.width = 4096, .height = 2048, .bits = 8, .palette = {colour}};
        picture.palette.resize(256);
    };
    Make("Background.bmp", huge);
    EXPECT_TRUE(Finds(Note, "", "", 0));
    Make("Game/Background.bmp", huge);
    EXPECT_TRUE(Finds(Error, "Game/Background.bmp", "finds no room: the pictures of a skin take"));
}

/// Which kinds of characters are hard to read somewhere, and what else is found.
std::string HardToRead() {
    const Report report = CheckSkin();
    std::string kinds;
    for (const auto& [severity, file, text] : report.Findings()) {
        const auto isOf = [&found = text](const char* count) {
            return found.find(Text("of ", count, " characters are hard")) != found.npos;
        };
        kinds += isOf("26") ? "letters " : isOf("10") ? "digits " : isOf("7") ? "signs " : "more ";
    }
    return kinds;
}

TEST_F(SkinChecks, TextIsHardToReadOnSomeGrounds) {
    // The area is where the ground is too light for white. A good character fills the rows 3 to 12
    // of its cell. The frame of the chart may be transparent.
    const std::tuple<const char*, RECT, bool, const char*> kCases[] = {
        {"Background.bmp", {436, 104, 516, 120}, false, "letters "},            // the heading SCORE
        {"Background.bmp", {9, 390, 25, 406}, false, "letters digits signs "},  // the last name
        {"menu/logo.bmp", {157, 372, 180, 388}, false, "letters digits signs "},  // the address
        {"HighScore/highscore.bmp", {10, 138, 26, 154}, false, "letters digits signs "},
        {"Background.bmp", {0, 0, 9, 480}, false, ""},
        {"Background.bmp", {0, 0, 520, 104}, false, ""},
        {"Game/Background.bmp", {234, 277, 298, 293}, false, "letters "},  // WINS
        {"Game/Background.bmp", {294, 355, 310, 371}, false, "digits "},   // of a score, the fifth
        {"Game/Background.bmp", {230, 0, 234, 372}, false, ""},
        {"Game/Background.bmp", {234, 349, 314, 358}, false, ""},  // below SCORE, above its value
        {"Game/Background.bmp", {234, 107, 320, 123}, false, ""},
        {"Game/Background.bmp", {234, 107, 320, 123}, true, "digits "},  // the number of figures
    };
    for (const auto& [file, area, isSeenThrough, found] : kCases) {
        Restore();
        const int width = file == ShownName(kGameGround) ? 320 : 520;
        Make(file, Paint([width, filled = area](BmpRecipe& ground) {
                 Sized(width, 480)(ground);
                 Filled(0x777777, filled)(ground);
             }));
        if (isSeenThrough) Make("Game/statisticsframe.bmp", Filled(0xFF00FF));
        EXPECT_EQ(HardToRead(), found) << file << ' ' << area.left << ", " << area.top;
    }
}

TEST(SkinReport, IsSortedByFileAndCounted) {
    Report report;
    report.Add(Note, "b.bmp", "first");
    report.Add(Error, "b.bmp", "second");
    report.Add(Warning, "a\\z.bmp", "third\nand \x1B[1m");
    std::ostringstream out;
    report.Print(out);
    EXPECT_EQ(out.str(),
              "warning  a/z.bmp: third?and ?[1m\nerror  b.bmp: second\nnote  b.bmp: first\n"
              "1 error, 1 warning, 1 note\n");
    out.str("");
    report.PrintJson(out);
    EXPECT_EQ(out.str(),
              R"({"errors": 1, "warnings": 1, "notes": 1, "findings": [
  {"severity": "warning", "file": "a/z.bmp", "text": "third?and ?[1m"},
  {"severity": "error", "file": "b.bmp", "text": "second"},
  {"severity": "note", "file": "b.bmp", "text": "first"}
]}
)");
}

TEST(SkinText, SaysWhatASkinIsAndWhoseItIs) {
    const std::string longName(kMaxSkinTextValue, 'x');
    for (const auto& [text, title] :
         {std::pair<std::string, std::string>{"Name: Dusk\nAuthor: Somebody\nLicence: CC0\n",
                                              "Dusk by Somebody, CC0"},
          {"\xEF\xBB\xBFLICENSE :  MIT \r\nname:Dusk\r\nName: Dawn", "Dusk, MIT"},
          {"author: A\x1B[1m", "by A?[1m"},
          {"Name: " + longName + "y", longName},
          {"Name: " + longName.substr(1) + "\u00E9", longName.substr(1)},
          {"no colon\n:\nOther: thing\nName:", ""}}) {
        EXPECT_EQ(TitleOf(ReadSkinText(text)), title) << text;
    }
}

}  // namespace
}  // namespace korvane
