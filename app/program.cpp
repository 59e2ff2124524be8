#include "app/program.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

#include "app/autosave.h"
#include "app/dialogs/advanced_dialog.h"
#include "app/display_switch.h"
#include "app/keyboard_input.h"
#include "app/main_window.h"
#include "app/screen_adapter.h"
#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "app/window_proc.h"
#include "app/window_size.h"
#include "audio/audio.h"
#include "audio/music_player.h"
#include "game/frame/game_frame.h"
#include "gfx/display.h"
#include "platform/host/kernel.h"
#include "res/accelerators.h"
#include "res/advanced_dialog.h"
#include "screens/high_score_screen.h"
#include "screens/keyboard_focus.h"
#include "screens/menu_screen.h"
#include "screens/stage.h"

namespace korvane {
namespace {

/// The least time from the end of one frame to the drawing of the next.
constexpr std::int32_t kFramePauseMs = 10;

HRESULT InitDisplay(HWND window) {
    return SwitchDisplayMode(window, theSettings.windowed);
}

void ChooseGameClock() {
    std::uint64_t frequency = 0;
    hiResClock = QueryPerformanceFrequency(frequency);
    secondsPerCount = hiResClock ? 1.0 / static_cast<double>(frequency) : 0.001;
    lastCount = timeGetTime();
    if (hiResClock) QueryPerformanceCounter(lastCount);
}

void RestoreSurfaces() {
    currentDisplay->DirectDraw()->RestoreAllSurfaces();
}

/// Does what a display needs that cannot be drawn on: waits while another program has the whole
/// screen, opens the display again after the desktop has changed its mode. Any other state is
/// returned, and fatal.
HRESULT HandleDisplayState(HWND window, HRESULT state) {
    if (state == DDERR_NOEXCLUSIVEMODE || state == DDERR_EXCLUSIVEMODEALREADYSET) {
        Sleep(kFramePauseMs);
        return S_OK;
    }
    if (state == DDERR_WRONGMODE) return SwitchDisplayMode(window, theSettings.windowed);
    return state;
}

/// After 25 days without a frame the signed difference is negative.
void KeepPace() {
    const auto elapsed = static_cast<std::int32_t>(GetTickCount() - lastFrameTick);
    const std::int32_t pause = kFramePauseMs - std::max(elapsed, 0);
    if (pause > 0) Sleep(static_cast<std::uint32_t>(pause));
}

/// Whatever the box still needs, the data come first.
int EndWithoutMemory() {
    SaveAll();
    try {
        ShowError("There is not enough memory. Korvane will now exit. ");
    } catch (const std::bad_alloc&) {
        // The exit code has to tell it.
    }
    return EXIT_FAILURE;
}

/// Xlib ends the process when the display dies, in whatever call that shows. The display's objects
/// must go while the desktop that they belong to is still there. From here on the process ends by
/// itself, and the settings and levels save themselves.
void EndWithoutWindow() {
    SetEmergencySave({});
    SaveScoresAndKeys();
    currentDisplay.reset();
}

bool IsFreshPress(const MSG& message, std::uint8_t key) {
    return message.message == WM_KEYDOWN && message.wParam == key &&
           (message.lParam & kRepeatedKey) == 0;
}

}  // namespace

HRESULT RenderFrame(HWND window) {
    AdvanceGame();
    const HRESULT state = currentDisplay->DirectDraw()->TestCooperativeLevel();
    if (Failed(state)) return HandleDisplayState(window, state);
    KeepPace();
    ScreenAdapter screens;
    const HRESULT drawn = DrawGameFrame(screens);
    if (drawn == DDERR_SURFACELOST) {
        RestoreSurfaces();
    } else if (Failed(drawn)) {
        return drawn;
    }
    lastFrameTick = GetTickCount();
    return S_OK;
}

bool StartUp() {
    SetEmergencySave(SaveAll);
    BeginAutosave();
    RecallWindowScale();
    if (Failed(CreateMainWindow(mainWindow))) {
        SetEmergencySave({});
        TellOnTerminal(
            "There is no display for a window. Start the game from a desktop, or name one by "
            "DISPLAY or WAYLAND_DISPLAY.");
        return false;
    }
    std::atexit(EndWithoutWindow);  // after the desktop was made, so that it ends before that
    if (Failed(InitDisplay(mainWindow))) {
        ShowError("DirectDraw init failed. Korvane will now exit. ");
        return false;
    }
    StartAudio();
    showFps = false;
    focusShowing = false;
    ChooseGameClock();
    SetStage();
    nextFigureCheat = false;
    theMusic.SetScreenQuiet(MusicScreen::Menu);
    // Whoever ends the program in the first dialog does not see its window come up.
    const bool ending =
        theSettings.showAdvancedAtStart && DialogBox(kAdvancedDlg, mainWindow, AdvancedDlg) < 0;
    if (!ending) {
        ShowWindow(mainWindow);
        theMusic.Play();
    }
    lastFrameTick = GetTickCount();
    return true;
}

std::optional<int> RunLoopPass() {
    MSG message;
    if (PeekMessage(message, PM_NOREMOVE)) {
        if (!GetMessage(message)) return static_cast<int>(message.wParam);
        if (IsFreshPress(message, VK_ESCAPE)) OnEscape();
        if (!TranslateAccelerator(mainWindow, kAccelerators, message) && !TranslateSizeKey(message))
            DispatchMessage(message);
    } else if (!appActive) {
        SaveChanges();
        WaitMessage();
    } else if (Failed(RenderFrame(mainWindow))) {
        currentDisplay.reset();
        ShowError("Displaying the next frame failed. Korvane will now exit. ");
        // A program that ends because it cannot draw leaves scores and keys as they were.
        theHighScoreScreen.reset();
        theMenuScreen.reset();
        return 0;
    } else {
        SaveChanges();  // out of the pause between two frames
    }
    return std::nullopt;
}

int RunProgram() {
    // What is given back when memory runs out: enough to save, and for a box.
    auto reserve = std::make_unique_for_overwrite<std::byte[]>(std::size_t{1} << 20);
    try {
        if (!StartUp()) return 0;
        for (;;) {
            if (const std::optional<int> exitCode = RunLoopPass()) return *exitCode;
        }
    } catch (const std::bad_alloc&) {
        reserve.reset();
        return EndWithoutMemory();
    }
}

}  // namespace korvane
