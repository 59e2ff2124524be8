#include <cstdint>
#include <ostream>

#include "platform/headless/headless_host.h"
#include "tests/game/rules/rules_test.h"
#include "tests/support/auto_player.h"

namespace korvane {
namespace {

/// How a game stands at its end.
struct Standing {
    int score = 0;
    int lines = 0;
    int level = 0;
    std::uint32_t figures = 0;
    bool running = false;
    std::uint64_t boardHash = 0;

    bool operator==(const Standing&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Standing& s) {
        return out << '{' << s.score << ", " << s.lines << ", " << s.level << ", " << s.figures
                   << ", " << (s.running ? "true" : "false") << ", 0x" << std::hex << s.boardHash
                   << std::dec << '}';
    }
};

/// FNV-1a over the field.
std::uint64_t HashOf(const Board& board) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (int row = 0; row < kBoardRows; ++row) {
        for (int column = 0; column < kBoardColumns; ++column) {
            hash = (hash ^ board.At(row, column)) * 0x100000001B3;
        }
    }
    return hash;
}

Standing StandingOf(const Player& player) {
    return {player.Score(),       player.Lines(),     player.Level(),
            player.FigureCount(), player.IsRunning(), HashOf(player.GameBoard())};
}

struct Recording {
    const char* name;
    bool gliding = false;
    bool battle = false;
    bool timeBased = false;
    std::uint32_t dropDelayMs = 0;
    int difficultyRight = 0;
    int difficultyLeft = 0;
    std::uint32_t frameMs = 0;
    Standing right;
    Standing left;
};

class RecordedPlay : public RulesTest {
  protected:
    static constexpr std::uint32_t kMinutes = 4;

    static void Set(const Recording& recording) {
        theSettings.scrollingPieces = recording.gliding;
        theSettings.battle = recording.battle;
        theSettings.dropDelayMs = recording.dropDelayMs;
        theSettings.difficulty = {recording.difficultyRight, recording.difficultyLeft};
        theSettings.timeBased = {recording.timeBased, recording.timeBased};
        theSettings.clockwise = {false, true};
        // The first game's starting garbage must not follow from an earlier test.
        Headless().SetUnixSeconds(20'020'511);
        Player(Side::Right).StartGame(false);
    }

    void Play(const Recording& recording) {
        right_.ResetPlayer();
        left_.ResetPlayer();
        right_.StartGame(recording.timeBased);
        left_.StartGame(recording.timeBased);
        AutoPlayer rightHand(right_);
        AutoPlayer leftHand(left_);
        for (std::uint32_t now = 0; now < kMinutes * 60'000; now += recording.frameMs) {
            rightHand.PressKeys();
            leftHand.PressKeys();
            Headless().Advance(recording.frameMs);
            const double seconds = recording.frameMs / 1000.0;
            if (right_.IsRunning()) right_.UpdatePlayer(seconds);
            if (left_.IsRunning()) left_.UpdatePlayer(seconds);
            ExchangeRows(recording.battle);
            right_.UpdatePlayingTime();
            left_.UpdatePlayingTime();
        }
    }

    void ExchangeRows(bool battle) {
        if (battle) {
            right_.ReceiveRows(left_.RowsLastLock());
            left_.ReceiveRows(right_.RowsLastLock());
        }
        right_.SetRowsLastLock(0);
        left_.SetRowsLastLock(0);
    }

    Player right_{Side::Right};
    Player left_{Side::Left};
};

TEST_F(RecordedPlay, EndsAsItDidWhenItWasRecorded) {
    const Recording kRecordings[] = {
        {.name = "by rows",
         .difficultyLeft = 1,
         .frameMs = 16,
         .right = {7850, 98, 7, 276, false, 0x3DEA411C0BA954DC},
         .left = {306, 3, 2, 40, false, 0x82FC927A52006694}},
        {.name = "by rows, timed",
         .timeBased = true,
         .dropDelayMs = 20,
         .difficultyRight = 2,
         .frameMs = 10,
         .right = {1754, 12, 0, 52, false, 0x47AC8ECFF0FC156F},
         .left = {3986, 58, 2, 185, false, 0xBC8AAB596707794D}},
        {.name = "gliding",
         .gliding = true,
         .difficultyRight = 2,
         .difficultyLeft = 1,
         .frameMs = 16,
         .right = {1462, 21, 3, 79, false, 0xF888E865F319452C},
         .left = {2260, 22, 3, 91, false, 0xEF892F42F066528F}},
        {.name = "gliding battle, timed",
         .gliding = true,
         .battle = true,
         .timeBased = true,
         .dropDelayMs = 10,
         .frameMs = 11,
         .right = {1012, 16, 0, 54, false, 0xC19692ACB9DEAC20},
         .left = {1182, 19, 0, 59, false, 0x40238BFEE57E637A}},
        {.name = "battle by rows",
         .battle = true,
         .dropDelayMs = 10,
         .difficultyRight = 2,
         .difficultyLeft = 1,
         .frameMs = 25,
         .right = {2864, 38, 4, 117, false, 0x2191FD42F7353CC2},
         .left = {312, 4, 2, 29, false, 0x2340FAEA939271BB}},
    };
    for (const Recording& recording : kRecordings) {
        SCOPED_TRACE(recording.name);
        Set(recording);
        Play(recording);
        EXPECT_EQ(StandingOf(right_), recording.right);
        EXPECT_EQ(StandingOf(left_), recording.left);
    }
}

}  // namespace
}  // namespace korvane
