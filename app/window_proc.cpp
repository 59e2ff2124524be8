#include "app/window_proc.h"

#include <algorithm>
#include <array>

#include "app/autosave.h"
#include "app/commands.h"
#include "app/keyboard_input.h"
#include "app/main_window.h"
#include "app/menu_states.h"
#include "app/mouse_input.h"
#include "app/screen_adapter.h"
#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "app/window_size.h"
#include "audio/audio.h"
#include "audio/music_player.h"
#include "game/frame/game_frame.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
#include "gfx/display.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"
#include "screens/skin_reload.h"
#include "screens/stage.h"

namespace korvane {
namespace {

/// Games are paused when the window becomes inactive, when it becomes active and when its menu
/// takes the keyboard: none resumes by itself. True when one was paused now.
bool PauseGames() {
    bool paused = false;
    if (!BothPlayersExist()) return paused;
    for (Player* player : BothPlayers()) {
        if (!player->IsJoined() || player->IsPaused()) continue;
        player->TogglePause();
        paused = true;
    }
    return paused;
}

/// No frame is drawn while the window is inactive, but what it shows must say that it is paused.
void ShowPause() {
    ScreenAdapter screens;
    DrawGameFrame(screens);
}

void OnActivate(WPARAM wParam) {
    const bool paused = PauseGames();
    const bool wasActive = appActive;
    appActive = LOWORD(wParam) != WA_INACTIVE && HIWORD(wParam) == 0;
    if (appActive) {
        theMusic.Resume();
    } else {
        theMusic.Pause();
        if (wasActive && paused && currentDisplay) ShowPause();
    }
}

void OnSize(WPARAM wParam) {
    appActive = wParam != SIZE_MINIMIZED && wParam != SIZE_MAXHIDE;
    if (currentDisplay) currentDisplay->UpdateWindowRect();
    RememberWindowScale();  // the user may have dragged an edge
}

bool IsRefusedInFullScreen(WPARAM systemCommand) {
    constexpr std::array kRefused = {SC_SIZE, SC_MOVE, SC_MAXIMIZE, SC_MONITORPOWER};
    return std::find(kRefused.begin(), kRefused.end(), systemCommand) != kRefused.end();
}

MusicScreen ShownMusicScreen() {
    if (menuShowing) return MusicScreen::Menu;
    return highScoresShowing ? MusicScreen::HighScores : MusicScreen::Game;
}

/// Before the stage is set the start-up loads all sounds by itself.
void OnSoundFound() {
    if (!TakeUpAudio() || !theMenuScreen || !BothPlayersExist()) return;
    theMusic.SetScreenQuiet(ShownMusicScreen());
    ReloadSkinAudio();
    if (!appActive) theMusic.Pause();
}

void OnDestroy() {
    StopAudio();
    SaveScoresAndKeys();
    ClearStage();
    PostQuitMessage(0);
}

}  // namespace

void SaveScoresAndKeys() {
    if (theHighScoreScreen) theHighScoreScreen->Save();
    if (theMenuScreen) keyBindings.Save();
}

void SaveAll() {
    SaveScoresAndKeys();
    theLevelTable.SaveTable();
    theSettings.Save();
}

LRESULT WindowProc(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam) {
    mainWindow = window;
    switch (message) {
        case WM_COMMAND:
            if (RunCommand(LOWORD(wParam))) return 0;
            break;
        case WM_LBUTTONDOWN:
            OnLeftButtonDown(lParam);
            return 0;
        case WM_TIMER:
            if (OnTimer(window, wParam) || OnAutosaveTimer(window, wParam)) return 0;
            break;
        case WM_KEYDOWN:
            OnKeyDown(static_cast<std::uint8_t>(wParam), (lParam & kRepeatedKey) != 0);
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
        case WM_ENTERMENULOOP:
            PauseGames();  // nobody can steer while the menu has the keyboard
            return 0;
        case WM_INITMENUPOPUP:
            SetMenuStates(reinterpret_cast<HMENU>(wParam));
            break;
        case WM_GETMINMAXINFO: {
            auto* limits = reinterpret_cast<MINMAXINFO*>(lParam);
            limits->minTrackSize = limits->maxTrackSize = MainWindowSize();
            return 0;
        }
        case WM_DEVICECHANGE:
            if (wParam == DBT_DEVICEARRIVAL) OnSoundFound();
            return 0;
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
