#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <vector>

#include "app/process_state.h"
#include "app/program.h"
#include "app/settings.h"
#include "game/game_frame.h"
#include "platform/headless/headless_host.h"
#include "screens/menu_action.h"
#include "tests/support/bmp_writer.h"
#include "tests/support/shown_box.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_audio.h"
#include "tests/support/test_skin.h"

namespace korvane {
namespace {

/// The whole program on the headless machine, in a folder of its own.
class StartUpTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        Headless().UseFolder(folder.Path());
        WriteTestAudio(folder, "Original");
        theSettings.SetDefaults();
        theSettings.showAdvancedAtStart = false;
        menuShowing = true;
        highScoresShowing = appActive = false;
    }

    static std::optional<int> Passes(int count) {
        std::optional<int> exitCode;
        for (int i = 0; i < count && !exitCode; ++i)
            exitCode = RunLoopPass();
        return exitCode;
    }

    static void Tap(std::uint8_t key) {
        Headless().PushKey(key, true);
        Passes(4);
        Headless().PushKey(key, false);
        Passes(4);
    }

    /// Ends the program as the session's end does.
    static void End() {
        Headless().Push({.type = HostEventType::Terminate});
        EXPECT_EQ(Passes(10), 0);
        EXPECT_FALSE(Headless().IsOpen());
        EXPECT_FALSE(rightPlayer);
    }

    /// Starts, plays a two-player game for some seconds and ends.
    static void PlayAndEnd() {
        ASSERT_TRUE(StartUp());
        Passes(20);
        Tap(VK_F3);
        for (const std::uint8_t key : {VK_UP, VK_LEFT, VK_DOWN, VK_RIGHT})
            Tap(key);
        EXPECT_EQ(Passes(300), std::nullopt);
        EXPECT_TRUE(leftPlayer->IsRunning());
        EXPECT_GT(rightPlayer->CurrentFigure()->Row(), 0);
        End();
        EXPECT_TRUE(Headless().Reports().empty()) << "data and pictures never report errors";
    }

    /// Every picture of the test skin becomes something else.
    template <typename Change>
    void ChangeEveryPicture(Change change) {
        WriteTestSkin(folder, "Original");
        const std::filesystem::path skin = folder.Path() + "/Skins/Original";
        for (const auto& entry : std::filesystem::recursive_directory_iterator(skin))
            if (entry.path().extension() == ".bmp") change(entry.path());
    }

    TemporaryFolder folder;
};

TEST_F(StartUpTest, PlaysWithoutAnyPicture) {
    PlayAndEnd();
}

TEST_F(StartUpTest, PlaysWithEveryKindOfBrokenPicture) {
    using Path = std::filesystem::path;
    struct Damage {
        const char* what;
        void (*apply)(const Path&);
    };
    const Damage damages[] = {
        {"empty", [](const Path& file) { std::filesystem::resize_file(file, 0); }},
        {"cut in the header", [](const Path& file) { std::filesystem::resize_file(file, 30); }},
        {"cut in the pixels",
         [](const Path& file) {
             std::filesystem::resize_file(file, std::filesystem::file_size(file) - 1);
         }},
        {"huge",
         [](const Path& file) { std::filesystem::resize_file(file, std::uintmax_t{1} << 40); }},
        {"a pipe",
         [](const Path& file) {
             std::filesystem::remove(file);
             ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
         }},
        {"a folder",
         [](const Path& file) {
             std::filesystem::remove(file);
             std::filesystem::create_directory(file);
         }},
    };
    for (const Damage& damage : damages) {
        SCOPED_TRACE(damage.what);
        SetUp();
        ChangeEveryPicture(damage.apply);
        PlayAndEnd();
        std::filesystem::remove_all(folder.Path() + "/Skins");
    }
}

TEST_F(StartUpTest, PlaysWithPicturesOfOtherSizes) {
    for (const int side : {1, 7, 700}) {
        SCOPED_TRACE(side);
        SetUp();
        ChangeEveryPicture([&](const std::filesystem::path& file) {
            const std::string name = std::filesystem::relative(file, folder.Path()).string();
            folder.Write(name, MakeBmp({.width = side, .height = side}));
        });
        PlayAndEnd();
    }
}

TEST_F(StartUpTest, AMissingDisplayEndsTheProgram) {
    Headless().RefuseWindow(true);
    EXPECT_EQ(RunProgram(), 0);
    EXPECT_TRUE(Headless().Reports().empty()) << "no window, no message";
}

TEST_F(StartUpTest, AFullScreenThatCannotBeHadIsToldAndEndsTheProgram) {
    struct Case {
        std::uint32_t depth;
        bool refused;
    };
    for (const Case& c : {Case{0, false}, Case{24, false}, Case{16, true}}) {
        SetUp();
        theSettings.windowed = false;
        theSettings.fullscreenBpp = c.depth;
        Headless().RefuseFullScreen(c.refused);
        const std::vector<std::string> told = {"This display card does not support 640x480x8. ",
                                               "DirectDraw init failed. Korvane will now exit. "};
        const BoxAnswerer boxes(told);
        EXPECT_EQ(RunProgram(), 0);
        EXPECT_EQ(boxes.Read(), told);
        EXPECT_FALSE(Headless().IsVisible());
        DestroyWindow(mainWindow);
        MSG quit;
        EXPECT_TRUE(PeekMessage(quit, PM_REMOVE));
    }
}

TEST_F(StartUpTest, ADisplayOfSomebodyElseIsWaitedFor) {
    WriteTestSkin(folder, "Original");
    for (const HRESULT state : {DDERR_NOEXCLUSIVEMODE, DDERR_EXCLUSIVEMODEALREADYSET}) {
        SetUp();
        ASSERT_TRUE(StartUp());
        Passes(10);
        Headless().SetDisplayState(state);
        const std::uint32_t before = Headless().Milliseconds();
        const int presents = Headless().Presents();
        EXPECT_EQ(Passes(50), std::nullopt);
        EXPECT_EQ(Headless().Milliseconds() - before, 500u) << "10 ms asleep each time";
        EXPECT_EQ(Headless().Presents(), presents);
        Headless().SetDisplayState(S_OK);
        Tap(VK_F3);
        EXPECT_GT(Headless().Presents(), presents);
        End();
    }
}

TEST_F(StartUpTest, AChangedDisplayIsOpenedAnewWithAllPictures) {
    WriteTestSkin(folder, "Original");
    ASSERT_TRUE(StartUp());
    EXPECT_EQ(Headless().IconSize(), (SIZE{32, 32}));
    Tap(VK_F3);
    const std::uint32_t frame = Headless().PixelAt(336, 200);
    ASSERT_NE(frame, 0u);
    Headless().SetDisplayState(DDERR_WRONGMODE);
    Passes(1);
    Headless().SetDisplayState(S_OK);
    Passes(3);
    EXPECT_EQ(Headless().PixelAt(336, 200), frame);
    End();
}

TEST_F(StartUpTest, AnyOtherDisplayFailureIsFatalAndTold) {
    ASSERT_TRUE(StartUp());
    Passes(10);
    Headless().SetDisplayState(E_FAIL);
    const std::vector<std::string> told = {
        "Displaying the next frame failed. Korvane will now exit. "};
    const BoxAnswerer boxes(told);
    EXPECT_EQ(Passes(5), 0);
    EXPECT_EQ(boxes.Read(), told);
    DestroyWindow(mainWindow);
}

TEST_F(StartUpTest, FramesAreTenMillisecondsApartAndStopWhileMinimised) {
    ASSERT_TRUE(StartUp());
    Passes(10);
    const std::uint32_t start = Headless().Milliseconds();
    Passes(100);
    EXPECT_EQ(Headless().Milliseconds() - start, 1000u);

    Headless().Push({.type = HostEventType::Minimized});
    int waits = 0;
    Headless().WhenWaiting([&] {
        ++waits;
        Headless().Push({.type = HostEventType::Restored});
    });
    Passes(1);
    EXPECT_EQ(waits, 1);
    Passes(5);
    EXPECT_TRUE(appActive);
    EXPECT_EQ(waits, 1);
    End();
}

TEST_F(StartUpTest, FullScreenComesAndGoesWithTheSamePicture) {
    WriteTestSkin(folder, "Original");
    ASSERT_TRUE(StartUp());
    Tap(VK_F3);
    Passes(6);
    const RECT place = Headless().ClientArea();
    for (std::uint32_t round = 0; round < 100; ++round) {
        SCOPED_TRACE(round);
        theSettings.fullscreenBpp = 8u << round % 3;
        Headless().PushKey(VK_RETURN, true, kModAlt);
        Passes(6);
        ASSERT_TRUE(Headless().IsFullScreen());
        ASSERT_FALSE(theSettings.windowed);
        ASSERT_NE(Headless().PixelAt(336, 200), 0u);
        Headless().PushKey(VK_RETURN, true, kModAlt);
        Passes(6);
        ASSERT_FALSE(Headless().IsFullScreen());
        ASSERT_TRUE(Headless().ClientArea() == place);
        ASSERT_EQ(Headless().PixelAt(336, 200 + GetSystemMetrics(SM_CYMENU)), 0x5B6B8Cu);
    }
    End();
}

TEST_F(StartUpTest, FullScreenThatCannotBeHadEndsTheProgram) {
    for (const bool quits : {false, true}) {
        SetUp();
        ASSERT_TRUE(StartUp());
        Passes(6);
        Headless().RefuseFullScreen(true);
        const std::vector<std::string> told = {"This display card does not support 640x480x8. ",
                                               "InitDirectDraw() failed. Korvane will now exit. "};
        const BoxAnswerer boxes(told);
        if (quits) {
            // While the first box is open the click on Quit gets its turn.
            pendingClick = kMenuQuit;
            SetTimer(mainWindow, 3, 0);
        }
        Headless().PushKey(VK_RETURN, true, kModAlt);
        EXPECT_EQ(Passes(20), 0);
        if (!quits) {
            EXPECT_EQ(boxes.Read(), told);
        }
        EXPECT_FALSE(Headless().IsOpen());
    }
}

}  // namespace
}  // namespace korvane
