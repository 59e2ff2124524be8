#include "app/settings.h"
#include "platform/headless/headless_host.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"
#include "tests/support/golden.h"
#include "tests/support/program_fixture.h"

namespace korvane {
namespace {

/// The views round the game as the window shows them, menu bar included, in flat pictures.
class GoldenMenus : public ProgramFixture {
  protected:
    void SetUp() override {
        ProgramFixture::SetUp();
        theSettings.difficulty = {1, 2};
        theSettings.clockwise = {true, false};
        theSettings.timeBased = {false, true};
    }

    void ClickAndWait(int x, int y) {
        Click(x, y);
        Run(kPressedLookPassed);
    }

    static constexpr POINT kTwoPlayers{200, 200};
    static constexpr POINT kConfigureKeys{200, 240};
    static constexpr POINT kAbout{200, 360};
    static constexpr POINT kRightDropSlot{360, 200};
};

TEST_F(GoldenMenus, OnePlayer) {
    Start();
    EXPECT_TRUE(MatchesGolden("menu-one-player"));
}

TEST_F(GoldenMenus, TwoPlayers) {
    Start();
    ClickAndWait(kTwoPlayers.x, kTwoPlayers.y);
    EXPECT_TRUE(MatchesGolden("menu-two-players"));
}

TEST_F(GoldenMenus, Credits) {
    Start();
    ClickAndWait(kAbout.x, kAbout.y);
    EXPECT_TRUE(MatchesGolden("credits"));
}

TEST_F(GoldenMenus, KeysWithAWaitingSlot) {
    Start();
    ClickAndWait(kConfigureKeys.x, kConfigureKeys.y);
    ClickAndWait(kRightDropSlot.x, kRightDropSlot.y);
    EXPECT_TRUE(MatchesGolden("keys"));
}

TEST_F(GoldenMenus, HighScoresWithANameBeingTyped) {
    Start();
    Press('H', kModControl | kModShift);
    ASSERT_EQ(theHighScoreScreen->Submit(Side::Right, 650, 21, 3), 4);
    for (const char key : {'A', 'B', '7', ' ', 'Z'})
        theHighScoreScreen->OnNameKey(static_cast<std::uint8_t>(key));
    Frame();
    EXPECT_TRUE(MatchesGolden("high-scores"));
}

TEST_F(GoldenMenus, AnOpenPopup) {
    Start();
    Headless().PushKey(VK_MENU, true, kModAlt);
    Headless().PushKey('M', true, kModAlt);
    Headless().PushKey('M', false, kModAlt);
    Headless().PushKey(VK_MENU, false);
    Frame();
    Press(VK_DOWN);
    Frame();
    EXPECT_TRUE(MatchesGolden("popup"));
}

}  // namespace
}  // namespace korvane
