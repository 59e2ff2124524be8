#include "tools/korvane-skin/stage.h"

#include "game/frame/game_art.h"
#include "gfx/bitmap_font.h"
#include "gfx/display.h"
#include "platform/headless/headless_host.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"

namespace korvane {

Stage::Stage() {
    RegisterClass({"Stage", DefWindowProc});
    window_ = CreateWindowEx(0, "Stage", "", 0, {0, 0}, kFrame);
    currentDisplay = std::make_unique<Display>();
    if (Failed(currentDisplay->OpenWindowed(window_, kFrame.cx, kFrame.cy))) return;
    theGameArt.Load();
    theFont = std::make_unique<BitmapFont>();
    theMenuScreen = std::make_unique<MenuScreen>();
    theHighScoreScreen = std::make_unique<HighScoreScreen>();
}

Stage::~Stage() {
    theHighScoreScreen.reset();
    theMenuScreen.reset();
    theFont.reset();
    currentDisplay.reset();
    DestroyWindow(window_);
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
