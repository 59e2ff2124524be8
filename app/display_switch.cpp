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

/// Other systems count 15 bits of colours without the one that is left over, and 24 without those
/// that only fill up.
std::uint32_t DepthToOpen() {
    const std::uint32_t bits = theSettings.fullscreenBpp;
    return bits == 15 ? 16 : bits == 24 ? 32 : bits;
}

HRESULT OpenWholeScreen(HWND window) {
    const HRESULT result = currentDisplay->OpenFullScreen(
        window, kFrameWidth, kFrameHeight, DepthToOpen(), theSettings.fullscreenRefresh);
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
