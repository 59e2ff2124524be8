#include "app/commands.h"

#include <algorithm>
#include <array>

#include "app/dialogs/about_dialog.h"
#include "app/dialogs/advanced_dialog.h"
#include "app/dialogs/level_settings_dialog.h"
#include "app/dialogs/sfx_dialog.h"
#include "app/display_switch.h"
#include "app/game_start.h"
#include "app/main_window.h"
#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "audio/music_player.h"
#include "game/frame/game_frame.h"
#include "gfx/display.h"
#include "res/about_dialog.h"
#include "res/advanced_dialog.h"
#include "res/commands.h"
#include "res/level_settings_dialog.h"
#include "res/sfx_dialog.h"
#include "screens/menu_screen.h"

namespace korvane {
namespace {

void Flip(bool& setting) {
    setting = !setting;
}

// Games and screens. -----------------------------------------------------------------------------

void ChooseTwoPlayers(HWND) {
    theSettings.players = 2;
    theMenuScreen->SelectTwoPlayers();
}

void ChooseOnePlayer(HWND) {
    theSettings.players = 1;
    theMenuScreen->SelectOnePlayer();
}

void NewGame(HWND window) {
    theMusic.SetScreen(MusicScreen::Game);
    ChooseTwoPlayers(window);
    StartPlayers(Starters::Both);
}

/// Brings the left player in without touching the menu's buttons: the way back to the menu also
/// goes back to the number of players that they show.
void RestartLeft(HWND) {
    if (theSettings.battle) return;
    theMusic.SetScreen(MusicScreen::Game);
    theSettings.players = 2;
    StartPlayers(Starters::Left);
}

void RestartRight(HWND) {
    if (theSettings.battle) return;
    theMusic.SetScreen(MusicScreen::Game);
    StartPlayers(Starters::Right);
}

void GotoMenu(HWND) {
    ShowMenu();
    rightPlayer->ResetPlayer();
    leftPlayer->ResetPlayer();
}

void ToggleHighScores(HWND) {
    if (!menuShowing && !highScoresShowing) return;
    Flip(menuShowing);
    Flip(highScoresShowing);
    theMusic.SetScreen(highScoresShowing ? MusicScreen::HighScores : MusicScreen::Menu);
}

// Settings. --------------------------------------------------------------------------------------

void ToggleQuakes(HWND) {
    Flip(theSettings.quakes);
    theMenuScreen->ToggleQuakesButton();
}

void ToggleBattle(HWND) {
    Flip(theSettings.battle);
    theMenuScreen->ToggleBattleButton();
}

void ToggleMusic(HWND) {
    theMenuScreen->ToggleMusicButton();
    Flip(theSettings.music);
    if (theSettings.music) {
        theMusic.Play();
    } else {
        theMusic.Stop();
    }
}

void ToggleSoundEffects(HWND) {
    Flip(theSettings.soundEffects);
    theMenuScreen->ToggleSfxButton();
}

template <Side side, Difficulty difficulty>
void SetDifficulty(HWND) {
    constexpr auto kLevel = static_cast<std::int32_t>(difficulty);
    theSettings.difficulty[IndexOf(side)] = kLevel;
    theMenuScreen->SetDifficultyButtons(side, kLevel);
}

template <Side side>
void ToggleClockwise(HWND) {
    SetClockwise(side, !theSettings.clockwise[IndexOf(side)]);
}

template <Side side>
void ToggleTimeBased(HWND) {
    Flip(theSettings.timeBased[IndexOf(side)]);
    theMenuScreen->ToggleTimeButton(side);
}

// The window. ------------------------------------------------------------------------------------

void ToggleFps(HWND) {
    Flip(showFps);
}

void Exit(HWND window) {
    PostMessage(window, WM_CLOSE, 0, 0);
}

void ToggleFullScreen(HWND window) {
    if (!appActive || theSettings.fullscreenBpp == 0) return;
    Flip(theSettings.windowed);
    if (!Failed(SwitchDisplayMode(window, theSettings.windowed))) return;
    currentDisplay.reset();
    ShowError("InitDirectDraw() failed. Korvane will now exit. ");
    PostMessage(window, WM_CLOSE, 0, 0);
}

// Dialogs. ---------------------------------------------------------------------------------------

void AdvancedSettings(HWND window) {
    DialogBox(kAdvancedDlg, window, AdvancedDlg);
}

void LevelSettings(HWND window) {
    DialogBox(kLevelSettingsDlg, window, LevelSettingsDlg);
}

void SfxSettings(HWND window) {
    DialogBox(kSfxDlg, window, SfxDlg);
}

void About(HWND window) {
    DialogBox(kAboutDlg, window, AboutDlg);
}

struct CommandAction {
    Command id;
    void (*run)(HWND window);
};

constexpr std::array kCommandActions = {
    CommandAction{kCmdAbout, About},
    CommandAction{kCmdAdvancedSettings, AdvancedSettings},
    CommandAction{kCmdLevelSettings, LevelSettings},
    CommandAction{kCmdSfxSettings, SfxSettings},
    CommandAction{kCmdNewGame, NewGame},
    CommandAction{kCmdOnePlayer, ChooseOnePlayer},
    CommandAction{kCmdTwoPlayers, ChooseTwoPlayers},
    CommandAction{kCmdQuakes, ToggleQuakes},
    CommandAction{kCmdBattle, ToggleBattle},
    CommandAction{kCmdMusic, ToggleMusic},
    CommandAction{kCmdSoundEffects, ToggleSoundEffects},
    CommandAction{kCmdShowFps, ToggleFps},
    CommandAction{kCmdToggleFullScreen, ToggleFullScreen},
    CommandAction{kCmdHighScores, ToggleHighScores},
    CommandAction{kCmdGotoMenu, GotoMenu},
    CommandAction{kCmdExit, Exit},
    CommandAction{kCmdLeftRestart, RestartLeft},
    CommandAction{kCmdLeftEasy, SetDifficulty<Side::Left, Difficulty::Easy>},
    CommandAction{kCmdLeftMedium, SetDifficulty<Side::Left, Difficulty::Medium>},
    CommandAction{kCmdLeftHard, SetDifficulty<Side::Left, Difficulty::Hard>},
    CommandAction{kCmdLeftClockwise, ToggleClockwise<Side::Left>},
    CommandAction{kCmdLeftTimeBased, ToggleTimeBased<Side::Left>},
    CommandAction{kCmdRightRestart, RestartRight},
    CommandAction{kCmdRightEasy, SetDifficulty<Side::Right, Difficulty::Easy>},
    CommandAction{kCmdRightMedium, SetDifficulty<Side::Right, Difficulty::Medium>},
    CommandAction{kCmdRightHard, SetDifficulty<Side::Right, Difficulty::Hard>},
    CommandAction{kCmdRightClockwise, ToggleClockwise<Side::Right>},
    CommandAction{kCmdRightTimeBased, ToggleTimeBased<Side::Right>},
};

}  // namespace

void SetClockwise(Side side, bool clockwise) {
    theSettings.clockwise[IndexOf(side)] = clockwise;
    theMenuScreen->SetRotationButtons(side, clockwise);
}

bool RunCommand(HWND window, std::uint16_t id) {
    const auto* action = std::ranges::find(kCommandActions, id, &CommandAction::id);
    if (action == kCommandActions.end()) return false;
    action->run(window);
    return true;
}

}  // namespace korvane
