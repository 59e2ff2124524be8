#include "game/rules/quake.h"

#include <vector>

#include "platform/headless/headless_host.h"
#include "tests/game/rules/rules_test.h"

namespace korvane {
namespace {

class QuakeTest : public RulesTest {
  protected:
    /// One frame with nothing new, some time later.
    BoardTops After(std::uint32_t milliseconds, QuakeMode mode) {
        Headless().Advance(milliseconds);
        return quake_.Step(mode, 0, 0);
    }

    QuakeState quake_;
};

TEST_F(QuakeTest, OneRowShakesBothBoardsThroughOneSwing) {
    for (const bool onTheRight : {true, false}) {
        std::vector<int> tops = {quake_.Step(QuakeMode::Together, onTheRight, !onTheRight).right};
        tops.push_back(After(1, QuakeMode::Together).right);
        for (int step = 2; step < 8; ++step) {
            // From the first step on, the next needs more than 25 ms.
            EXPECT_EQ(After(25, QuakeMode::Together).right, tops.back());
            const BoardTops now = After(1, QuakeMode::Together);
            EXPECT_EQ(now.right, now.left);
            tops.push_back(now.right);
        }
        EXPECT_EQ(tops, (std::vector{50, 54, 54, 52, 50, 48, 49, 50}));
        // At rest, and the next shake begins its swing anew.
        EXPECT_EQ(After(1000, QuakeMode::Together), BoardTops());
    }
}

}  // namespace
}  // namespace korvane
