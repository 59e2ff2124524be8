#include "tools/korvane-skin/stage.h"

#include "gfx/bitmap_font.h"
#include "gfx/display.h"
#include "platform/headless/headless_host.h"
#include "screens/stage.h"

namespace korvane {

StageWindow::StageWindow() {
    RegisterClass({"Stage", DefWindowProc});
    window_ = CreateWindowEx(0, "Stage", "", 0, {0, 0}, kFrame);
    currentDisplay = std::make_unique<Display>();
    currentDisplay->OpenWindowed(window_, kFrame.cx, kFrame.cy);
}

StageWindow::~StageWindow() {
    currentDisplay.reset();
    DestroyWindow(window_);
}

Stage::Stage() {
    SetStage();
}

Stage::~Stage() {
    ClearStage();
    theFont.reset();
}

std::vector<std::uint32_t> Stage::Show(const std::function<void()>& draw) {
    if (Failed(currentDisplay->ClearBackBuffer(0))) return {};
    draw();
    if (Failed(currentDisplay->ShowFrame())) return {};
    const SIZE size = Headless().PictureSize();
    if (size.cx != kFrame.cx || size.cy != kFrame.cy) return {};
    return Headless().Picture();
}

}  // namespace korvane
