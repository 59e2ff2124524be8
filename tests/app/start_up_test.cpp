#include <sys/stat.h>

#include <array>
#include <new>
#include <tuple>

#include "app/program.h"
#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
#include "platform/draw/theme.h"
#include "platform/headless/headless_host.h"
#include "screens/high_score_screen.h"
#include "screens/menu_action.h"
#include "screens/skin_reload.h"
#include "tests/support/bmp_writer.h"
#include "tests/support/dialog_script.h"
#include "tests/support/program_fixture.h"
#include "tests/support/shown_box.h"
#include "tests/support/test_skin.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

const std::string kNoMode = "This display card does not support 640x480x8. ";
const std::string kNoStart = "DirectDraw init failed. Korvane will now exit. ";
const std::string kNoSwitch = "InitDirectDraw() failed. Korvane will now exit. ";

/// The program with the pictures of the game screen as well.
class StartUpTest : public ProgramFixture {
  protected:
    void SetUp() override {
        ProgramFixture::SetUp();
        WriteTestSkin(folder, "Original");
    }

    /// Whether the program that has ended was asked to: its message is taken.
    static bool TakesQuit() {
        DestroyWindow(mainWindow);
        MSG quit;
        return PeekMessage(quit, PM_REMOVE);
    }
};

TEST_F(StartUpTest, AGameCanBePlayedWithBrokenPictures) {
    using File = const fs::path&;
    const auto square = [this](int side) {
        return [=, this](File file) {
            folder.Write(fs::relative(file, folder.Path()),
                         MakeBmp({.width = side, .height = side}));
        };
    };
    const std::pair<const char*, std::function<void(File)>> damages[] = {
        {"missing", [](File) {}},
        {"empty", [](File file) { std::ofstream{file}; }},
        {"a pipe", [](File file) { ASSERT_EQ(mkfifo(file.c_str(), 0600), 0); }},
        {"a folder", [](File file) { fs::create_directory(file); }},
        {"one pixel", square(1)},
        {"too small", square(7)},
        {"too large", square(700)},
    };
    for (const auto& [what, damage] : damages) {
        SCOPED_TRACE(what);
        SetUp();
        const fs::path skins = folder.Path() + "/Skins";
        for (const auto& entry : fs::recursive_directory_iterator(skins)) {
            if (entry.path().extension() != ".bmp") continue;
            fs::remove(entry.path());
            damage(entry.path());
        }
        theSettings.scrollingPieces = true;
        Start();
        for (const std::uint8_t key : {VK_F3, VK_UP, VK_LEFT, VK_DOWN, VK_RIGHT})
            Press(key);
        EXPECT_EQ(Passes(300), std::nullopt);
        EXPECT_TRUE(leftPlayer->IsRunning());
        EXPECT_GT(rightPlayer->CurrentFigure()->Row(), 0);
        Headless().Push({.type = HostEventType::Terminate});
        EXPECT_EQ(Passes(10), 0);
        EXPECT_FALSE(Headless().IsOpen() || rightPlayer);
        EXPECT_TRUE(Headless().Reports().empty()) << "data and pictures never report errors";
        fs::remove_all(skins);
    }
}

TEST_F(StartUpTest, WithoutADisplayTheProgramEnds) {
    Headless().RefuseWindow(true);
    EXPECT_EQ(RunProgram(), 0);
    EXPECT_EQ(Headless().Reports().size(), 1u) << "a line on the terminal";
}

TEST_F(StartUpTest, WhereNoSkinCanBeReadTheScreenSaysSoAndNoBoxDoes) {
    // Full screen may round the text's colour.
    const auto rounded = [](std::uint32_t pixel) { return pixel & 0xF8FCF8; };
    const auto isInk = [&](std::uint32_t pixel) { return rounded(pixel) == rounded(kTextColour); };
    const auto hasWords = [&] { return std::ranges::count_if(Headless().Picture(), isInk) > 1000; };
    const fs::path skins = folder.Path() + "/Skins";
    const fs::path away = folder.Path() + "/away";
    for (const char* left : {"nothing", "Skins/Original/readme", "Skins/Original/deep/in/a.bmp",
                             "Skins/Other/a.bmp"}) {
        SCOPED_TRACE(left);
        fs::rename(skins, away);
        folder.Write(left, {});
        const BoxAnswerer boxes({});
        Start();
        EXPECT_EQ(boxes.Read(), std::vector<std::string>());
        EXPECT_TRUE(hasWords());
        Press(VK_F3);
        EXPECT_EQ(Passes(20), std::nullopt);
        EXPECT_TRUE(hasWords());
        Headless().PushKey(VK_F11, true);
        Passes(6);
        EXPECT_TRUE(Headless().IsFullScreen() && hasWords());
        Headless().PushKey(VK_F11, true);
        Passes(6);
        fs::remove_all(skins);
        fs::rename(away, skins);
        ReloadSkinGraphics();
        Passes(2);
        EXPECT_FALSE(hasWords());
        End();
    }
}

TEST_F(StartUpTest, WhenTheDisplayNeverAnswersAllFourFilesAreSaved) {
    Start();
    theHighScoreScreen->Submit(Side::Right, 5000, 1, 1);
    keyBindings.Key(Action::Drop, Side::Left) = 'X';
    theLevelTable.version = 152;
    theSettings.players = 2;
    Headless().SaveInEmergency();
    EXPECT_EQ(folder.Read("data/hs.dat").at(22), std::byte{5000 & 0xFF});
    EXPECT_EQ(folder.Read("data/keys.dat").at(6), std::byte{'X'});
    EXPECT_EQ(folder.Read("data/sync.dat").at(0), std::byte{152});
    EXPECT_EQ(folder.Read("data/menu.dat").at(0), std::byte{2});
}

/// Files of a folder; reading one with this name takes more memory than there is.
class MemoryEater final : public Files {
    using Path = std::string_view;
    using Bytes = std::span<const std::byte>;

  public:
    explicit MemoryEater(const std::string& folder) : files_(OpenDiskFiles(folder)) {}
    ReadResult TryRead(Path path, std::size_t cap) override {
        if (hungry && path.ends_with("pause.bmp")) throw std::bad_alloc();
        return files_->TryRead(path, cap);
    }
    bool Replace(Path path, Bytes bytes) override { return files_->Replace(path, bytes); }
    bool Delete(Path path, Bytes bytes) override { return files_->Delete(path, bytes); }
    std::optional<std::vector<FolderEntry>> List(Path path) override { return files_->List(path); }

    bool hungry = false;

  private:
    const std::unique_ptr<Files> files_;
};

TEST_F(StartUpTest, WhenMemoryRunsOutTheGameIsSavedAndTheUserTold) {
    auto files = std::make_unique<MemoryEater>(folder.Path());
    MemoryEater& eater = *files;
    Headless().UseFiles(std::move(files));
    theSettings.showAdvancedAtStart = true;
    const auto play = [&] {
        eater.hungry = theHighScoreScreen->Submit(Side::Right, 5000, 1, 1) == 0;
    };
    const auto isBox = [] { EXPECT_EQ(ShownDialog(), nullptr); };
    const DialogScript script({play, VK_RETURN, isBox, VK_RETURN});
    EXPECT_EQ(RunProgram(), 1);
    EXPECT_TRUE(script.WentAsWritten());
    EXPECT_EQ(folder.Read("data/hs.dat").at(22), std::byte{5000 & 0xFF});
    EXPECT_TRUE(TakesQuit());
}

TEST_F(StartUpTest, TheProgramWaitsWhileAnotherHasTheDisplay) {
    for (const HRESULT state : {DDERR_NOEXCLUSIVEMODE, DDERR_EXCLUSIVEMODEALREADYSET}) {
        SetUp();
        Start();
        Headless().SetDisplayState(state);
        const std::uint32_t before = Headless().Milliseconds();
        const int presents = Headless().Presents();
        EXPECT_EQ(Passes(50), std::nullopt);
        EXPECT_EQ(Headless().Milliseconds() - before, 500u) << "10 ms of sleep a frame";
        EXPECT_EQ(Headless().Presents(), presents);
        Headless().SetDisplayState(S_OK);
        Press(VK_F3);
        Passes(4);
        EXPECT_GT(Headless().Presents(), presents);
        End();
    }
}

TEST_F(StartUpTest, AfterAChangeOfModeThePicturesAreLoadedAgain) {
    Start();
    EXPECT_EQ(Headless().IconSize(), (SIZE{32, 32}));
    Press(VK_F3);
    Passes(6);
    const std::uint32_t frame = Headless().PixelAt(336, 200);
    ASSERT_NE(frame, 0u);
    Headless().SetDisplayState(DDERR_WRONGMODE);
    Passes(1);
    Headless().SetDisplayState(S_OK);
    Passes(6);
    EXPECT_EQ(Headless().PixelAt(336, 200), frame);
    Headless().FailPresents({DDERR_SURFACELOST});
    EXPECT_EQ(Passes(6), std::nullopt);
    EXPECT_EQ(Headless().PixelAt(336, 200), frame);
}

TEST_F(StartUpTest, FramesAreTenMillisecondsApartAreCountedAndStopWhileMinimised) {
    Start();
    theMatch = {};
    showFps = true;
    const std::uint32_t start = Headless().Milliseconds();
    Passes(101);
    EXPECT_EQ(Headless().Milliseconds() - start, 1010u);
    EXPECT_EQ(theMatch.frameRateText, "");
    Passes(1);
    EXPECT_EQ(theMatch.frameRateText, "101");
    for (const std::uint32_t days : {20u, 26u, 49u}) {
        Headless().Advance(days * 86'400'000);
        const std::uint32_t before = Headless().Milliseconds();
        Passes(1);
        EXPECT_LE(Headless().Milliseconds() - before, 10u) << "after " << days << " days";
    }

    Headless().Push({.type = HostEventType::Minimized});
    int waits = 0;
    Headless().WhenWaiting([&] {
        ++waits;
        Headless().Push({.type = HostEventType::Restored});
    });
    Passes(6);
    EXPECT_TRUE(appActive);
    EXPECT_EQ(waits, 1);
}

TEST_F(StartUpTest, BehindAnotherWindowGamesArePausedAndAreSeenToBe) {
    Start();
    Press(VK_F3);
    Press('P');
    Passes(3);
    constexpr std::uint32_t kPausePlate = 0x202070;
    const auto seen = [] { return Headless().PixelAt(90, 200 + GetSystemMetrics(SM_CYMENU)); };
    EXPECT_NE(seen(), kPausePlate);
    Headless().Push({.type = HostEventType::Deactivated});
    Headless().WhenWaiting([&] {
        EXPECT_TRUE(rightPlayer->IsPaused() && leftPlayer->IsPaused());
        EXPECT_EQ(seen(), kPausePlate);
        leftPlayer->TogglePause();
        Headless().Push({.type = HostEventType::Activated});
    });
    Passes(5);
    EXPECT_TRUE(rightPlayer->IsPaused() && leftPlayer->IsPaused());
    EXPECT_TRUE(appActive);
    Press('T');
    EXPECT_FALSE(leftPlayer->IsPaused());
}

TEST_F(StartUpTest, FullScreenAndBackShowsTheSamePicture) {
    Start();
    Press(VK_F3);
    const RECT place = Headless().ClientArea();
    for (std::uint32_t round = 0; round < 100; ++round) {
        SCOPED_TRACE(round);
        theSettings.fullscreenBpp = std::array{8u, 15u, 16u, 24u, 32u}[round % 5];
        Headless().PushKey(VK_RETURN, true, kModAlt);
        Passes(6);
        ASSERT_TRUE(Headless().IsFullScreen());
        ASSERT_FALSE(theSettings.windowed);
        ASSERT_EQ(GetMenu(mainWindow), nullptr);
        ASSERT_NE(Headless().PixelAt(336, 200), 0u);
        Headless().PushKey(VK_F11, true);
        Passes(6);
        ASSERT_FALSE(Headless().IsFullScreen());
        ASSERT_TRUE(Headless().ClientArea() == place);
        ASSERT_EQ(Headless().PixelAt(336, 200 + GetSystemMetrics(SM_CYMENU)), 0x5B6B8Cu);
    }
}

TEST_F(StartUpTest, AFullScreenThatFailsIsToldAndEndsTheProgram) {
    // At the start, or later: then perhaps with Quit pressed just before, which is carried out
    // while the first box is open.
    for (const auto& [depth, refused, starts, quits] : {std::tuple{0u, false, true, false},
                                                        {23u, false, true, false},
                                                        {16u, true, true, false},
                                                        {16u, true, false, false},
                                                        {16u, true, false, true}}) {
        SetUp();
        theSettings.windowed = !starts;
        theSettings.fullscreenBpp = depth;
        if (!starts) Start();
        Headless().RefuseFullScreen(refused);
        const BoxAnswerer boxes({kNoMode, kNoStart, kNoSwitch});
        if (quits) {
            pendingClick = kMenuQuit;
            SetTimer(mainWindow, 3, 0);
        }
        if (!starts) Headless().PushKey(VK_RETURN, true, kModAlt);
        EXPECT_EQ(starts ? RunProgram() : Passes(20), 0);
        if (!quits) {
            EXPECT_EQ(boxes.Read(), (std::vector{kNoMode, starts ? kNoStart : kNoSwitch}));
        }
        EXPECT_EQ(Headless().IsOpen(), starts);
        EXPECT_FALSE(Headless().IsVisible());
        EXPECT_EQ(TakesQuit(), starts);
    }
}

}  // namespace
}  // namespace korvane
