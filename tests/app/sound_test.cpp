#include <algorithm>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "audio/music_player.h"
#include "game/frame/game_frame.h"
#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "res/commands.h"
#include "screens/skin_reload.h"
#include "tests/support/heard.h"
#include "tests/support/program_fixture.h"
#include "tests/support/shown_box.h"
#include "tests/support/test_audio.h"

namespace korvane {
namespace {

constexpr int kMenuOrder = 0;
constexpr int kGameOrder = 8;
constexpr int kHighScoreOrder = 54 % 12;

using Lines = std::vector<std::string>;

/// What was asked for since the journal had so many lines, without the handles, which depend on
/// what ran before.
Lines AskedSince(std::size_t lines) {
    const Lines& journal = Headless().SoundJournal();
    Lines asked(journal.begin() + static_cast<std::ptrdiff_t>(lines), journal.end());
    for (std::string& line : asked) {
        const std::size_t blank = line.find(' ');
        if (blank == std::string::npos || line[blank + 1] < '0' || line[blank + 1] > '9') continue;
        line.erase(blank, line.find(' ', blank + 1) - blank);
    }
    return asked;
}

/// The same without what lets go of something.
Lines LoadedSince(std::size_t lines) {
    Lines asked = AskedSince(lines);
    std::erase_if(asked, [](const std::string& line) {
        return line.ends_with("Free") || line == "ChannelStop";
    });
    return asked;
}

/// The lines of an effect that is loaded from the Original skin, or first in vain from another.
void AddLoads(Lines& lines, const std::string& skin, std::initializer_list<const char*> names) {
    for (const std::string name : names) {
        lines.push_back(std::string("SampleLoad Skins\\") + skin + "\\Audio\\" + name + ".wav");
        if (skin != "Original")
            lines.push_back("SampleLoad skins\\Original\\audio\\" + name + ".wav");
    }
}

using SoundTest = ProgramFixture;

TEST_F(SoundTest, WithoutADeviceTheUserIsToldOnceAndPlaysInSilence) {
    Headless().RefuseSound(true);
    const Lines told = {"Can't initialize digital sound system\n(error code: 3)"};
    const BoxAnswerer boxes(told);
    Start();
    EXPECT_FALSE(audioReady);
    Press(VK_F3);
    Run(2000);
    EXPECT_TRUE(rightPlayer->IsRunning());
    Command(kCmdMusic);
    End();
    EXPECT_EQ(boxes.Read(), told);
    EXPECT_EQ(Headless().SoundJournal(), (Lines{"Init", "Start", "Stop", "Free"}));
}

TEST_F(SoundTest, ADeviceThatGoesIsNotMissedAndComesBack) {
    Start();
    Headless().LoseSound(true);
    Press(VK_F3);
    Run(2000);
    EXPECT_TRUE(rightPlayer->IsRunning());
    EXPECT_EQ(HeardOrder(), -1);
    Headless().LoseSound(false);
    EXPECT_EQ(HeardOrder(), kGameOrder);
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

constexpr const char* kLoadOriginalMusic = "MusicLoad Skins\\Original\\Audio\\sniffit.xm";

TEST_F(SoundTest, StartAndEndAskInTheirOrder) {
    Start();
    Lines wanted = {"Init", "Start", kLoadOriginalMusic};
    AddLoads(wanted, "Original", {"NewLevel", "Button"});
    for (int player = 0; player < 2; ++player)
        AddLoads(wanted, "Original", {"Landed", "Rotate", "Single", "Double", "Triple", "Tetris"});
    wanted.insert(wanted.end(), {"MusicPlayEx 0", "ChannelResume"});
    EXPECT_EQ(LoadedSince(0), wanted);
    const std::size_t running = AskedSince(0).size();
    End();
    EXPECT_EQ(AskedSince(running), (Lines{"ChannelStop", "MusicFree", "Stop", "Free"}));
}

TEST_F(SoundTest, ASkinWithoutSoundsHasThoseOfTheOriginal) {
    Start();
    const std::size_t running = AskedSince(0).size();
    theSettings.skinName = "Bare";
    ReloadSkinAudio();
    Lines wanted;
    for (int player = 0; player < 2; ++player)
        AddLoads(wanted, "Bare", {"Landed", "Rotate", "Single", "Double", "Triple", "Tetris"});
    AddLoads(wanted, "Bare", {"Button", "NewLevel"});
    wanted.insert(wanted.end(), {kLoadOriginalMusic, "MusicPlayEx 0"});
    EXPECT_EQ(LoadedSince(running), wanted);
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
    theSettings.sfxMask = 31;
    theSettings.soundEffects = false;
    Click(170, 150);
    EXPECT_EQ(PeakOf(Headless().Hear(kSoundBufferFrames)), 0) << "switched off";
}

}  // namespace
}  // namespace korvane
