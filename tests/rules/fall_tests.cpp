#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "app/process_state.h"
#include "game/key_bindings.h"
#include "game/level_table.h"
#include "platform/headless/headless_host.h"
#include "platform/virtual_keys.h"
#include "tests/rules/rules_test.h"

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

TEST_F(FallTest, PlainStepsComeOnTheFirstFrameAndThenOncePerInterval) {
    StartWith(player_, {kBar});
    std::vector<int> frames;
    int row = 0;
    for (int frame = 1; frame <= 70; ++frame) {
        Frame(player_);
        if (player_.CurrentFigure()->Row() == row) continue;
        EXPECT_EQ(player_.CurrentFigure()->Row(), ++row);
        frames.push_back(frame);
    }
    // 250 ms are over after 16 frames of 16 ms.
    EXPECT_EQ(frames, (std::vector{1, 17, 33, 49, 65}));
}

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

TEST_F(FallTest, AGlidingFigureLocksMoreThan200MsAfterItWasFoundResting) {
    UseGliding();
    StartWith(player_, {kBar});
    player_.SetBoard(BoardEndingIn({"1111....11"}));
    GlideToRest(player_);
    EXPECT_EQ(player_.CurrentFigure()->Row(), 20);
    Frame(player_, 200);
    EXPECT_EQ(player_.FigureCount(), 1U);
    Frame(player_, 1);
    EXPECT_EQ(player_.FigureCount(), 2U);
    // And a completed row goes more than 200 ms after that.
    Frame(player_, 200);
    EXPECT_FALSE(player_.GameBoard().IsRowEmpty(21));
    Frame(player_, 1);
    EXPECT_TRUE(player_.GameBoard().IsRowEmpty(21));
}

TEST_F(FallTest, GlidingFollowsTheSecondsWhateverTheFrames) {
    UseGliding();
    for (const std::uint32_t frameMs : {5U, 10U, 25U, 100U}) {
        StartWith(player_, {kBar});
        Frames(player_, static_cast<int>(2000 / frameMs), frameMs);
        const Figure& figure = *player_.CurrentFigure();
        EXPECT_NEAR(figure.Row() * kCellPixels + figure.PixelOffset(), 80, 1) << frameMs;
    }
}

TEST_F(FallTest, AFigureSlidOffItsSupportFallsOn) {
    for (const bool gliding : {false, true}) {
        SCOPED_TRACE(gliding);
        theSettings.scrollingPieces = gliding;
        StartWith(player_, {kSquare});
        player_.SetBoard(BoardEndingIn({"....11....", "....11....", "....11...."}));
        player_.KeyDown(kDropKey);
        Frame(player_);
        ASSERT_EQ(player_.CurrentFigure()->Row(), 16);
        Frame(player_, 250);  // found resting
        player_.KeyDown(kRightKey);
        Frame(player_, 90);
        Frame(player_, 90);
        ASSERT_EQ(player_.CurrentFigure()->Column(), 6);
        ASSERT_EQ(player_.CurrentFigure()->Row(), 16);
        player_.KeyUp(kRightKey);
        Frames(player_, 3, 100);
        EXPECT_EQ(player_.FigureCount(), 1U);
        EXPECT_GT(player_.CurrentFigure()->Row(), 16);
    }
}

TEST_F(FallTest, OnePressDropsOneFigureToTheGroundAndItLocksAsAlways) {
    for (const bool gliding : {false, true}) {
        SCOPED_TRACE(gliding);
        theSettings.scrollingPieces = gliding;
        StartWith(player_, {kBar});
        player_.KeyDown(kDropKey);
        Frame(player_);
        EXPECT_EQ(player_.CurrentFigure()->Row(), 20);
        int frames = 0;
        while (player_.FigureCount() == 1 && frames < 100) {
            Frame(player_);
            ++frames;
        }
        // By rows: found resting and locked an interval each after the first step. Gliding: found
        // resting in the next frame, locked 200 ms later.
        EXPECT_EQ(frames, gliding ? 1 + 13 : 32);
        Frames(player_, 10);
        EXPECT_LE(player_.CurrentFigure()->Row(), 1);
    }
}

TEST_F(FallTest, HardDropsEndWhenNothingMoves) {
    theLevelTable.scrollingPxPerSecond = {};
    UseGliding();
    StartWith(player_, {kBar});
    player_.KeyDown(kDropKey);
    Frame(player_);
    EXPECT_EQ(player_.CurrentFigure()->Row(), 0);

    player_.KeyDown(kDropKey);
    player_.DeclareWinner();
    Frame(player_);
    EXPECT_EQ(player_.CurrentFigure()->Row(), 0);

    Player nobody(Side::Left);
    nobody.SetJoined(true);
    nobody.KeyDown('S');
    Frame(nobody);
    EXPECT_EQ(nobody.CurrentFigure(), nullptr);
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

TEST_F(FallTest, AFigureFoundRestingIsNotSoftDropped) {
    UseGliding();
    theSettings.dropDelayMs = 10;
    StartWith(player_, {kSquare});
    player_.SetBoard(BoardEndingIn({"....11....", "....11...."}));
    GlideToRest(player_);
    player_.KeyDown(kRightKey);
    Frame(player_, 90);
    player_.KeyDown(kDropKey);
    Frame(player_, 90);
    // Slid off its support, it still hangs there until its delay is over.
    EXPECT_EQ(player_.CurrentFigure()->Column(), 6);
    EXPECT_EQ(player_.CurrentFigure()->Row(), 17);
    EXPECT_EQ(player_.CurrentFigure()->PixelOffset(), 0);
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

TEST_F(FallTest, SidewaysMovesWaitMoreThan80MsAfterASuccessfulOne) {
    StartWith(player_, {kSquare});
    player_.KeyDown(kLeftKey);
    Frame(player_, 1);
    EXPECT_EQ(player_.CurrentFigure()->Column(), 3);
    Frame(player_, 80);
    EXPECT_EQ(player_.CurrentFigure()->Column(), 3);
    Frame(player_, 1);
    EXPECT_EQ(player_.CurrentFigure()->Column(), 2);
    // Against a cell the wait does not begin anew: once free, the next frame moves.
    Board walled;
    for (int row = 0; row < kBoardRows; ++row)
        walled.Set(row, 1, kMarkerCell);
    player_.SetBoard(walled);
    Frames(player_, 9, 10);
    EXPECT_EQ(player_.CurrentFigure()->Column(), 2);
    player_.SetBoard(Board());
    Frame(player_, 1);
    EXPECT_EQ(player_.CurrentFigure()->Column(), 1);
}

TEST_F(FallTest, BothKeysHeldMoveLeftAndThenRightInOneFrame) {
    struct Case {
        int blockedColumn;  // beside a square in columns 4 and 5
        int column;
    };
    for (const auto& [blockedColumn, column] : {Case{9, 4}, Case{3, 5}, Case{6, 4}}) {
        StartWith(player_, {kSquare});
        Board board;
        for (int row = 0; row < kBoardRows; ++row)
            board.Set(row, blockedColumn, kMarkerCell);
        player_.SetBoard(board);
        player_.KeyDown(kRightKey);
        player_.KeyDown(kLeftKey);
        Frame(player_);
        EXPECT_EQ(player_.CurrentFigure()->Column(), column) << blockedColumn;
    }
}

TEST_F(FallTest, PauseStopsEverythingAndHeldKeysMustBePressedAgain) {
    for (const bool gliding : {false, true}) {
        theSettings.scrollingPieces = gliding;
        StartWith(player_, {kSquare});
        Frame(player_);
        player_.KeyDown(kLeftKey);
        player_.KeyDown(kDropKey);
        EXPECT_TRUE(player_.TogglePause());
        const int row = player_.CurrentFigure()->Row();
        for (const std::uint8_t key : {kLeftKey, kRightKey, kDropKey, kTurnKey}) {
            EXPECT_EQ(player_.KeyDown(key), kKeyRefused);
        }
        Frames(player_, 100);
        EXPECT_FALSE(player_.TogglePause());
        player_.UpdatePlayer(0.0);
        Frame(player_, 1);
        EXPECT_LE(player_.CurrentFigure()->Row(), row + 1);
        EXPECT_EQ(player_.CurrentFigure()->Column(), 4);
        EXPECT_EQ(player_.FigureCount(), 1U);
    }
}

TEST_F(FallTest, CompletedRowsWaitForTheEndOfAPause) {
    UseGliding();
    StartWith(player_, {kBar});
    player_.SetBoard(BoardEndingIn({"1111....11"}));
    DropAndLock(player_);
    player_.TogglePause();
    Frames(player_, 100);
    EXPECT_FALSE(player_.GameBoard().IsRowEmpty(21));
    player_.TogglePause();
    Frame(player_);
    EXPECT_TRUE(player_.GameBoard().IsRowEmpty(21));
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

TEST_F(FallTest, ABlockedSpawnEndsTheGameAndLeavesTheFigureToBeSeen) {
    StartWith(player_, {kBar, kSquare});
    player_.KeyDown(kDropKey);
    Frame(player_);
    Board board = BoardEndingIn({"1111....11"});
    board.Set(2, 5, kMarkerCell);
    player_.SetBoard(board);
    for (int i = 0; i < 40 && player_.IsRunning(); ++i)
        Frame(player_);
    EXPECT_FALSE(player_.IsRunning());
    EXPECT_TRUE(player_.IsJoined());
    EXPECT_EQ(player_.CurrentFigure()->Type(), kSquare);
    EXPECT_EQ(player_.FigureCount(), 1U);
    EXPECT_EQ(player_.Score(), 50);
    EXPECT_EQ(player_.KeyDown(kTurnKey), kKeyTaken);
    EXPECT_EQ(player_.CurrentFigure()->Rotation(), 0);

    player_.StepShownScore();
    player_.TogglePause();
    EXPECT_TRUE(player_.StartGame(false));
    EXPECT_TRUE(player_.IsRunning());
    EXPECT_FALSE(player_.IsPaused());
    EXPECT_EQ(player_.Score(), 0);
    EXPECT_EQ(player_.ShownScore(), 0);
    EXPECT_EQ(player_.FigureCount(), 1U);
    EXPECT_EQ(player_.GameBoard(), Board());
}

TEST_F(FallTest, OnlyTheWinnerOfABattleFreezes) {
    StartWith(player_, {kBar});
    player_.DeclareWinner();
    player_.DeclareWinner();
    EXPECT_EQ(player_.Wins(), 1);
    player_.KeyDown(kLeftKey);
    player_.KeyDown(kTurnKey);
    Frames(player_, 100);
    EXPECT_EQ(player_.CurrentFigure()->Row(), 0);
    EXPECT_EQ(player_.CurrentFigure()->Column(), 4);
    EXPECT_EQ(player_.CurrentFigure()->Rotation(), 0);
    EXPECT_TRUE(player_.IsRunning());
    player_.StartGame(false);
    EXPECT_FALSE(player_.HasWon());
    EXPECT_EQ(player_.Wins(), 1);
    player_.ResetPlayer();
    EXPECT_EQ(player_.Wins(), 0);
    EXPECT_FALSE(player_.IsJoined());
    EXPECT_FALSE(player_.IsRunning());
}

TEST_F(FallTest, EachPlayerTakesItsOwnKeysOnly) {
    Player left(Side::Left);
    StartWith(player_, {kT});
    StartWith(left, {kT});
    theSettings.clockwise = {true, false};
    for (const std::uint8_t key : {kTurnKey, kDropKey, kLeftKey, kRightKey}) {
        EXPECT_EQ(player_.KeyDown(key), kKeyTaken);
        EXPECT_EQ(left.KeyDown(key), kKeyRefused);
        EXPECT_EQ(left.KeyUp(key), kKeyRefused);
    }
    for (const char key : {'W', 'S', 'A', 'D'}) {
        EXPECT_EQ(left.KeyDown(static_cast<std::uint8_t>(key)), kKeyTaken);
        EXPECT_EQ(player_.KeyDown(static_cast<std::uint8_t>(key)), kKeyRefused);
    }
    EXPECT_EQ(player_.CurrentFigure()->Rotation(), 3);
    EXPECT_EQ(left.CurrentFigure()->Rotation(), 1);
    EXPECT_EQ(player_.KeyUp(kTurnKey), kKeyRefused);

    // An action without a key takes none, not even key 0.
    keyBindings.Key(Action::Left, Side::Right) = 0;
    EXPECT_EQ(player_.KeyDown(0), kKeyRefused);
    EXPECT_EQ(player_.KeyDown(kLeftKey), kKeyRefused);
}

TEST_F(FallTest, ReleasesOfAPlayerWhoLeftAreTakenButKeepTheKeyHeld) {
    StartWith(player_, {kSquare});
    player_.KeyDown(kLeftKey);
    player_.SetJoined(false);
    EXPECT_EQ(player_.KeyUp(kLeftKey), kKeyTaken);
    player_.SetJoined(true);
    Frame(player_);
    EXPECT_EQ(player_.CurrentFigure()->Column(), 3);
    player_.ReleaseHeldKeys();
    Frame(player_, 200);
    EXPECT_EQ(player_.CurrentFigure()->Column(), 3);
}

TEST_F(FallTest, TheBarKeyChangesTheNextFigureOnly) {
    Player left(Side::Left);
    struct Case {
        Player& player;
        std::uint8_t key;
        std::uint8_t otherKey;
    };
    for (const Case& c : {Case{player_, VK_F9, VK_F5}, Case{left, VK_F5, VK_F9}}) {
        nextFigureCheat = false;
        StartWith(c.player, {kSquare, kT});
        EXPECT_EQ(c.player.KeyDown(c.key), kKeyTaken);
        EXPECT_EQ(c.player.NextFigure()->Type(), kT);
        nextFigureCheat = true;
        EXPECT_EQ(c.player.KeyDown(c.otherKey), kKeyRefused);
        EXPECT_EQ(c.player.NextFigure()->Type(), kT);
        EXPECT_EQ(c.player.KeyDown(c.key), kKeyTaken);
        EXPECT_EQ(c.player.NextFigure()->Type(), kBar);
        EXPECT_EQ(c.player.CurrentFigure()->Type(), kSquare);
    }
}

TEST_F(FallTest, TheWayOfFallingCanChangeUnderAFigure) {
    UseGliding();
    StartWith(player_, {kSquare});
    Frame(player_, 200);
    ASSERT_EQ(player_.CurrentFigure()->PixelOffset(), 8);
    theSettings.scrollingPieces = false;
    player_.KeyDown(kDropKey);
    Frame(player_, 1000);
    ASSERT_EQ(player_.CurrentFigure()->Row(), 19);
    UseGliding();
    player_.UpdatePlayer(kLongWhile);
    EXPECT_EQ(player_.CurrentFigure()->Row(), 19);
    Frame(player_, 201);
    EXPECT_EQ(RowsFrom(player_.GameBoard(), 20),
              (std::vector<std::string>{"....33....", "....33...."}));
}

TEST_F(FallTest, TheChartCountsEveryFigureAndScalesToTheMostFrequent) {
    StartWith(player_, {kZ, kZ, kT, kZ});
    const auto barOf = [&](int type) {
        return player_.Statistics().Bars()[static_cast<std::size_t>(type - 1)];
    };
    EXPECT_EQ(barOf(kZ), 20.0);
    for (int i = 0; i < 3; ++i) {
        DropAndLock(player_);
        player_.SetBoard(Board());
    }
    EXPECT_EQ(player_.Statistics().Total(), 4);
    EXPECT_EQ(barOf(kZ), 20.0);
    EXPECT_NEAR(barOf(kT), 20.0 / 3, 1e-12);
    EXPECT_EQ(barOf(kBar), 0.0);
    player_.StartGame(false);
    EXPECT_EQ(player_.Statistics().Total(), 1);

    FigureStatistics statistics;
    for (int i = 0; i < 500; ++i) {
        statistics.AddFigure(i % 8);  // type 0 counts nothing
        EXPECT_EQ(std::ranges::max(statistics.Bars()), i == 0 ? 0.0 : 20.0) << i;
    }
    statistics.AddFigure(8);
    statistics.AddFigure(-1);
    EXPECT_EQ(statistics.Total(), 500 - 63);
}

}  // namespace
}  // namespace korvane
