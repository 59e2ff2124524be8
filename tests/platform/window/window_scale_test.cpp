#include "platform/window/window_scale.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "platform/window/desktop.h"
#include "platform/window/message_box.h"
#include "tests/support/menu_window.h"

namespace korvane {
namespace {

constexpr std::optional<double> kUntold;
constexpr SIZE kLargeScreen = {3838, 2134};

/// A client area of 640 x 499.
class WindowScaleTest : public MenuWindowTest {
  protected:
    /// A new window on a desktop that says this.
    void Open(const DesktopDensity& density, SIZE limit) {
        DestroyWindow(window_);
        Headless().Reset();
        Headless().SetDensity(density);
        Headless().SetClientLimit(limit);
        RegisterClass({"scale", DefWindowProc, {}});
        window_ = CreateWindowEx(0, "scale", "Scale", 0, {0, 0}, {640, 499});
        ShowWindow(window_);
        Push({});
    }
};

TEST_F(WindowScaleTest, TheDesktopIsAskedInOrderAndTheScreenLimits) {
    struct Case {
        const char* name;
        DesktopDensity density;
        SIZE limit;
        int scale;
    };
    const Case cases[] = {
        {"nothing told", {}, kLargeScreen, 1},
        {"its own scale first", {3, 192, 96}, kLargeScreen, 3},
        {"its own scale is 1", {1, 192, 192}, kLargeScreen, 1},
        {"then the fonts", {kUntold, 192, 96}, kLargeScreen, 2},
        {"then the monitor", {kUntold, kUntold, 192}, kLargeScreen, 2},
        {"rounded", {kUntold, 143, kUntold}, kLargeScreen, 1},
        {"rounded up", {kUntold, 144, kUntold}, kLargeScreen, 2},
        {"never below 1", {kUntold, 60, kUntold}, kLargeScreen, 1},
        {"a scale that is none", {0, 192, kUntold}, kLargeScreen, 2},
        {"a density that is none", {kUntold, 1e9, 192}, kLargeScreen, 2},
        {"a monitor of no size", {kUntold, kUntold, 1200}, kLargeScreen, 1},
        {"as wide as the screen", {4, {}, {}}, {1920, 5000}, 3},
        {"a pixel too narrow", {4, {}, {}}, {1919, 5000}, 2},
        {"a line too low", {4, {}, {}}, {5000, 3 * 499 - 1}, 2},
        {"smaller than the window", {4, {}, {}}, {639, 400}, 1},
    };
    for (const Case& c : cases) {
        Open(c.density, c.limit);
        EXPECT_EQ(TheHost().Scale(), c.scale) << c.name;
        EXPECT_EQ(Headless().PictureSize(), (SIZE{640 * c.scale, 499 * c.scale})) << c.name;
    }
}

TEST_F(WindowScaleTest, KeysAndEdgesChooseWholeNumbersWithinTheScreen) {
    struct Case {
        const char* name;
        std::function<void()> change;
        int scale;
        std::optional<int> chosen;
    };
    const auto drag = [this](SIZE size, int insists = 0) {
        return [=, this] {
            Push({{.type = HostEventType::EdgeDragged,
                   .x = size.cx,
                   .y = size.cy,
                   .amount = insists}});
        };
    };
    const auto step = [](int steps) { return [=] { StepWindowScale(steps); }; };
    Open({2, {}, {}}, {1930, 1600});
    // Each goes on from where the one before has left the window.
    const Case cases[] = {
        {"larger", step(1), 3, 3},
        {"no larger than the screen", step(1), 3, 3},
        {"smaller", step(-2), 1, 1},
        {"not below 1", step(-1), 1, 1},
        {"the desktop's again", [] { ChooseWindowScale(std::nullopt); }, 2, std::nullopt},
        {"more than the screen holds", [] { ChooseWindowScale(5); }, 3, 5},
        {"a desktop that insists chooses nothing", drag({1400, 1100}, 1), 3, 5},
        {"nearest below", drag({959, 748}), 1, 1},
        {"nearest above", drag({960, 749}), 2, 2},
        {"the narrower side counts", drag({5000, 600}), 1, 1},
        {"beyond the screen", drag({5000, 5000}), 3, 3},
        {"to nothing", drag({1, 1}), 1, 1},
        {"not in full screen",
         [&] {
             SetFullScreenPicture(SIZE{640, 480});
             drag({1300, 1000})();
             StepWindowScale(1);
             SetFullScreenPicture(std::nullopt);
         },
         1, 1},
    };
    for (const Case& c : cases) {
        c.change();
        Push({});
        EXPECT_EQ(TheHost().Scale(), c.scale) << c.name;
        EXPECT_EQ(ChosenWindowScale(), c.chosen) << c.name;
        EXPECT_EQ(TheHost().ClientArea().Size(), (SIZE{640, 499})) << c.name;
    }
    Headless().SetClientLimit({1400, 1100});
    drag({1400, 1100}, 1)();
    EXPECT_EQ(TheHost().Scale(), 2) << "the largest in a tile";
}

TEST_F(WindowScaleTest, APictureWhoseMemoryHasGoneIsStillUnderABoxThatCloses) {
    std::vector<std::uint32_t> pixels(640 * 480);
    std::iota(pixels.begin(), pixels.end(), 1u);
    ShownPicture& picture = TheDesktop().picture;
    ASSERT_EQ(picture.ShowGame({pixels.data(), 640, 480, 640}, {0, 19, 640, 499},
                               std::vector<RECT>{{0, 0, 640, 480}}),
              S_OK);
    Push({});
    const auto before = Headless().Picture();
    picture.ForgetGame(pixels.data());
    pixels.assign(pixels.size(), 0);
    picture.SetOverlay(Overlay::Box, Canvas({200, 100}, 1), {100, 100});
    Push({});
    EXPECT_NE(Headless().Picture(), before);
    picture.RemoveOverlay(Overlay::Box);
    Push({});
    EXPECT_EQ(Headless().Picture(), before);
}

TEST_F(WindowScaleTest, ABoxThatCannotBeShownIsToldOnTheTerminal) {
    Headless().FailPresents({DDERR_SURFACELOST, DDERR_SURFACELOST, E_FAIL, E_FAIL, E_FAIL, E_FAIL,
                             E_FAIL, E_FAIL, E_FAIL, E_FAIL});
    Headless().WhenWaiting([] { FAIL() << "it waits for an answer"; });
    MessageBox(window_, "Nobody sees this.", "Korvane", MB_ICONERROR);
    EXPECT_EQ(Headless().Reports(), (std::vector<std::string>{"Korvane: Nobody sees this."}));
}

}  // namespace
}  // namespace korvane
