#include "tests/support/program_fixture.h"

#include "app/program.h"
#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "audio/music_player.h"
#include "game/frame/game_frame.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
#include "platform/headless/headless_host.h"
#include "screens/menu_screen.h"
#include "tests/support/test_audio.h"
#include "tests/support/test_skin.h"

namespace korvane {
namespace {

/// Rows of the window above the picture.
int MenuBarRows() {
    return GetMenu(mainWindow) ? GetSystemMetrics(SM_CYMENU) : 0;
}

}  // namespace

void ProgramFixture::SetUp() {
    Headless().Reset();
    Headless().UseFolder(folder.Path());
    WriteFlatSkin(folder, "Original");
    WriteTestAudio(folder, "Original");
    folder.Write("data/other", {});
    theSettings.SetDefaults();
    theSettings.showAdvancedAtStart = false;
    theSettings.scrollingPieces = false;
    theSettings.dropDelayMs = 0;
    keyBindings.ResetToDefaults();
    theLevelTable.SetDefaults();
    theMusic = MusicPlayer();
    theMatch = {};
    showFps = audioReady = appActive = false;
    pendingClick = -1;
}

void ProgramFixture::TearDown() {
    if (Headless().IsOpen()) End();
}

void ProgramFixture::Start() {
    if (Headless().IsOpen()) End();
    menuShowing = true;
    highScoresShowing = false;
    ASSERT_TRUE(StartUp());
    running_ = true;
    Frame();
    ASSERT_TRUE(appActive);
}

void ProgramFixture::End() {
    DestroyWindow(mainWindow);
    while (!RunLoopPass()) {
    }
    running_ = false;
}

std::optional<int> ProgramFixture::Passes(int count) {
    std::optional<int> exitCode;
    for (int i = 0; i < count && !exitCode; ++i)
        exitCode = RunLoopPass();
    return exitCode;
}

void ProgramFixture::Pass() {
    if (running_ && RunLoopPass()) running_ = false;
}

void ProgramFixture::Run(std::uint32_t milliseconds) {
    const std::uint32_t start = Headless().Milliseconds();
    while (running_ && Headless().Milliseconds() - start < milliseconds) {
        Headless().Advance(passMs);
        Pass();
        AfterPass();
    }
}

void ProgramFixture::Press(std::uint8_t key, std::uint8_t modifiers) {
    Headless().PushKey(key, /*down=*/true, modifiers);
    Headless().PushKey(key, /*down=*/false, modifiers);
    Pass();
    Pass();
}

void ProgramFixture::Click(int x, int y) {
    Headless().Push({.type = HostEventType::LeftButtonDown, .x = x, .y = y + MenuBarRows()});
    Pass();
}

void ProgramFixture::Command(std::uint16_t id) {
    SendMessage(mainWindow, WM_COMMAND, MakeParam(id, 1), 0);
}

std::string ProgramFixture::Seen(int x, int y) {
    return FlatCellOf(Headless().PixelAt(x, y + MenuBarRows()));
}

std::string ProgramFixture::Text(int x, int y, int length, int advance) {
    std::string text;
    for (int i = 0; i < length; ++i) {
        const std::string cell = Seen(x + i * advance + 4, y + 8);
        const int code = cell == "-" ? 0 : std::stoi(cell.substr(cell.find(' ')));
        text += cell.starts_with("Letters ")   ? static_cast<char>('A' + code)
                : cell.starts_with("Numbers ") ? static_cast<char>('0' + code)
                                               : ' ';
    }
    return text;
}

std::string ProgramFixture::Shows() const {
    if (!running_) return "the end";
    if (menuShowing && highScoresShowing) return "menu and scores";
    if (highScoresShowing) return "scores";
    if (!menuShowing)
        return std::string("game") + (rightPlayer->IsRunning() ? " right" : "") +
               (leftPlayer->IsRunning() ? " left" : "");
    if (theMenuScreen->IsKeyConfigView()) return "keys";
    return Text(110, 116, 7, 16) == "KORVANE" ? "credits" : "menu";
}

void ProgramFixture::PackBoard(Player& player) {
    Board packed;
    for (int row = 0; row < kBoardRows; ++row) {
        packed.FillRow(row, 1);
        packed.Set(row, 0, kEmptyCell);
    }
    player.SetBoard(packed);
}

void ProgramFixture::EndGame(Player& player, int figures) {
    const std::uint8_t drop = keyBindings.Key(Action::Drop, player.PlayerSide());
    const int wanted = player.Score() + 4 * figures;
    for (int i = 0; player.Score() < wanted && i < 100; ++i) {
        player.KeyDown(drop);
        Run(100);
        player.KeyUp(drop);
        Run(500);
    }
    PackBoard(player);
    for (int i = 0; player.IsRunning() && i < 100; ++i)
        Run(100);
    ASSERT_FALSE(player.IsRunning());
    ASSERT_GE(player.Score(), wanted);
}

}  // namespace korvane
