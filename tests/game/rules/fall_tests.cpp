#include <utility>
#include <vector>

#include "app/state/process_state.h"
#include "platform/headless/headless_host.h"
#include "tests/game/rules/rules_test.h"

namespace korvane {
namespace {

// Longer than any glide from top to bottom takes.
constexpr double kLongWhile = 100.0;

class FallTest : public RulesTest {
  protected:
    static void UseGliding() { theSettings.scrollingPieces = true; }

    /// Lets a gliding figure come to rest at this very tick.
    static void GlideToRest(Player& player) { player.UpdatePlayer(kLongWhile); }

    Player player_{Side::Right};
};

TEST_F(FallTest, APlainFigureLocksOneIntervalAfterItWasFoundResting) {
    StartWith(player_, {kBar});
    player_.SetBoard(BoardEndingIn({"1111....11"}));
    // Twenty steps to row 21, one that finds it resting, and one that locks it.
    Frames(player_, 1 + 16 * 21 - 1);
    EXPECT_EQ(player_.FigureCount(), 1U);
    EXPECT_EQ(player_.GameBoard(), BoardEndingIn({"1111....11"}));
    Frame(player_);
    EXPECT_EQ(player_.FigureCount(), 2U);
    EXPECT_EQ(RowsFrom(player_.GameBoard(), 21), std::vector<std::string>{"8888888888"});
    // The row goes at the first fall step more than 200 ms later, the second of the next figure.
    Frames(player_, 16);
    EXPECT_EQ(player_.CurrentFigure()->Row(), 1);
    EXPECT_FALSE(player_.GameBoard().IsRowEmpty(21));
    Frame(player_);
    EXPECT_EQ(player_.CurrentFigure()->Row(), 2);
    EXPECT_TRUE(player_.GameBoard().IsRowEmpty(21));
}

TEST_F(FallTest, SoftDropStepsAtMostOncePerMoreThanItsDelay) {
    theSettings.dropDelayMs = 50;
    StartWith(player_, {kBar});
    player_.KeyDown(kDropKey);
    std::vector<int> rows;
    for (int frame = 1; frame <= 14; ++frame) {
        Frame(player_, 10);
        rows.push_back(player_.CurrentFigure()->Row());
    }
    // The first frame has the ordinary step too; the drops hold off all others.
    EXPECT_EQ(rows, (std::vector{2, 2, 2, 2, 2, 2, 3, 3, 3, 3, 3, 3, 4, 4}));
    player_.KeyUp(kDropKey);
    Frame(player_, 239);
    EXPECT_EQ(player_.CurrentFigure()->Row(), 4);
    Frame(player_, 1);
    EXPECT_EQ(player_.CurrentFigure()->Row(), 5);
}

TEST_F(FallTest, GlidingSoftDropMovesByTheChosenPixels) {
    struct Case {
        std::int32_t magnitude;
        int pixels;
    };
    constexpr Case kCases[] = {{2, 2}, {8, 8},           {16, 16}, {1000, 320},
                               {0, 0}, {INT32_MAX, 320}, {-1, 0},  {INT32_MIN, 0}};
    UseGliding();
    theSettings.dropDelayMs = 10;
    for (const Case& c : kCases) {
        theSettings.dropMagnitude = c.magnitude;
        StartWith(player_, {kBar});
        player_.KeyDown(kDropKey);
        Headless().Advance(11);
        player_.UpdatePlayer(0.0);
        const Figure& figure = *player_.CurrentFigure();
        EXPECT_EQ(figure.Row() * kCellPixels + figure.PixelOffset(), c.pixels) << c.magnitude;
        // Nor may a strange magnitude keep the figure from falling afterwards.
        player_.KeyUp(kDropKey);
        player_.UpdatePlayer(kLongWhile);
        EXPECT_EQ(figure.Row(), 20) << c.magnitude;
    }
}

TEST_F(FallTest, PlayingTimeSkipsPausesAndFreezesAtTheEnd) {
    Headless().SetMilliseconds(0xFFFFFFFF - 30'000);  // the tick counter wraps during the game
    ASSERT_TRUE(player_.StartGame(true));
    EXPECT_TRUE(player_.IsTimedGame());
    const auto timeIs = [&](int minutes, int seconds) {
        player_.UpdatePlayingTime();
        return std::pair(player_.Minutes(), player_.Seconds()) == std::pair(minutes, seconds);
    };
    Headless().Advance(59'999);
    EXPECT_TRUE(timeIs(0, 59));
    Headless().Advance(1);
    EXPECT_TRUE(timeIs(1, 0));
    Headless().Advance(65'500);
    player_.TogglePause();
    Headless().Advance(3'600'000);
    EXPECT_TRUE(timeIs(1, 0));  // not brought up to date while paused
    player_.TogglePause();
    Headless().Advance(499);
    EXPECT_TRUE(timeIs(2, 5));
    Headless().Advance(1);
    EXPECT_TRUE(timeIs(2, 6));
    player_.DeclareWinner();
    Headless().Advance(10'000);
    EXPECT_TRUE(timeIs(2, 6));
}

TEST_F(FallTest, TicksMayWrapAroundDuringEveryDelay) {
    UseGliding();
    // The lock delay, the side move delay and the soft drop delay all straddle the wrap.
    Headless().SetMilliseconds(0xFFFFFFFF - 40);
    theSettings.dropDelayMs = 60;
    StartWith(player_, {kBar});
    player_.KeyDown(kLeftKey);
    player_.KeyDown(kDropKey);
    player_.UpdatePlayer(0.0);
    EXPECT_EQ(player_.CurrentFigure()->Column(), 3);
    EXPECT_EQ(player_.CurrentFigure()->PixelOffset(), 8);
    Headless().Advance(60);
    player_.UpdatePlayer(0.0);
    EXPECT_EQ(player_.CurrentFigure()->PixelOffset(), 8);
    Headless().Advance(1);
    player_.UpdatePlayer(0.0);
    EXPECT_EQ(player_.CurrentFigure()->Row(), 1);
    EXPECT_EQ(player_.CurrentFigure()->Column(), 3);
    Headless().Advance(20);
    player_.UpdatePlayer(0.0);
    EXPECT_EQ(player_.CurrentFigure()->Column(), 2);

    Headless().SetMilliseconds(0xFFFFFFFF - 100);
    GlideToRest(player_);
    Headless().Advance(200);
    player_.UpdatePlayer(0.0);
    EXPECT_EQ(player_.FigureCount(), 1U);
    Headless().Advance(1);
    player_.UpdatePlayer(0.0);
    EXPECT_EQ(player_.FigureCount(), 2U);
}

}  // namespace
}  // namespace korvane
