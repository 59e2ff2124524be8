#include "tests/app/random_input.h"

#include "app/state/process_state.h"
#include "screens/high_score_screen.h"

namespace korvane {
namespace {

using RandomInputTest = RandomInput;

TEST_F(RandomInputTest, NothingThatComesInMakesScreensAndSettingsDisagree) {
    Start();
    audioReady = true;
    int games = 0;
    int scores = 0;
    for (int i = 0; i < 12'000; ++i) {
        SendAnything();
        ASSERT_TRUE(IsRunning()) << i;
        SCOPED_TRACE(i);
        ASSERT_NO_FATAL_FAILURE(ExpectScreensAgree());
        if (i % 300 == 0) {
            ASSERT_NO_FATAL_FAILURE(ExpectAtMostOneSlotWaits());
        }
        games += !menuShowing && !highScoresShowing;
        scores += highScoresShowing;
    }
    EXPECT_GT(games, 300) << "every screen was seen, and the dialogs";
    EXPECT_GT(scores, 300);
    EXPECT_GT(wakings_, 3000);
    EXPECT_GT(theHighScoreScreen->Table().Row(0).score, 0);
    ASSERT_NO_FATAL_FAILURE(ExpectSettingsInRange());
}

}  // namespace
}  // namespace korvane
