#include "tests/support/display_fixture.h"

#include "gfx/skin.h"
#include "platform/headless/headless_host.h"

namespace korvane {

void DisplayFixture::SetUp() {
    Headless().Reset();
    Headless().UseFolder(folder.Path());
    theSettings.SetDefaults();
    skinColorKeys = {};
    RegisterClass({"Test", DefWindowProc});
    window = CreateWindowEx(0, "Test", "", 0, {0, 0}, {640, 480});
    pictureBudget.Begin();
    currentDisplay = std::make_unique<Display>();
    ASSERT_EQ(currentDisplay->OpenWindowed(window, 640, 480), S_OK);
    Clear();
}

void DisplayFixture::TearDown() {
    currentDisplay.reset();
    DestroyWindow(window);
}

std::uint32_t DisplayFixture::Shown(int x, int y) {
    EXPECT_EQ(currentDisplay->ShowFrame(), S_OK);
    return Headless().PixelAt(x, y);
}

}  // namespace korvane
