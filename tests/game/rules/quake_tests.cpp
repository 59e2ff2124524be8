#include "game/rules/quake.h"

#include <algorithm>
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

TEST_F(QuakeTest, RowsShakeTheBoardsThatFeelThem) {
    struct Case {
        QuakeMode mode;
        int rightRows;
        int leftRows;
        int rightSwing;  ///< how many pixels below its place a board comes
        int leftSwing;
    };
    using enum QuakeMode;
    constexpr Case kCases[] = {{Off, 4, 4, 0, 0},         {Together, 1, 0, 4, 4},
                               {Together, 2, 1, 18, 18},  {Individual, 1, 0, 4, 0},
                               {Individual, 0, 1, 0, 4},  {Individual, 0, 4, 0, 25},
                               {Individual, 2, 1, 18, 4}, {Individual, 1, 1, 11, 4}};
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::Message() << int(c.mode) << c.rightRows << c.leftRows);
        quake_ = {};
        quake_.Step(c.mode, c.rightRows, c.leftRows);
        BoardTops lowest;
        // The left board moves only when the right one has come to rest.
        for (int step = 0; step < 60; ++step) {
            const BoardTops now = After(26, c.mode);
            lowest = {std::max(lowest.right, now.right), std::max(lowest.left, now.left)};
        }
        EXPECT_EQ(lowest, (BoardTops{50 + c.rightSwing, 50 + c.leftSwing}));
    }
}

}  // namespace
}  // namespace korvane
