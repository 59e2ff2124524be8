#include "app/display_switch.h"

#include "app/main_window.h"
#include "app/state/settings.h"
#include "gfx/display.h"
#include "res/menu.h"
#include "screens/skin_reload.h"

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

}  // namespace korvane
