#include <array>
#include <cstdint>
#include <random>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
#include "platform/headless/headless_host.h"
#include "platform/window/desktop.h"
#include "platform/window/user.h"
#include "res/commands.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"
#include "tests/support/dialog_script.h"
#include "tests/support/program_fixture.h"
#include "tests/support/test_skin.h"

namespace korvane {
namespace {

/// Sends the window procedure anything that can come from outside, in any order.
class RandomInputTest : public ProgramFixture {
  protected:
    int Below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }

    void SendAnything() {
        const int what = Below(8);
        if (what == 0) SendClick();
        if (what == 1 || what == 2)
            SendMessage(mainWindow, what == 1 ? WM_KEYDOWN : WM_KEYUP,
                        static_cast<WPARAM>(Below(256)), 0);
        if (what == 3) SendCommand();
        // While Quit waits, the timer would end the program.
        if (what == 4 && pendingClick != kMenuQuit) SendMessage(mainWindow, WM_TIMER, 3, 0);
        if (what == 5 && Below(20) == 0)
            SendMessage(mainWindow, WM_ACTIVATE, MakeParam(Below(3), 0), 0);
        if (what == 6 && Below(100) == 0) PlayAGame();
        if (what == 7 && Below(20) == 0) LetTimePass(20);
    }

    void SendClick() {
        const bool far = Below(50) == 0;
        const int x = far ? Below(65536) : Below(640);
        const int y = far ? Below(65536) : Below(480);
        SendMessage(mainWindow, WM_LBUTTONDOWN, 0, static_cast<LPARAM>(MakeParam(x, y)));
    }

    void SendCommand() {
        const int id = Below(40) == 0 ? 1000 + Below(3) : 40001 + Below(27);
        if (id == kCmdExit || (id == kCmdToggleFullScreen && Below(10) != 0)) return;
        CallOffQuit();
        Command(static_cast<std::uint16_t>(id));
    }

    /// A game or two; a figure may lock before the boards are full and the games end.
    void PlayAGame() {
        constexpr std::array kStarts = {kCmdRightRestart, kCmdLeftRestart, kCmdNewGame};
        SendMessage(mainWindow, WM_ACTIVATE, WA_ACTIVE, 0);
        Command(kStarts[static_cast<std::size_t>(Below(3))]);
        const auto players = BothPlayers();
        Player& player = *players[static_cast<std::size_t>(Below(2))];
        player.KeyDown(keyBindings.Key(Action::Drop, player.PlayerSide()));
        LetTimePass(static_cast<std::uint32_t>(Below(1000)));
        for (Player* packed : players)
            PackBoard(*packed);
        LetTimePass(1500);
    }

    /// Called while the program waits: sends a dialog or message box anything, which ends it now
    /// and then, and activates the window when there is none.
    void WakeWithAnything() {
        if (!TheDesktop().modal) {
            Headless().Push({.type = HostEventType::Activated});
            return;
        }
        ++wakings_;
        const HostEvent event = RandomDialogEvent(random_);
        Headless().Push(event);
        // A held button of a scroll bar repeats until the release.
        if (event.type == HostEventType::LeftButtonDown)
            Headless().PushLater(static_cast<std::uint32_t>(Below(700)),
                                 {.type = HostEventType::LeftButtonUp, .x = event.x, .y = event.y});
    }

    /// A press on Quit that waits would end the program when time goes on.
    static void CallOffQuit() {
        if (pendingClick == kMenuQuit) pendingClick = kMenuNothing;
    }

    void LetTimePass(std::uint32_t milliseconds) {
        CallOffQuit();
        Run(milliseconds);
    }

    static void ExpectButtonsAgreeWithSettings() {
        using enum MenuButton;
        const MenuScreen& menu = *theMenuScreen;
        ASSERT_EQ(menu.IsSelected(Quakes), theSettings.quakes);
        ASSERT_EQ(menu.IsSelected(Music), theSettings.music);
        ASSERT_EQ(menu.IsSelected(SoundEffects), theSettings.soundEffects);
        ASSERT_EQ(menu.IsSelected(Battle), theSettings.battle);
        ASSERT_NE(menu.IsSelected(OnePlayer), menu.IsSelected(TwoPlayers));
        ASSERT_EQ(menu.IsEnabled(LeftEasy), menu.IsSelected(TwoPlayers));
        for (const auto& [clockwise, counter, time, easy, side] :
             {std::tuple{RightClockwise, RightCounterClockwise, RightTime, RightEasy, Side::Right},
              std::tuple{LeftClockwise, LeftCounterClockwise, LeftTime, LeftEasy, Side::Left}}) {
            const std::size_t i = IndexOf(side);
            ASSERT_EQ(menu.IsSelected(clockwise), theSettings.clockwise[i]);
            ASSERT_NE(menu.IsSelected(counter), menu.IsSelected(clockwise));
            ASSERT_EQ(menu.IsTimeBased(side), theSettings.timeBased[i]);
            for (int level = 0; level < 3; ++level)
                ASSERT_EQ(menu.IsSelected(static_cast<MenuButton>(static_cast<int>(easy) + level)),
                          theSettings.difficulty[i] == level);
        }
        ASSERT_EQ(menu.IsEnabled(KeyConfigBack), menu.IsEnabled(Reset));
    }

    /// After one key no slot waits any more: another can be armed.
    static void ExpectAtMostOneSlotWaits() {
        if (!theMenuScreen->IsKeyConfigView()) return;
        theMenuScreen->OnKeyConfigKey('K');
        const MenuAction armed = theMenuScreen->Click(340, 110);
        ASSERT_EQ(armed, kMenuSlotArmed);
        theMenuScreen->OnKeyConfigKey('K');
    }

    int wakings_ = 0;

  private:
    std::mt19937 random_{20021105};
};

TEST_F(RandomInputTest, NothingThatComesInMakesScreensAndSettingsDisagree) {
    folder.Write("data/hs.dat", std::vector<std::byte>(260));
    WriteFlatSkin(folder, "Another");  // without sounds
    Start();
    audioReady = true;
    Headless().WhenWaiting([this] { WakeWithAnything(); });
    int games = 0;
    int scores = 0;
    for (int i = 0; i < 12'000; ++i) {
        SendAnything();
        ASSERT_TRUE(IsRunning()) << i;
        SCOPED_TRACE(i);
        ASSERT_EQ(TheDesktop().modal, nullptr);
        ASSERT_NO_FATAL_FAILURE(ExpectButtonsAgreeWithSettings());
        const HighScoreTable& table = theHighScoreScreen->Table();
        for (std::size_t row = 1; row < kHighScoreRows; ++row)
            ASSERT_GE(table.Row(row - 1).score, table.Row(row).score);
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
    for (const auto& level : theLevelTable.normalMs)
        for (const std::uint32_t milliseconds : level)
            EXPECT_TRUE(milliseconds >= 1 && milliseconds <= 4999) << milliseconds;
    EXPECT_LE(theSettings.dropDelayMs, 150u);
}

}  // namespace
}  // namespace korvane
