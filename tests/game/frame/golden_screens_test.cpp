#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "app/state/process_state.h"
#include "game/frame/game_screen.h"
#include "game/rules/key_bindings.h"
#include "game/rules/player.h"
#include "game/rules/random.h"
#include "gfx/display.h"
#include "platform/headless/headless_host.h"
#include "tests/support/golden.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_skin.h"
#include "tools/korvane-skin/stage.h"

namespace korvane {
namespace {

/// Game screens of two players at a fixed second and tick, in the pictures of the test skin.
class GoldenScreens : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        Headless().UseFolder(folder.Path());
        theSettings.SetDefaults();
        WriteTestSkin(folder, "Original");
        stage = std::make_unique<Stage>();
        currentDisplay->ClearBackBuffer(0);
        Headless().SetMilliseconds(100'000);
        Headless().SetUnixSeconds(1'234'567'890);
        SeedRandom(1);  // starting garbage comes before a game seeds anew
    }

    static void Draw(Player& player, int top = 50) {
        // The shown score climbs with each drawing; golden pictures show it arrived.
        while (player.ShownScore() != player.Score())
            player.StepShownScore();
        DrawPlayer(player, top);
    }

    static testing::AssertionResult Matches(const std::string& name) {
        if (currentDisplay->ShowFrame() != S_OK) return testing::AssertionFailure();
        return MatchesGolden(name);
    }

    /// Figures fall for so many seconds, turned and pushed about.
    static void Play(Player& player, int seconds) {
        const Side side = player.PlayerSide();
        const std::array keys = {keyBindings.Key(Action::Left, side),
                                 keyBindings.Key(Action::Rotate, side),
                                 keyBindings.Key(Action::Right, side)};
        for (int frame = 0; frame < seconds * 50 && player.IsRunning(); ++frame) {
            Headless().Advance(20);
            const std::uint8_t key = keys[static_cast<std::size_t>(frame / 45 % 3)];
            if (frame % 45 == 0) player.KeyDown(key);
            if (frame % 45 == 30) player.KeyUp(key);
            player.UpdatePlayer(0.02);
        }
    }

    TemporaryFolder folder;
    std::unique_ptr<Stage> stage;
    Player right{Side::Right};
    Player left{Side::Left};
};

TEST_F(GoldenScreens, OnePlayer) {
    right.StartGame(false);
    Play(right, 40);
    Draw(right);
    Draw(left);
    EXPECT_TRUE(Matches("one-player"));
}

TEST_F(GoldenScreens, TwoPlayersWithGarbageAndTime) {
    theSettings.difficulty = {1, 2};
    right.StartGame(true);
    left.StartGame(true);
    Play(right, 30);
    Play(left, 20);
    Draw(right);
    Draw(left);
    EXPECT_TRUE(Matches("two-players"));
}

TEST_F(GoldenScreens, PausedAndOver) {
    right.StartGame(true);
    left.StartGame(false);
    Play(right, 10);
    right.TogglePause();
    Headless().Advance(65'000);
    Board full;
    for (int row = 1; row < kBoardRows; ++row)
        full.Set(row, 5, static_cast<std::uint8_t>(row % 9));
    left.SetBoard(full);
    Play(left, 20);
    ASSERT_FALSE(left.IsRunning());
    Draw(right);
    Draw(left);
    EXPECT_TRUE(Matches("paused-and-over"));
}

TEST_F(GoldenScreens, BattleWonByBoth) {
    theSettings.battle = true;
    for (Player* player : {&right, &left}) {
        player->StartGame(false);
        player->DeclareWinner();
    }
    DrawTie(right, left);
    EXPECT_TRUE(Matches("tie"));
}

TEST_F(GoldenScreens, BattleWonAndLost) {
    theSettings.battle = true;
    right.StartGame(false);
    left.StartGame(false);
    right.SetJoined(false);
    right.SetJoined(true);
    left.DeclareWinner();
    Board full;
    for (int row = 0; row < kBoardRows; ++row)
        full.FillRow(row, static_cast<std::uint8_t>(row % 8 + 1));
    right.SetBoard(full);
    Play(right, 5);
    ASSERT_FALSE(right.IsRunning());
    Draw(right);
    Draw(left);
    EXPECT_TRUE(Matches("battle"));
}

TEST_F(GoldenScreens, SwungApartAndWithoutPanels) {
    theSettings.preview = {false, true};
    theSettings.statistics = {true, false};
    right.StartGame(false);
    left.StartGame(false);
    Play(right, 5);
    Play(left, 5);
    Draw(right, 0);
    Draw(left, 106);
    EXPECT_TRUE(Matches("swung-apart"));
}

/// Each covers the board's cells and the figure, which are drawn first.
TEST_F(GoldenScreens, OverlaysLieOnTopOfTheBoard) {
    struct Case {
        const char* what;
        void (*make)(Player& player);
        POINT at;  ///< of the overlay, from the board's corner
        std::uint32_t right, left;
    };
    const auto join = [](Player& player) { player.SetJoined(false); };
    const auto end = [](Player& player) { Play(player, 1); };
    for (const Case& c :
         {Case{
              "pause", [](Player& player) { player.TogglePause(); }, {45, 150}, 0x202070, 0x202070},
          Case{"not joined", join, {70, 140}, 0x408040, 0x404080},
          Case{"game over", end, {20, 150}, 0x702020, 0x702020},
          Case{"loser", end, {45, 150}, 0x702060, 0x702060},
          Case{"winner",
               [](Player& player) { player.DeclareWinner(); },
               {45, 150},
               0x207020,
               0x207020},
          Case{"a pause of the one who won",
               [](Player& player) {
                   player.DeclareWinner();
                   player.TogglePause();
               },
               {45, 150},
               0xC8386A,
               0xC8386A}}) {
        theSettings.battle = std::string_view("loser winner").find(c.what) != std::string::npos;
        for (Player* player : {&right, &left}) {
            player->StartGame(false);
            Board full;
            for (int row = 0; row < kBoardRows; ++row)
                full.FillRow(row, 3);
            player->SetBoard(full);
            c.make(*player);
            Draw(*player);
        }
        ASSERT_EQ(currentDisplay->ShowFrame(), S_OK);
        EXPECT_EQ(Headless().PixelAt(365 + c.at.x, 50 + c.at.y), c.right) << c.what;
        EXPECT_EQ(Headless().PixelAt(45 + c.at.x, 50 + c.at.y), c.left) << c.what;
    }
}

}  // namespace
}  // namespace korvane
