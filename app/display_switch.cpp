#include "app/display_switch.h"

#include "app/main_window.h"
#include "app/settings.h"
#include "audio/music_player.h"
#include "game/game_art.h"
#include "game/game_frame.h"
#include "gfx/bitmap_font.h"
#include "gfx/display.h"
#include "res/menu.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"

namespace korvane {
namespace {

HRESULT OpenWindow(HWND window) {
    const HRESULT result = currentDisplay->OpenWindowed(window, kFrameWidth, kFrameHeight);
    if (Failed(result)) return result;
    SetWindowLong(window, GWL_STYLE, GetWindowLong(window, GWL_STYLE) | WS_SYSMENU);
    SetMenu(window, LoadMenu(kWindowMenu));
    return result;
}

HRESULT OpenWholeScreen(HWND window) {
    const HRESULT result =
        currentDisplay->OpenFullScreen(window, kFrameWidth, kFrameHeight, theSettings.fullscreenBpp,
                                       theSettings.fullscreenRefresh);
    if (Failed(result)) {
        ShowError("This display card does not support 640x480x8. ");
        return result;
    }
    SetMenu(window, nullptr);
    SetWindowLong(window, GWL_STYLE, GetWindowLong(window, GWL_STYLE) & ~WS_SYSMENU);
    return result;
}

}  // namespace

HRESULT SwitchDisplayMode(HWND window, bool windowed) {
    currentDisplay.reset();
    currentDisplay = std::make_unique<Display>();
    const HRESULT result = windowed ? OpenWindow(window) : OpenWholeScreen(window);
    if (Failed(result)) return result;
    ReloadSkinGraphics();
    return S_OK;
}

bool ReloadSkinGraphics() {
    if (currentDisplay) {
        currentDisplay->FrontBuffer()->Restore();
        currentDisplay->BackBuffer()->Restore();
    }
    if (theFont) theFont->Reload();
    if (theMenuScreen) theMenuScreen->ReloadPictures();
    if (theHighScoreScreen) theHighScoreScreen->ReloadPictures();
    theGameArt.Reload();
    return true;
}

void ReloadSkinAudio() {
    rightPlayer->LoadPlayerSounds();
    leftPlayer->LoadPlayerSounds();
    theMenuScreen->LoadButtonSound();
    theGameArt.LoadLevelSound();
    theMusic.Load();
    theMusic.Play();
}

}  // namespace korvane
