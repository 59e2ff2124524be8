#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/display_switch.h"
#include "app/process_state.h"
#include "app/settings.h"
#include "audio/music_player.h"
#include "game/game_frame.h"
#include "platform/headless/headless_host.h"
#include "platform/virtual_keys.h"
#include "res/commands.h"
#include "tests/support/heard.h"
#include "tests/support/program_fixture.h"
#include "tests/support/shown_box.h"
#include "tests/support/test_audio.h"

namespace korvane {
namespace {

constexpr int kMenuOrder = 0;
constexpr int kGameOrder = 8;
constexpr int kHighScoreOrder = 54 % 12;

class SoundTest : public ProgramFixture {
  protected:
    void SetUp() override {
        ProgramFixture::SetUp();
        theSettings.showAdvancedAtStart = false;
    }
};

TEST_F(SoundTest, WithoutADeviceTheUserIsToldOnceAndPlaysInSilence) {
    Headless().RefuseSound(true);
    const std::vector<std::string> told = {
        "Can't initialize digital sound system\n(error code: 3)"};
    const BoxAnswerer boxes(told);
    Start();
    EXPECT_EQ(boxes.Read(), told);
    EXPECT_FALSE(audioReady);
    Press(VK_F3);
    Run(2000);
    EXPECT_TRUE(rightPlayer->IsRunning());
    Command(kCmdMusic);
    EXPECT_EQ(Headless().SoundOpenings(), 1);
    End();
}

TEST_F(SoundTest, EveryMissingFileIsToldInTheOrderOfLoading) {
    std::filesystem::remove_all(folder.Path() + "/Skins/Original/Audio");
    std::vector<std::string> told = {
        "Skins\\Original\\audio\\sniffit.xm can't be loaded!\n(error code: 1)"};
    for (const char* name : {"NewLevel", "Button", "Landed", "Rotate", "Single", "Double", "Triple",
                             "Tetris", "Landed", "Rotate", "Single", "Double", "Triple", "Tetris"})
        told.push_back(std::string("skins\\Original\\audio\\") + name +
                       ".wav can't be loaded!\n(error code: 1)");
    const BoxAnswerer boxes(told);
    Start();
    EXPECT_EQ(boxes.Read(), told);
    EXPECT_TRUE(audioReady);
}

TEST_F(SoundTest, TheMusicFollowsTheScreens) {
    Start();
    EXPECT_EQ(HeardOrder(), kMenuOrder);
    struct Step {
        const char* what;
        std::function<void()> act;
        int heard;
    };
    const Step steps[] = {
        {"high scores", [] { Command(kCmdHighScores); }, kHighScoreOrder},
        {"back", [] { Command(kCmdHighScores); }, kMenuOrder},
        {"new game", [] { Command(kCmdNewGame); }, kGameOrder},
        {"menu", [] { Command(kCmdGotoMenu); }, kMenuOrder},
        {"right game", [] { Command(kCmdRightRestart); }, kGameOrder},
        {"no high scores during a game", [] { Command(kCmdHighScores); }, kGameOrder},
        {"the game ends",
         [this] {
             EndGame(*rightPlayer, 1);
             Frame();
         },
         kHighScoreOrder},
        {"left game", [] { Command(kCmdLeftRestart); }, kGameOrder},
        {"off", [] { Command(kCmdMusic); }, -1},
        {"menu while off", [] { Command(kCmdGotoMenu); }, -1},
        {"on", [] { Command(kCmdMusic); }, kMenuOrder},
        {"Start on the menu",
         [this] {
             Click(170, 410);
             Run(kPressedLookPassed);
         },
         kGameOrder},
    };
    theSettings.soundEffects = false;
    for (const Step& step : steps) {
        step.act();
        EXPECT_EQ(HeardOrder(), step.heard) << step.what;
    }
}

TEST_F(SoundTest, TheMusicPausesWithTheWindow) {
    Start();
    SendMessage(mainWindow, WM_ACTIVATE, WA_INACTIVE, 0);
    EXPECT_EQ(HeardOrder(), -1);
    SendMessage(mainWindow, WM_ACTIVATE, MakeParam(WA_ACTIVE, 1), 0);
    EXPECT_EQ(HeardOrder(), -1) << "active, but minimised";
    SendMessage(mainWindow, WM_ACTIVATE, WA_ACTIVE, 0);
    EXPECT_EQ(HeardOrder(), kMenuOrder);
    End();
    EXPECT_FALSE(audioReady);
    EXPECT_FALSE(Headless().IsSoundOpen());
}

TEST_F(SoundTest, AnotherSkinBringsItsSounds) {
    Start();
    Command(kCmdNewGame);
    constexpr std::string_view kText = "FILENAME:\nsniffit.xm\nGAME START POSITION:\n3\n";
    WriteTestAudio(folder, "Other");
    folder.Write("Skins/Other/Audio/module.txt", std::as_bytes(std::span(kText)));
    theSettings.skinName = "Other";
    theSettings.soundEffects = false;
    ReloadSkinAudio();
    EXPECT_EQ(HeardOrder(), 3);
    Run(500);
    End();
}

TEST_F(SoundTest, PressesOnTheMenuAreHeardExceptTheWayOut) {
    theSettings.music = false;
    Start();
    struct Case {
        const char* what;
        int x;
        int y;
        std::uint8_t mask;
        bool heard;
    };
    for (const Case c :
         {Case{"nothing", 5, 475, 31, false}, Case{"two players", 170, 190, 31, true},
          Case{"not wanted", 170, 150, 30, false}, Case{"quit", 290, 410, 31, false}}) {
        theSettings.sfxMask = c.mask;
        Click(c.x, c.y);
        EXPECT_EQ(PeakOf(Headless().Hear(kSoundBufferFrames)) > 0, c.heard) << c.what;
    }
}

}  // namespace
}  // namespace korvane
