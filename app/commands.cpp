#include "app/commands.h"

#include <algorithm>
#include <array>

#include "app/dialogs/about_dialog.h"
#include "app/dialogs/advanced_dialog.h"
#include "app/dialogs/level_settings_dialog.h"
#include "app/dialogs/sfx_dialog.h"
#include "app/display_switch.h"
#include "app/main_window.h"
#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "app/window_size.h"
#include "audio/music_player.h"
#include "game/frame/game_frame.h"
#include "gfx/display.h"
#include "platform/window/window_scale.h"
#include "res/about_dialog.h"
#include "res/advanced_dialog.h"
#include "res/commands.h"
#include "res/level_settings_dialog.h"
#include "res/sfx_dialog.h"
#include "screens/game_start.h"
#include "screens/setting_changes.h"

namespace korvane {
namespace {

void NewGame() {
    theMusic.SetScreen(MusicScreen::Game);
    ChooseTwoPlayers();
    StartPlayers(Starters::Both);
}

/// Brings the left player in without touching the menu's buttons: the way back to the menu also
/// goes back to the number of players that they show.
void RestartLeft() {
    if (theSettings.battle) return;
    theMusic.SetScreen(MusicScreen::Game);
    theSettings.players = 2;
    StartPlayers(Starters::Left);
}

void RestartRight() {
    if (theSettings.battle) return;
    theMusic.SetScreen(MusicScreen::Game);
    StartPlayers(Starters::Right);
}

void GotoMenu() {
    ShowMenu();
    rightPlayer->ResetPlayer();
    leftPlayer->ResetPlayer();
}

void ToggleHighScores() {
    if (!menuShowing && !highScoresShowing) return;
    menuShowing = !menuShowing;
    highScoresShowing = !highScoresShowing;
    theMusic.SetScreen(highScoresShowing ? MusicScreen::HighScores : MusicScreen::Menu);
}

void ToggleFps() {
    showFps = !showFps;
}

void Exit() {
    PostMessage(mainWindow, WM_CLOSE, 0, 0);
}

void ToggleFullScreen() {
    if (!appActive || theSettings.fullscreenBpp == 0) return;
    theSettings.windowed = !theSettings.windowed;
    if (!Failed(SwitchDisplayMode(mainWindow, theSettings.windowed))) return;
    currentDisplay.reset();
    ShowError("InitDirectDraw() failed. Korvane will now exit. ");
    Exit();
}

void AdvancedSettings() {
    DialogBox(kAdvancedDlg, mainWindow, AdvancedDlg);
}

void LevelSettings() {
    DialogBox(kLevelSettingsDlg, mainWindow, LevelSettingsDlg);
}

void SfxSettings() {
    DialogBox(kSfxDlg, mainWindow, SfxDlg);
}

void About() {
    DialogBox(kAboutDlg, mainWindow, AboutDlg);
}

template <int steps>
void StepWindow() {
    StepWindowScale(steps);
    RememberWindowScale();
}

void UseUsualWindow() {
    ChooseWindowScale(std::nullopt);
    RememberWindowScale();
}

struct CommandAction {
    Command id;
    void (*run)();
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
    CommandAction{kCmdLargerWindow, StepWindow<1>},
    CommandAction{kCmdSmallerWindow, StepWindow<-1>},
    CommandAction{kCmdUsualWindow, UseUsualWindow},
    CommandAction{kCmdHighScores, ToggleHighScores},
    CommandAction{kCmdGotoMenu, GotoMenu},
    CommandAction{kCmdExit, Exit},
    CommandAction{kCmdLeftRestart, RestartLeft},
    CommandAction{kCmdLeftEasy, SetDifficulty<Side::Left, Difficulty::Easy>},
    CommandAction{kCmdLeftMedium, SetDifficulty<Side::Left, Difficulty::Medium>},
    CommandAction{kCmdLeftHard, SetDifficulty<Side::Left, Difficulty::Hard>},
    CommandAction{kCmdLeftClockwise, ToggleRotation<Side::Left>},
    CommandAction{kCmdLeftTimeBased, ToggleTimeBased<Side::Left>},
    CommandAction{kCmdRightRestart, RestartRight},
    CommandAction{kCmdRightEasy, SetDifficulty<Side::Right, Difficulty::Easy>},
    CommandAction{kCmdRightMedium, SetDifficulty<Side::Right, Difficulty::Medium>},
    CommandAction{kCmdRightHard, SetDifficulty<Side::Right, Difficulty::Hard>},
    CommandAction{kCmdRightClockwise, ToggleRotation<Side::Right>},
    CommandAction{kCmdRightTimeBased, ToggleTimeBased<Side::Right>},
};

}  // namespace

bool RunCommand(std::uint16_t id) {
    const auto* action = std::ranges::find(kCommandActions, id, &CommandAction::id);
    if (action == kCommandActions.end()) return false;
    action->run();
    return true;
}

}  // namespace korvane
