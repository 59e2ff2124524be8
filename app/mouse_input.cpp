#include "app/mouse_input.h"

#include <algorithm>
#include <array>

#include "app/commands.h"
#include "app/game_start.h"
#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "res/commands.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"

namespace korvane {
namespace {

constexpr WPARAM kClickTimer = 3;
constexpr std::uint32_t kPressedLookMs = 200;

// Presses with an effect at once. ----------------------------------------------------------------

struct CommandOfMenu {
    MenuAction action;
    Command command;
};

constexpr std::array kMenuCommands = {
    CommandOfMenu{kMenuOnePlayer, kCmdOnePlayer},
    CommandOfMenu{kMenuTwoPlayers, kCmdTwoPlayers},
    CommandOfMenu{kMenuMusic, kCmdMusic},
    CommandOfMenu{kMenuSoundEffects, kCmdSoundEffects},
    CommandOfMenu{kMenuRightEasy, kCmdRightEasy},
    CommandOfMenu{kMenuRightMedium, kCmdRightMedium},
    CommandOfMenu{kMenuRightHard, kCmdRightHard},
    CommandOfMenu{kMenuLeftEasy, kCmdLeftEasy},
    CommandOfMenu{kMenuLeftMedium, kCmdLeftMedium},
    CommandOfMenu{kMenuLeftHard, kCmdLeftHard},
    CommandOfMenu{kMenuQuakes, kCmdQuakes},
    CommandOfMenu{kMenuBattle, kCmdBattle},
    CommandOfMenu{kMenuRightTime, kCmdRightTimeBased},
    CommandOfMenu{kMenuLeftTime, kCmdLeftTimeBased},
};

struct RotationOfMenu {
    MenuAction action;
    Side side;
    bool clockwise;
};

constexpr std::array kMenuRotations = {
    RotationOfMenu{kMenuRightCounterClockwise, Side::Right, false},
    RotationOfMenu{kMenuRightClockwise, Side::Right, true},
    RotationOfMenu{kMenuLeftCounterClockwise, Side::Left, false},
    RotationOfMenu{kMenuLeftClockwise, Side::Left, true},
};

void RunMenuAction(HWND window, MenuAction action) {
    const auto* command = std::ranges::find(kMenuCommands, action, &CommandOfMenu::action);
    if (command != kMenuCommands.end()) RunCommand(window, command->command);
    const auto* rotation = std::ranges::find(kMenuRotations, action, &RotationOfMenu::action);
    if (rotation != kMenuRotations.end()) SetClockwise(rotation->side, rotation->clockwise);
}

// Presses with a delayed effect. -----------------------------------------------------------------

void Quit(HWND window) {
    DestroyWindow(window);
}

void StartFromButton(HWND) {
    StartMatch();
    theMenuScreen->ReleaseStartButton();
    theHighScoreScreen->ReleaseButtons();
}

void ToggleCredits(HWND) {
    theMenuScreen->ToggleCreditsView();
}

void ToggleKeyConfig(HWND) {
    theMenuScreen->ToggleKeyConfigView();
}

/// From the high scores to the menu. The number of players is then what the menu's buttons say; of
/// two only the left one is reset, the right one's counts stay.
void LeaveHighScores(HWND) {
    ShowMenu();
    if (theSettings.players != 2) rightPlayer->ResetPlayer();
    if (theSettings.players != 1) leftPlayer->ResetPlayer();
    theHighScoreScreen->ReleaseButtons();
}

struct DelayedAction {
    std::int32_t click;
    void (*run)(HWND window);
};

constexpr std::array kDelayedActions = {
    DelayedAction{kMenuQuit, Quit},
    DelayedAction{kMenuStart, StartFromButton},
    DelayedAction{kMenuCredits, ToggleCredits},
    DelayedAction{kMenuConfigureKeys, ToggleKeyConfig},
    DelayedAction{kMenuKeyConfigBack, ToggleKeyConfig},
    DelayedAction{kHighScoreToMenu, LeaveHighScores},
    DelayedAction{kHighScorePlayAgain, StartFromButton},
};

const DelayedAction* FindDelayedAction(std::int32_t click) {
    const auto* action = std::ranges::find(kDelayedActions, click, &DelayedAction::click);
    return action == kDelayedActions.end() ? nullptr : action;
}

/// The point of the frame. In full screen the client area still counts from inside a window frame
/// and below a menu bar.
POINT FramePoint(LPARAM position) {
    const auto packed = static_cast<std::uintptr_t>(position);
    POINT point{static_cast<std::int16_t>(LOWORD(packed)),
                static_cast<std::int16_t>(HIWORD(packed))};
    if (!theSettings.windowed) {
        point.x += GetSystemMetrics(SM_CXFRAME);
        point.y += GetSystemMetrics(SM_CYFRAME) + GetSystemMetrics(SM_CYMENU);
    }
    return point;
}

}  // namespace

void OnLeftButtonDown(HWND window, LPARAM position) {
    if (!menuShowing && !highScoresShowing) return;
    const POINT point = FramePoint(position);
    if (menuShowing) {
        const MenuAction action = theMenuScreen->Click(point.x, point.y);
        pendingClick = action;
        RunMenuAction(window, action);
    } else {
        pendingClick = theHighScoreScreen->ClickHighScore(point.x, point.y);
    }
    if (FindDelayedAction(pendingClick)) SetTimer(window, kClickTimer, kPressedLookMs);
}

bool OnTimer(HWND window, WPARAM id) {
    if (id != kClickTimer) return false;
    KillTimer(window, kClickTimer);
    if (const DelayedAction* action = FindDelayedAction(pendingClick)) action->run(window);
    return true;
}

}  // namespace korvane
