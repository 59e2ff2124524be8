#include "app/commands.h"

#include <algorithm>
#include <array>

#include "app/display_switch.h"
#include "app/main_window.h"
#include "app/process_state.h"
#include "app/settings.h"
#include "app/start_screens.h"
#include "game/game_frame.h"
#include "gfx/display.h"
#include "res/commands.h"

namespace korvane {
namespace {

void NewGame(HWND) {
    theSettings.players = 2;
    startScreens->SelectTwoPlayers();
    StartPlayers(Starters::Both);
}

void RestartLeft(HWND) {
    if (theSettings.battle) return;
    theSettings.players = 2;
    StartPlayers(Starters::Left);
}

void RestartRight(HWND) {
    if (theSettings.battle) return;
    StartPlayers(Starters::Right);
}

void GotoMenu(HWND) {
    theSettings.players = static_cast<std::uint8_t>(startScreens->Players());
    rightPlayer->SetJoined(false);
    leftPlayer->SetJoined(false);
    menuShowing = true;
    highScoresShowing = false;
    rightPlayer->ResetPlayer();
    leftPlayer->ResetPlayer();
}

void ToggleHighScores(HWND) {
    if (!menuShowing && !highScoresShowing) return;
    menuShowing = !menuShowing;
    highScoresShowing = !highScoresShowing;
}

void ToggleFps(HWND) {
    showFps = !showFps;
}

void Exit(HWND window) {
    PostMessage(window, WM_CLOSE, 0, 0);
}

void ToggleFullScreen(HWND window) {
    if (!appActive || theSettings.fullscreenBpp == 0) return;
    theSettings.windowed = !theSettings.windowed;
    if (!Failed(SwitchDisplayMode(window, theSettings.windowed))) return;
    currentDisplay.reset();
    ShowError("InitDirectDraw() failed. Korvane will now exit. ");
    PostMessage(window, WM_CLOSE, 0, 0);
}

struct CommandAction {
    Command id;
    void (*run)(HWND window);
};

constexpr std::array kCommandActions = {
    CommandAction{kCmdExit, Exit},
    CommandAction{kCmdToggleFullScreen, ToggleFullScreen},
    CommandAction{kCmdRightRestart, RestartRight},
    CommandAction{kCmdNewGame, NewGame},
    CommandAction{kCmdLeftRestart, RestartLeft},
    CommandAction{kCmdGotoMenu, GotoMenu},
    CommandAction{kCmdHighScores, ToggleHighScores},
    CommandAction{kCmdShowFps, ToggleFps},
};

void Start(Player& player) {
    player.StartGame(theSettings.timeBased[IndexOf(player.PlayerSide())]);
}

}  // namespace

void StartPlayers(Starters starters) {
    highScoresShowing = false;
    menuShowing = false;
    if (starters != Starters::Left) Start(*rightPlayer);
    if (starters != Starters::Right) Start(*leftPlayer);
}

bool RunCommand(HWND window, std::uint16_t id) {
    const auto action = std::find_if(kCommandActions.begin(), kCommandActions.end(),
                                     [id](const CommandAction& entry) { return entry.id == id; });
    if (action == kCommandActions.end()) return false;
    action->run(window);
    return true;
}

}  // namespace korvane
