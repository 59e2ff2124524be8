#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "gfx/bitmap_font.h"
#include "gfx/figure_statistics.h"
#include "gfx/skin.h"
#include "tests/support/bmp_writer.h"
#include "tests/support/display_fixture.h"
#include "tests/support/test_skin.h"

namespace korvane {
namespace {

class TextTest : public DisplayFixture {
  protected:
    void SetUp() override {
        DisplayFixture::SetUp();
        WriteTestSkin(folder, "Original");
        skinColorKeys.Load();
    }

    /// Which characters stand where: every cell of the test font begins with a white column and
    /// tells its code in dots.
    static std::map<int, char> Read(int y) {
        std::map<int, char> found;
        EXPECT_EQ(currentDisplay->ShowFrame(), S_OK);
        for (int x = 0; x + 5 < 640; ++x) {
            if (Shown(x, y) != 0xFFFFFF) continue;
            int code = 0;
            for (int bit = 0; bit < 8; ++bit)
                code |= (Shown(x + 5, y + 2 * bit) != 0) << bit;
            found[x] = static_cast<char>(code);
        }
        return found;
    }
};

TEST_F(TextTest, CharactersStandWhereTheirSpacingPutsThem) {
    const BitmapFont font;
    using Draw = void (BitmapFont::*)(std::string_view, std::uint32_t, std::uint32_t) const;
    struct Case {
        Draw draw;
        std::string text;
        std::uint32_t x;
        std::map<int, char> expected;
    };
    const std::vector<Case> cases = {
        {&BitmapFont::DrawText,
         "LEVEL 12",
         100,
         {{100, 'L'}, {114, 'E'}, {128, 'V'}, {142, 'E'}, {156, 'L'}, {184, '1'}, {198, '2'}}},
        {&BitmapFont::DrawTextRight, "340", 627, {{585, '3'}, {599, '4'}, {613, '0'}}},
        {&BitmapFont::DrawTextWide, "A:@", 10, {{10, 'A'}, {26, ':'}, {42, '@'}}},
        {&BitmapFont::DrawText, "Time", 50, {{50, 'T'}}},
        {&BitmapFont::DrawText, "\xC9\xFF[/Z", 50, {{106, 'Z'}}},
        {&BitmapFont::DrawText, "", 50, {}},
        {&BitmapFont::DrawTextRight, "", 50, {}},
        {&BitmapFont::DrawText, "ABC", 610, {{610, 'A'}, {624, 'B'}}},  // C would leave the screen
    };
    for (const Case& c : cases) {
        Clear();
        (font.*c.draw)(c.text, c.x, 40);
        EXPECT_EQ(Read(40), c.expected) << c.text;
    }
}

TEST_F(TextTest, GlyphsBeyondANarrowPictureAreLeftOut) {
    folder.Write("Skins/Original/Letters.bmp",
                 MakeBmp({.width = 40, .height = 16, .pixel = [](int, int) { return 0xFFFFFFu; }}));
    const BitmapFont font;
    font.DrawTextWide("ABC", 0, 0);
    EXPECT_EQ(Shown(31, 0), 0xFFFFFFu);
    EXPECT_EQ(Shown(32, 0), 0u);
}

TEST_F(TextTest, BarsGrowFromTheBottom) {
    Surface picture("Game\\statistics.bmp");
    picture.SetColorKey(ColorKey(1));
    FigureStatistics statistics;
    for (const int type : {1, 1, 1, 2, 0, 8})
        statistics.AddFigure(type);
    statistics.DrawChart(picture, 100, 200);
    EXPECT_NE(Shown(100, 200), 0u) << "three of three: 20 pixels";
    EXPECT_EQ(Shown(107, 219), 0u) << "key colour between the bars";
    EXPECT_EQ(Shown(108, 213), 0u) << "one of three: 6 pixels";
    EXPECT_NE(Shown(108, 214), 0u);
    EXPECT_EQ(Shown(116, 219), 0u) << "none";
    EXPECT_NE(Shown(100, 200), Shown(108, 214)) << "each type has its own column";
}

}  // namespace
}  // namespace korvane
