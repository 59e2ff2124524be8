#include "app/main_window.h"

#include "app/state/process_state.h"
#include "app/window_proc.h"
#include "platform/window/message_box.h"
#include "res/icon.h"
#include "res/menu.h"

namespace korvane {
namespace {

constexpr const char* kProgramName = "Korvane";

}  // namespace

SIZE MainWindowSize() {
    return {kFrameWidth + 2 * GetSystemMetrics(SM_CXFRAME),
            kFrameHeight + 2 * GetSystemMetrics(SM_CYFRAME) + GetSystemMetrics(SM_CYMENU) +
                GetSystemMetrics(SM_CYCAPTION)};
}

HRESULT CreateMainWindow(HWND& window) {
    constexpr std::uint32_t kStyle = WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX;
    if (!RegisterClass({kProgramName, WindowProc, kWindowMenu, kIcon})) return E_FAIL;
    window = CreateWindowEx(0, kProgramName, kProgramName, kStyle, {CW_USEDEFAULT, CW_USEDEFAULT},
                            MainWindowSize());
    return window ? S_OK : E_FAIL;
}

void ShowError(const std::string& text) {
    MessageBox(mainWindow, text, kProgramName, MB_ICONERROR);
}

}  // namespace korvane
