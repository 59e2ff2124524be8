#include "app/window_proc.h"

#include <algorithm>
#include <array>

#include "app/commands.h"
#include "app/main_window.h"
#include "app/menu_states.h"
#include "app/process_state.h"
#include "app/settings.h"
#include "app/start_screens.h"
#include "game/game_frame.h"
#include "game/key_bindings.h"
#include "gfx/display.h"

namespace korvane {
namespace {

/// Right before left, as everything that concerns both players is done.
std::array<Player*, 2> BothPlayers() {
    return {rightPlayer.get(), leftPlayer.get()};
}

bool BothPlayersExist() {
    return rightPlayer && leftPlayer;
}

/// A pause key stops its player's game, in battle both.
void TogglePauses(Player& owner) {
    for (Player* player : BothPlayers()) {
        const bool concerned = theSettings.battle ? player->IsJoined() : player == &owner;
        if (concerned) player->TogglePause();
    }
}

bool HandlePauseKey(std::uint8_t key) {
    for (Player* player : {leftPlayer.get(), rightPlayer.get()}) {
        if (!player->IsJoined()) continue;
        if (!keyBindings.IsKeyOf(Action::Pause, player->PlayerSide(), key)) continue;
        TogglePauses(*player);
        return true;
    }
    return false;
}

void OnKeyDown(std::uint8_t key) {
    if (!BothPlayersExist()) return;
    if (!menuShowing) {
        if (HandlePauseKey(key)) return;
        for (Player* player : BothPlayers())
            if (player->IsJoined()) player->KeyDown(key);
    }
    if (key == VK_HOME) nextFigureCheat = !nextFigureCheat;
}

void OnKeyUp(std::uint8_t key) {
    if (menuShowing || !BothPlayersExist()) return;
    for (Player* player : BothPlayers())
        player->KeyUp(key);
}

/// A game never resumes by itself: it is paused when the window comes and when it goes.
void OnActivate(WPARAM wParam) {
    if (BothPlayersExist()) {
        for (Player* player : BothPlayers())
            if (player->IsJoined() && !player->IsPaused()) player->TogglePause();
    }
    appActive = LOWORD(wParam) != WA_INACTIVE && HIWORD(wParam) == 0;
}

void OnSize(WPARAM wParam) {
    appActive = wParam != SIZE_MINIMIZED && wParam != SIZE_MAXHIDE;
    if (currentDisplay) currentDisplay->UpdateWindowRect();
}

bool IsRefusedInFullScreen(WPARAM systemCommand) {
    constexpr std::array kRefused = {SC_SIZE, SC_MOVE, SC_MAXIMIZE, SC_MONITORPOWER};
    return std::find(kRefused.begin(), kRefused.end(), systemCommand) != kRefused.end();
}

void OnDestroy() {
    startScreens.reset();
    rightPlayer.reset();
    leftPlayer.reset();
    currentDisplay.reset();
    PostQuitMessage(0);
}

}  // namespace

LRESULT WindowProc(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam) {
    mainWindow = window;
    switch (message) {
        case WM_COMMAND:
            if (RunCommand(window, LOWORD(wParam))) return 0;
            break;
        case WM_KEYDOWN:
            OnKeyDown(static_cast<std::uint8_t>(wParam));
            return 0;
        case WM_KEYUP:
            OnKeyUp(static_cast<std::uint8_t>(wParam));
            return 0;
        case WM_ACTIVATE:
            OnActivate(wParam);
            return 0;
        case WM_SIZE:
            OnSize(wParam);
            return 0;
        case WM_MOVE:
            if (currentDisplay) currentDisplay->UpdateWindowRect();
            return 0;
        case WM_INITMENUPOPUP:
            SetMenuStates(reinterpret_cast<HMENU>(wParam));
            break;
        case WM_GETMINMAXINFO: {
            auto* limits = reinterpret_cast<MINMAXINFO*>(lParam);
            limits->minTrackSize = limits->maxTrackSize = MainWindowSize();
            return 0;
        }
        case WM_SYSCOMMAND:
            if (!theSettings.windowed && IsRefusedInFullScreen(wParam)) return 1;
            break;
        case WM_DESTROY:
            OnDestroy();
            return 0;
        default:
            break;
    }
    return DefWindowProc(window, message, wParam, lParam);
}

}  // namespace korvane
