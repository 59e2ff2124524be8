#include <tuple>
#include <vector>

#include "app/state/settings.h"
#include "platform/headless/headless_host.h"
#include "screens/high_score_screen.h"
#include "tests/support/golden.h"
#include "tests/support/program_fixture.h"

namespace korvane {
namespace {

/// Menu and high scores as the window shows them, menu bar included, in flat pictures.
class GoldenMenus : public ProgramFixture {
  protected:
    void SetUp() override {
        ProgramFixture::SetUp();
        theSettings.difficulty = {1, 2};
        theSettings.clockwise = {true, false};
        theSettings.timeBased = {false, true};
    }
};

TEST_F(GoldenMenus, TheViewsOfTheMenu) {
    // After the presses of the mouse those of keys.
    const std::tuple<const char*, std::vector<POINT>, std::vector<std::uint8_t>> kViews[] = {
        {"menu-one-player", {}, {VK_TAB, VK_TAB}},  // the focus on a button out of use
        {"menu-two-players", {{200, 200}}, {}},
        {"credits", {{200, 360}}, {VK_TAB}},
        {"keys", {{200, 240}}, {VK_TAB, VK_RIGHT, VK_DOWN, VK_RETURN}},  // Drop waits for its key
    };
    for (const auto& [picture, presses, keys] : kViews) {
        Start();
        for (const POINT& press : presses) {
            Click(press.x, press.y);
            Run(kPressedLookPassed);
        }
        for (const std::uint8_t key : keys)
            Press(key);
        Frame();
        EXPECT_TRUE(MatchesGolden(picture));
    }
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
