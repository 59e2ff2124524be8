#include "tests/app/random_input.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>
#include <tuple>
#include <vector>

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
#include "tests/support/test_skin.h"

namespace korvane {
namespace {

/// A press on Quit that waits would end the program when time goes on.
void CallOffQuit() {
    if (pendingClick == kMenuQuit) pendingClick = kMenuNothing;
}

void ExpectButtonsAgree() {
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

}  // namespace

void RandomInput::SetUp() {
    ProgramFixture::SetUp();
    folder.Write("data/hs.dat", std::vector<std::byte>(260));
    WriteFlatSkin(folder, "Another");  // without sounds
    Headless().WhenWaiting([this] { WakeWithAnything(); });
}

void RandomInput::SendAnything() {
    const int what = Below(8);
    if (what == 0) SendClick();
    if (what == 1 || what == 2)
        SendMessage(mainWindow, what == 1 ? WM_KEYDOWN : WM_KEYUP, static_cast<WPARAM>(Below(256)),
                    0);
    if (what == 3) SendCommand();
    // While Quit waits, the timer would end the program.
    if (what == 4 && pendingClick != kMenuQuit) SendMessage(mainWindow, WM_TIMER, 3, 0);
    if (what == 5 && OneIn(20)) SendMessage(mainWindow, WM_ACTIVATE, MakeParam(Below(3), 0), 0);
    if (what == 6 && OneIn(100)) PlayAGame();
    if (what == 7 && OneIn(20)) LetTimePass(20);
}

void RandomInput::SendClick() {
    const bool far = OneIn(50);
    const int x = Below(far ? 65536 : 640);
    const int y = Below(far ? 65536 : 480);
    SendMessage(mainWindow, WM_LBUTTONDOWN, 0, static_cast<LPARAM>(MakeParam(x, y)));
}

void RandomInput::SendCommand() {
    const int id = OneIn(40) ? 1000 + Below(3) : 40001 + Below(27);
    if (id == kCmdExit || (id == kCmdToggleFullScreen && !OneIn(10))) return;
    // Greyed then: a battle of one player could only come from a file.
    if (id == kCmdBattle && (theSettings.players == 1 || !menuShowing)) return;
    CallOffQuit();
    Command(static_cast<std::uint16_t>(id));
}

/// A game or two; a figure may lock before the boards are full and the games end.
void RandomInput::PlayAGame() {
    constexpr std::array kStarts = {kCmdRightRestart, kCmdLeftRestart, kCmdNewGame};
    SendMessage(mainWindow, WM_ACTIVATE, WA_ACTIVE, 0);
    Command(kStarts[static_cast<std::size_t>(Below(3))]);
    Look();
    const auto players = BothPlayers();
    Player& player = *players[static_cast<std::size_t>(Below(2))];
    player.KeyDown(keyBindings.Key(Action::Drop, player.PlayerSide()));
    LetTimePass(static_cast<std::uint32_t>(Below(1000)));
    for (Player* packed : players)
        PackBoard(*packed);
    LetTimePass(1500);
}

void RandomInput::WakeWithAnything() {
    if (!TheDesktop().modal) return WakeWindow();
    ++wakings_;
    const HostEvent event = RandomDialogEvent(random_);
    Headless().Push(event);
    // A held button of a scroll bar repeats until the release.
    if (event.type == HostEventType::LeftButtonDown)
        Headless().PushLater(static_cast<std::uint32_t>(Below(700)),
                             {.type = HostEventType::LeftButtonUp, .x = event.x, .y = event.y});
}

void RandomInput::LetTimePass(std::uint32_t milliseconds) {
    CallOffQuit();
    Run(milliseconds);
}

void RandomInput::ExpectScreensAgree() {
    ASSERT_EQ(TheDesktop().modal, nullptr);
    ASSERT_NO_FATAL_FAILURE(ExpectButtonsAgree());
    const HighScoreTable& table = theHighScoreScreen->Table();
    for (std::size_t row = 1; row < kHighScoreRows; ++row)
        ASSERT_GE(table.Row(row - 1).score, table.Row(row).score);
}

void RandomInput::ExpectSettingsInRange() {
    const SettingsValues& values = theSettings;
    ASSERT_TRUE(values.players == 1 || values.players == 2);
    for (const std::int32_t difficulty : values.difficulty)
        ASSERT_TRUE(difficulty >= 0 && difficulty <= 2);
    ASSERT_LE(values.dropDelayMs, 150u);
    ASSERT_TRUE((std::set{2, 4, 8, 16}).contains(values.dropMagnitude));
    ASSERT_LE(values.sfxMask, 31);
    ASSERT_TRUE(values.fullscreenBpp == 16 || values.fullscreenBpp == 32);
    ASSERT_TRUE(values.skinName == "Original" || values.skinName == "Another");
    for (const auto* speeds : {&theLevelTable.normalMs, &theLevelTable.scrollingPxPerSecond})
        for (const auto& level : *speeds)
            for (const std::uint32_t speed : level)
                ASSERT_TRUE(speed >= 1 && speed <= 4999) << speed;
    for (const auto* thresholds : {&theLevelTable.figuresForLevel, &theLevelTable.secondsForLevel})
        ASSERT_LE(*std::ranges::max_element(*thresholds), 4999u);
}

void RandomInput::ExpectAtMostOneSlotWaits() {
    if (!theMenuScreen->IsKeyConfigView()) return;
    theMenuScreen->OnKeyConfigKey('K');
    const MenuAction armed = theMenuScreen->Click(340, 110);
    ASSERT_EQ(armed, kMenuSlotArmed);
    theMenuScreen->OnKeyConfigKey('K');
}

}  // namespace korvane
