#include "gfx/surface.h"

#include <utility>
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
        EXPECT_EQ(surface.Width(), c.shown ? 4 : 0);
    }
}

TEST_F(SurfaceTest, BeyondTheBudgetOfASkinTheFallbackIsTaken) {
    theSettings.skinName = "Mine";
    folder.Write("Skins/Mine/x.bmp",
                 MakeBmp({.width = 4096, .height = 2048, .bits = 1, .palette = {0, 0}}));
    folder.Write("Graphics/Original/x.bmp", Flat(4, 4, kBlue));
    for (int loads = 0; loads < 2; ++loads) {
        pictureBudget.Begin();
        for (const int width : {4096, 4096, 4, 4})
            EXPECT_EQ(Surface("x.bmp").Width(), width) << "32 MiB each";
    }
}

TEST_F(SurfaceTest, ASmallTileFillsAnAreaAsItsPictureWould) {
    folder.Write("Skins/Original/x.bmp",
                 MakeBmp({.width = 3, .height = 70, .pixel = [](int x, int y) {
                              return 0x010000u * static_cast<std::uint32_t>(x + 1) +
                                     static_cast<std::uint32_t>(y);
                          }}));
    const Surface tile("x.bmp", Surface::Use::Tile);
    EXPECT_EQ((SIZE{tile.Width(), tile.Height()}), (SIZE{66, 70}));
    Clear();
    tile.DrawTiled(5, 7, 200, 150);
    for (const POINT at : {POINT{0, 0}, {2, 69}, {3, 70}, {65, 1}, {66, 139}, {199, 149}})
        EXPECT_EQ(Shown(5 + at.x, 7 + at.y), 0x010000u * static_cast<std::uint32_t>(at.x % 3 + 1) +
                                                 static_cast<std::uint32_t>(at.y % 70))
            << at.x << ", " << at.y;
    EXPECT_EQ(Shown(205, 7) | Shown(5, 157) | Shown(4, 7), 0u);
}

TEST_F(SurfaceTest, ASkinsNameCannotLeadOutOfTheSkinsFolder) {
    TemporaryFolder elsewhere;
    elsewhere.Write("x.bmp", Flat(4, 4, kRed));
    folder.Write("Skins/Mine/x.bmp", Flat(4, 4, kRed));
    for (const std::string& name :
         {"../../" + elsewhere.Path().substr(1), std::string("..\\Skins\\Mine"), elsewhere.Path(),
          std::string(300, 'a'), std::string()}) {
        theSettings.skinName = name;
        EXPECT_EQ(Surface("x.bmp").Width(), 0) << name;
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
    skinColorKeys.Load();  // the Original's: Mine has none
    EXPECT_EQ(ColorKey(0), RGB(0x11, 0x22, 0x33));
    EXPECT_EQ(ColorKey(2), RGB(0x33, 0x66, 0x99));
    EXPECT_EQ(ColorKey(3), 0u);
    EXPECT_EQ(ColorKey(-1), 0u);
    for (std::size_t length = 0; length < keys.size(); ++length) {
        folder.Write("Skins/Mine/colorkey.bmp", std::span(keys).first(length));
        skinColorKeys.Load();  // must not read past the end
    }
    std::vector<std::byte> wild = keys;
    for (std::size_t i = 10; i < 14; ++i)
        wild[i] = std::byte{0xFF};
    folder.Write("Skins/Mine/colorkey.bmp", wild);
    skinColorKeys.Load();
    EXPECT_EQ(ColorKey(1), RGB(0x22, 0x44, 0x66))
        << "a key that the file does not hold keeps its value";
}

/// The same pixels are transparent at every depth, although the key colour becomes another number.
TEST_F(SurfaceTest, KeyColoursAreTransparentAtEveryDepth) {
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
        EXPECT_EQ(surface.DrawKeyed({0, 0}), S_OK);
        EXPECT_EQ(Shown(0, 0), 0u) << depth;
        EXPECT_EQ(Shown(1, 0), 0xFFFFFFu) << depth;
    }
}

TEST_F(SurfaceTest, AButtonIsHitInsideItsFrameWhileItIsEnabled) {
    folder.Write("Skins/Original/x.bmp", Flat(20, 12, kRed));
    Button button("x.bmp", 100, 50);
    struct Case {
        int x, y;
        bool hit;
    };
    for (const bool enabled : {true, false}) {
        button.SetEnabled(enabled);
        for (const Case& c : {Case{101, 51, true}, Case{109, 61, true}, Case{100, 51, false},
                              Case{110, 51, false}, Case{101, 50, false}, Case{101, 62, false}}) {
            button.SetSelected(false);
            EXPECT_EQ(button.HitTest(c.x, c.y, /*toggle=*/false), enabled && c.hit);
            EXPECT_FALSE(button.IsSelected());
            EXPECT_EQ(button.HitTest(c.x, c.y, /*toggle=*/true), enabled && c.hit);
            EXPECT_EQ(button.IsSelected(), enabled && c.hit) << c.x << ", " << c.y;
        }
    }
    Clear();
    button.Draw();
    EXPECT_EQ(Shown(101, 51), 0u) << "disabled, and no picture for that";
}

TEST_F(SurfaceTest, AWindowIsMovedIntoTheWorkAreaAtItsLeftAndTop) {
    const std::pair<POINT, POINT> kCorners[] = {
        {{-30, -40}, {0, 0}},
        {{-30, 200}, {0, 200}},
        {{200, -40}, {200, 0}},
        {{1000, 900}, {1000, 900}},  // beyond the right and lower edge it stays
    };
    for (const auto& [from, want] : kCorners) {
        SetWindowPos(window, from, {}, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        ASSERT_EQ(currentDisplay->OpenWindowed(window, 640, 480), S_OK);
        const RECT outer = GetWindowRect(window);
        EXPECT_EQ((POINT{outer.left, outer.top}), want) << from.x << ", " << from.y;
    }
}

}  // namespace
}  // namespace korvane
