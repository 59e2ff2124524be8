#include <utility>
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
    const std::pair<const char*, std::vector<POINT>> kViews[] = {
        {"menu-one-player", {}},
        {"menu-two-players", {{200, 200}}},
        {"credits", {{200, 360}}},
        {"keys", {{200, 240}, {360, 200}}},  // the slot Drop waits for its key
    };
    for (const auto& [picture, presses] : kViews) {
        Start();
        for (const POINT& press : presses) {
            Click(press.x, press.y);
            Run(kPressedLookPassed);
        }
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
