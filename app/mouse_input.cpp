#include "app/mouse_input.h"

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "screens/game_start.h"
#include "screens/high_score_screen.h"
#include "screens/keyboard_focus.h"
#include "screens/menu_press.h"

namespace korvane {
namespace {

constexpr WPARAM kClickTimer = 3;
/// How long a pressed button is seen before its effect changes the screen.
constexpr std::uint32_t kPressedLookMs = 200;

/// From the high scores to the menu. The number of players is then what the menu's buttons say; of
/// two only the left one is reset: the right one keeps its wins.
void LeaveHighScores() {
    ShowMenu();
    if (theSettings.players != 2) rightPlayer->ResetPlayer();
    if (theSettings.players != 1) leftPlayer->ResetPlayer();
    theHighScoreScreen->ReleaseButtons();
}

/// What a press does; nothing to run for a press that hit nothing.
struct PressEffect {
    void (*run)() = nullptr;
    Effect effect = Effect::AtOnce;
};

PressEffect EffectOf(std::int32_t click) {
    if (click == kHighScoreToMenu) return {LeaveHighScores, Effect::Delayed};
    if (click == kHighScorePlayAgain) return {StartMatch, Effect::Delayed};
    const MenuPress* press = FindMenuPress(click);
    return press ? PressEffect{press->run, press->effect} : PressEffect{};
}

/// The point of the frame. In full screen it is moved by the sizes of a window frame and a menu
/// bar, although full screen has neither: presses there count right of and below where they are
/// seen.
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

void PressAt(POINT at) {
    pendingClick = menuShowing ? std::int32_t{theMenuScreen->Click(at.x, at.y)}
                               : theHighScoreScreen->ClickHighScore(at.x, at.y);
    const PressEffect press = EffectOf(pendingClick);
    if (press.effect == Effect::Delayed) {
        SetTimer(mainWindow, kClickTimer, kPressedLookMs);
    } else if (press.run) {
        press.run();
    }
}

void OnLeftButtonDown(LPARAM position) {
    if (!menuShowing && !highScoresShowing) return;
    focusShowing = false;
    PressAt(FramePoint(position));
}

bool OnTimer(HWND window, WPARAM id) {
    if (id != kClickTimer) return false;
    KillTimer(window, kClickTimer);
    const PressEffect press = EffectOf(pendingClick);
    if (press.effect == Effect::Delayed) press.run();
    return true;
}

}  // namespace korvane
