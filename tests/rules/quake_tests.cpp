#include "game/quake.h"

#include <vector>

#include "platform/headless/headless_host.h"
#include "tests/rules/rules_test.h"

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

TEST_F(QuakeTest, RowsDuringAShakeAddUpWithoutANewSwing) {
    quake_.Step(QuakeMode::Together, 1, 0);
    After(26, QuakeMode::Together);
    Headless().Advance(26);
    // Amplitude 5 + 7 x (1 + 2) at a quarter of the swing.
    EXPECT_EQ(quake_.Step(QuakeMode::Together, 1, 2).right, 50 + 5 + 21 - 1);
}

TEST_F(QuakeTest, IndividualQuakesShakeTheBoardThatCompletedRows) {
    quake_.Step(QuakeMode::Individual, 0, 2);
    EXPECT_EQ(After(26, QuakeMode::Individual), (BoardTops{50, 59}));
    // Amplitudes 7 x (1 + 1) and 7 x 1 after this frame: the right board gets the left's rows too.
    QuakeState both;
    Headless().Advance(1000);
    both.Step(QuakeMode::Individual, 1, 1);
    std::vector<BoardTops> tops;
    for (int frame = 0; frame < 4; ++frame) {
        Headless().Advance(26);
        tops.push_back(both.Step(QuakeMode::Individual, 0, 0));
    }
    // One clock: as long as the right board takes every step that is due, the left one waits.
    EXPECT_EQ(tops, (std::vector<BoardTops>{{59, 50}, {61, 50}, {57, 50}, {50, 50}}));
    for (int frame = 4; frame < 14; ++frame) {
        Headless().Advance(26);
        both.Step(QuakeMode::Individual, 0, 0);
    }
    Headless().Advance(26);
    EXPECT_EQ(both.Step(QuakeMode::Individual, 0, 0), (BoardTops{50, 54}));
}

TEST_F(QuakeTest, SwitchedOffTheShakeWaits) {
    theSettings.individualQuakes = true;
    EXPECT_EQ(QuakeModeOf(theSettings), QuakeMode::Individual);
    theSettings.quakes = false;
    EXPECT_EQ(QuakeModeOf(theSettings), QuakeMode::Off);

    quake_.Step(QuakeMode::Together, 1, 0);
    Headless().Advance(26);
    EXPECT_EQ(quake_.Step(QuakeMode::Off, 4, 4), BoardTops());
    EXPECT_EQ(After(1000, QuakeMode::Off), BoardTops());
    EXPECT_EQ(quake_.Step(QuakeMode::Together, 0, 0).right, 54);
}

TEST_F(QuakeTest, BoardsStayOnTheScreenHoweverLongRowsArePouringIn) {
    for (const QuakeMode mode : {QuakeMode::Together, QuakeMode::Individual}) {
        int lowest = 0;
        int highest = 1000;
        for (int frame = 0; frame < 200'000; ++frame) {
            Headless().Advance(16);
            const BoardTops tops = quake_.Step(mode, frame % 3 * 1000, 1'000'000);
            ASSERT_TRUE(tops.right >= 0 && tops.right <= 106) << tops.right;
            ASSERT_TRUE(tops.left >= 0 && tops.left <= 106) << tops.left;
            lowest = std::max(lowest, tops.right);
            highest = std::min(highest, tops.right);
        }
        EXPECT_EQ(lowest, 106);
        EXPECT_EQ(highest, 0);
    }
}

}  // namespace
}  // namespace korvane
