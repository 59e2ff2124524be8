#include <cstdint>
#include <random>

#include "app/state/process_state.h"
#include "game/rules/level_table.h"
#include "game/rules/quake.h"
#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "tests/game/rules/rules_test.h"
#include "tests/support/sound_player.h"

namespace korvane {
namespace {

constexpr std::uint8_t kKeys[] = {kTurnKey, kDropKey, kLeftKey, kRightKey, 'W', 'S',
                                  'A',      'D',      VK_F5,    VK_F9,     'Q', 0};

/// Two players whose keys, frames and settings follow a seed.
class RandomPlay : public RulesTest {
  protected:
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    bool OneIn(int count) { return Below(count) == 0; }
    Player& Either() { return OneIn(2) ? right_ : left_; }

    void PressSomething() {
        const std::uint8_t key = kKeys[Below(std::size(kKeys))];
        if (OneIn(2)) {
            right_.KeyDown(key);
            left_.KeyDown(key);
        } else {
            right_.KeyUp(key);
            left_.KeyUp(key);
        }
    }

    void ChangeSomething() {
        constexpr std::int32_t kStrange[] = {0, 1, 2, 3, -1, INT32_MIN, INT32_MAX};
        switch (Below(8)) {
            case 0:
                theSettings.scrollingPieces = OneIn(2);
                break;
            case 1:
                theSettings.dropDelayMs = static_cast<std::uint32_t>(Below(3) * 20);
                break;
            case 2:
                theSettings.dropMagnitude = OneIn(4) ? kStrange[Below(7)] : 8;
                break;
            case 3:
                theSettings.difficulty = {kStrange[Below(7)], kStrange[Below(7)]};
                break;
            case 4:
                theSettings.clockwise = {OneIn(2), OneIn(2)};
                break;
            case 5:
                theSettings.timeBased = {OneIn(2), OneIn(2)};
                break;
            case 6:
                Either().TogglePause();
                break;
            case 7:
                Either().ReceiveRows(Below(5));
                break;
        }
    }

    void RunFrame() {
        const auto milliseconds = static_cast<std::uint32_t>(OneIn(50) ? Below(400) : Below(30));
        Headless().Advance(milliseconds);
        for (Player* player : {&right_, &left_}) {
            if (OneIn(3000)) player->DeclareWinner();
            if (!player->IsRunning() || player->HasWon()) {
                Headless().SetUnixSeconds(Below(1'000'000));
                player->StartGame(OneIn(2));
                ++games_;
            }
            if (player->IsRunning()) player->UpdatePlayer(milliseconds / 1000.0);
            player->UpdatePlayingTime();
            player->StepShownScore();
        }
        quake_.Step(QuakeMode::Individual, right_.RowsLastLock(), left_.RowsLastLock());
    }

    std::mt19937 random_;
    Player right_{Side::Right};
    Player left_{Side::Left};
    QuakeState quake_;
    int games_ = 0;
};

TEST_F(RandomPlay, NeverLeavesTheFieldOrItsRanges) {
    for (unsigned seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE(seed);
        random_.seed(seed);
        nextFigureCheat = seed % 2 == 0;
        theLevelTable.scrollingPxPerSecond[0][2] = seed == 3 ? 0xFFFFFFFF : 60;
        Headless().SetMilliseconds(0xFFFFFFFF - 60'000);  // wraps around within the run
        games_ = 0;
        for (int frame = 0; frame < 15'000; ++frame) {
            if (OneIn(4)) PressSomething();
            if (OneIn(200)) ChangeSomething();
            RunFrame();
            ASSERT_NO_FATAL_FAILURE(ExpectSoundPlayer(right_));
            ASSERT_NO_FATAL_FAILURE(ExpectSoundPlayer(left_));
        }
        EXPECT_GT(games_, 10);
    }
}

}  // namespace
}  // namespace korvane
