#include "gfx/surface.h"

#include <vector>

#include "gfx/button.h"
#include "gfx/skin.h"
#include "platform/headless/headless_host.h"
#include "tests/support/bmp_writer.h"
#include "tests/support/display_fixture.h"

namespace korvane {
namespace {

constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kBlue = 0x0000FF;

std::vector<std::byte> Flat(int width, int height, std::uint32_t colour) {
    return MakeBmp({.width = width, .height = height, .pixel = [=](int, int) { return colour; }});
}

class SurfaceTest : public DisplayFixture {};

TEST_F(SurfaceTest, LooksInTheSkinThenInTheFallbackFolder) {
    struct Case {
        bool inSkin;
        bool inFallback;
        std::uint32_t shown;
    };
    for (const Case& c :
         {Case{true, true, kRed}, Case{false, true, kBlue}, Case{false, false, 0}}) {
        folder.Write("Skins/Mine/Game/x.bmp",
                     c.inSkin ? Flat(4, 4, kRed) : std::vector<std::byte>{});
        folder.Write("Graphics/Original/Game/x.bmp",
                     c.inFallback ? Flat(4, 4, kBlue) : std::vector<std::byte>{});
        theSettings.skinName = "Mine";
        const Surface surface("Game\\x.bmp");
        Clear();
        EXPECT_EQ(surface.Draw(5, 5, 0, 0, 0, 0, DDBLTFAST_NOCOLORKEY), S_OK);
        EXPECT_EQ(Shown(5, 5), c.shown);
        EXPECT_EQ(surface.Width(), c.shown ? 4u : 0u);
    }
}

TEST_F(SurfaceTest, ASkinNameLeadsNowhereElse) {
    TemporaryFolder elsewhere;
    elsewhere.Write("x.bmp", Flat(4, 4, kRed));
    folder.Write("Skins/Mine/x.bmp", Flat(4, 4, kRed));
    for (const std::string& name :
         {"../../" + elsewhere.Path().substr(1), std::string("..\\Skins\\Mine"),
          std::string("/") + elsewhere.Path(), std::string(300, 'a'), std::string()}) {
        theSettings.skinName = name;
        EXPECT_EQ(Surface("x.bmp").Width(), 0u) << name;
    }
}

TEST_F(SurfaceTest, DrawTakesPartsAndRefusesWhatDoesNotFit) {
    folder.Write("Skins/Original/x.bmp", MakeBmp({.width = 8, .height = 4, .pixel = [](int x, int) {
                                                      return x < 4 ? kRed : kBlue;
                                                  }}));
    const Surface surface("x.bmp");
    EXPECT_EQ(surface.Draw(0, 0, 4, 1, 4, 2, DDBLTFAST_NOCOLORKEY), S_OK);
    EXPECT_EQ(Shown(0, 0), kBlue);
    EXPECT_EQ(Shown(3, 1), kBlue);
    EXPECT_EQ(Shown(0, 2), 0u);
    EXPECT_TRUE(Failed(surface.Draw(0, 0, 4, 0, 0, 0, DDBLTFAST_NOCOLORKEY))) << "whole from 4";
    EXPECT_TRUE(Failed(surface.Draw(633, 0, 0, 0, 0, 0, DDBLTFAST_NOCOLORKEY)));
    EXPECT_EQ(surface.Draw(632, 476, 0, 0, 0, 0, DDBLTFAST_NOCOLORKEY), S_OK);
    EXPECT_EQ(Shown(639, 479), kBlue);
}

TEST_F(SurfaceTest, TilesCoverExactlyTheArea) {
    folder.Write("Skins/Original/x.bmp",
                 MakeBmp({.width = 32, .height = 32, .pixel = [](int x, int y) {
                              return static_cast<std::uint32_t>(1 + x + 100 * y);
                          }}));
    const Surface surface("x.bmp");
    struct Case {
        int width, height;
    };
    for (const Case& c : {Case{100, 50}, Case{64, 32}, Case{1, 1}, Case{33, 31}}) {
        Clear();
        surface.DrawTiled(10, 20, static_cast<std::uint32_t>(c.width),
                          static_cast<std::uint32_t>(c.height));
        int wrong = 0;
        for (int y = 0; y < 60; ++y) {
            for (int x = 0; x < 110; ++x) {
                const bool inside = x < c.width && y < c.height;
                const int expected = inside ? 1 + x % 32 + 100 * (y % 32) : 0;
                wrong += Shown(10 + x, 20 + y) != static_cast<std::uint32_t>(expected);
            }
        }
        EXPECT_EQ(wrong, 0) << c.width << " x " << c.height;
    }
}

TEST_F(SurfaceTest, KeysComeFromTheFirstStoredPixels) {
    EXPECT_EQ(ColorKey(0), 0u);
    const auto keys =
        MakeBmp({.width = 3, .height = 2, .pixel = [](int x, int y) {
                     return y == 1 ? 0x112233u * static_cast<std::uint32_t>(x + 1) : 0u;
                 }});
    folder.Write("Skins/Original/colorkey.bmp", keys);
    theSettings.skinName = "Mine";
    skinColorKeys.Load();  // the Original's, for want of an own
    EXPECT_EQ(ColorKey(0), RGB(0x11, 0x22, 0x33));
    EXPECT_EQ(ColorKey(2), RGB(0x33, 0x66, 0x99));
    EXPECT_EQ(ColorKey(3), 0u);
    EXPECT_EQ(ColorKey(-1), 0u);
    for (std::size_t length = 0; length < keys.size(); ++length) {
        folder.Write("Skins/Mine/colorkey.bmp", std::span(keys).first(length));
        skinColorKeys.Load();  // must not read behind the end
    }
    std::vector<std::byte> wild = keys;
    for (std::size_t i = 10; i < 14; ++i)
        wild[i] = std::byte{0xFF};
    folder.Write("Skins/Mine/colorkey.bmp", wild);
    skinColorKeys.Load();
    EXPECT_EQ(ColorKey(1), RGB(0x22, 0x44, 0x66)) << "what the file does not hold stays";
}

/// A keyed picture lets the same pixels through at every depth, although colours differ there.
TEST_F(SurfaceTest, KeyColoursWorkAtEveryDepth) {
    constexpr std::uint32_t kKey = 0xFF00FF;
    folder.Write("Skins/Original/colorkey.bmp", Flat(3, 1, kKey));
    folder.Write("Skins/Original/x.bmp", MakeBmp({.width = 2, .height = 1, .pixel = [](int x, int) {
                                                      return x == 0 ? kKey : 0xFFFFFFu;
                                                  }}));
    skinColorKeys.Load();
    for (const std::uint32_t depth : {8u, 16u, 32u}) {
        currentDisplay = std::make_unique<Display>();
        ASSERT_EQ(currentDisplay->OpenFullScreen(window, 640, 480, depth, 0), S_OK);
        const Surface surface("x.bmp");
        Clear();
        EXPECT_EQ(surface.Draw(0, 0, 0, 0, 0, 0, DDBLTFAST_SRCCOLORKEY), S_OK);
        EXPECT_EQ(Shown(0, 0), 0u) << depth;
        EXPECT_EQ(Shown(1, 0), 0xFFFFFFu) << depth;
    }
}

TEST_F(SurfaceTest, ColoursAreCutToTheChannelsOfASurface) {
    ASSERT_EQ(currentDisplay->OpenFullScreen(window, 640, 480, 16, 0), S_OK);
    IDirectDrawSurface7* back = currentDisplay->BackBuffer();
    EXPECT_EQ(ColorToPixel(back, RGB(255, 0, 255)), 0xF81Fu);
    EXPECT_EQ(ColorToPixel(back, RGB(7, 255, 8)), 0x07E1u);
    ASSERT_EQ(currentDisplay->OpenWindowed(window, 640, 480), S_OK);
    EXPECT_EQ(ColorToPixel(currentDisplay->BackBuffer(), RGB(1, 2, 3)), 0x010203u);
}

TEST_F(SurfaceTest, WithoutADisplayNothingIsDrawnAndNothingBreaks) {
    folder.Write("Skins/Original/x.bmp", Flat(4, 4, kRed));
    Surface surface("x.bmp");
    currentDisplay.reset();
    EXPECT_EQ(surface.Draw(0, 0, 0, 0, 0, 0, DDBLTFAST_NOCOLORKEY), S_OK);
    EXPECT_EQ(surface.DrawTiled(0, 0, 9, 9), S_OK);
    EXPECT_FALSE(surface.Load("x.bmp"));
    Display unopened;
    EXPECT_EQ(unopened.ShowFrame(), E_POINTER);
    EXPECT_EQ(unopened.ClearBackBuffer(0), E_POINTER);
}

TEST_F(SurfaceTest, ButtonsHitStrictlyInsideOneFrame) {
    folder.Write("Skins/Original/b.bmp", Flat(40, 10, kRed));
    folder.Write("Skins/Original/b2.bmp", Flat(40, 10, kBlue));
    Button button("b.bmp", "b2.bmp", 100, 50);
    struct Case {
        int x, y;
        bool hit;
    };
    for (const Case& c : {Case{101, 51, true}, Case{119, 59, true}, Case{100, 55, false},
                          Case{120, 55, false}, Case{110, 50, false}, Case{110, 60, false}}) {
        EXPECT_EQ(button.HitTest(c.x, c.y, false), c.hit) << c.x << "," << c.y;
    }
    EXPECT_TRUE(button.HitTest(110, 55, true));
    EXPECT_TRUE(button.IsSelected());
    button.SetEnabled(false);
    EXPECT_FALSE(button.HitTest(110, 55, true));
    button.Draw();
    EXPECT_EQ(Shown(100, 50), kBlue);
    Button plain("b.bmp", 100, 50);
    plain.SetEnabled(false);
    Clear();
    plain.Draw();
    EXPECT_EQ(Shown(100, 50), 0u) << "no look for a disabled button";
}

TEST_F(SurfaceTest, TheWindowIsMovedIntoTheWorkAreaAtItsTopLeftOnly) {
    Headless().SetScreen({800, 600}, {50, 40, 700, 500});
    struct Case {
        POINT at, then;
    };
    for (const Case& c :
         {Case{{0, 0}, {50, 40}}, Case{{60, 0}, {60, 40}}, Case{{90, 90}, {90, 90}}}) {
        SetWindowPos(window, c.at, {}, SWP_NOSIZE);
        ASSERT_EQ(currentDisplay->OpenWindowed(window, 640, 480), S_OK);
        const RECT now = GetWindowRect(window);
        EXPECT_EQ((POINT{now.left, now.top}), c.then);
    }
}

}  // namespace
}  // namespace korvane
