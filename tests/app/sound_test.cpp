#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "audio/music_player.h"
#include "game/frame/game_frame.h"
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
using SoundTest = ProgramFixture;

TEST_F(SoundTest, EveryMissingFileIsShownInTheOrderOfLoading) {
    std::filesystem::remove_all(folder.Path() + "/Skins/Original/Audio");
    Lines shown = {"Skins\\Original\\audio\\sniffit.xm can't be loaded!\n(error code: 1)"};
    const auto addEffects = [&](const Lines& names) {
        for (const std::string& name : names)
            shown.push_back("skins\\Original\\audio\\" + name +
                            ".wav can't be loaded!\n(error code: 1)");
    };
    const Lines ofBothPlayers = {"Landed", "Rotate", "Single", "Double", "Triple", "Tetris",
                                 "Landed", "Rotate", "Single", "Double", "Triple", "Tetris"};
    addEffects({"NewLevel", "Button"});
    addEffects(ofBothPlayers);
    const BoxAnswerer boxes(shown);
    Start();
    EXPECT_EQ(boxes.Read(), shown);
    EXPECT_TRUE(audioReady);
    // Another skin: its music is not missed.
    theSettings.skinName = "Other";
    ReloadSkinAudio();
    addEffects(ofBothPlayers);
    addEffects({"Button", "NewLevel"});
    EXPECT_EQ(boxes.Read(), shown);
}

TEST_F(SoundTest, TheMusicFollowsTheScreensAndTheSkin) {
    constexpr std::string_view kText = "FILENAME:\nsniffit.xm\nGAME START POSITION:\n3\n";
    WriteTestAudio(folder, "Other");
    folder.Write("Skins/Other/Audio/module.txt", std::as_bytes(std::span(kText)));
    theSettings.soundEffects = false;
    const auto command = [](std::uint16_t id) { return [id] { Command(id); }; };
    const auto changeSkin = [](const char* name) {
        return [name] {
            theSettings.skinName = name;
            ReloadSkinAudio();
        };
    };
    const std::tuple<const char*, std::function<void()>, int> steps[] = {
        {"start", [this] { Start(); }, kMenuOrder},
        {"high scores", command(kCmdHighScores), kHighScoreOrder},
        {"back", command(kCmdHighScores), kMenuOrder},
        {"new game", command(kCmdNewGame), kGameOrder},
        {"menu", command(kCmdGotoMenu), kMenuOrder},
        {"right game", command(kCmdRightRestart), kGameOrder},
        {"no high scores during a game", command(kCmdHighScores), kGameOrder},
        {"the game ends", [this] { EndGame(*rightPlayer, 1); }, kHighScoreOrder},
        {"left game", command(kCmdLeftRestart), kGameOrder},
        {"another skin", changeSkin("Other"), 3},
        {"a skin without sounds", changeSkin("Bare"), kGameOrder},
        {"off", command(kCmdMusic), -1},
        {"menu while off", command(kCmdGotoMenu), -1},
        {"on", command(kCmdMusic), kMenuOrder},
        {"Start on the menu", [this] { Click(170, 410); }, kMenuOrder},
        {"when it acts", [this] { Run(kPressedLookPassed); }, kGameOrder},
    };
    for (const auto& [what, act, heard] : steps) {
        act();
        EXPECT_EQ(HeardOrder(), heard) << what;
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

TEST_F(SoundTest, ADeviceThatComesLaterIsTakenUp) {
    const std::string kNoDevice = "Can't initialize digital sound system\n(error code: 3)";
    const auto find = [] {
        Headless().RefuseSound(false);
        Headless().Push({.type = HostEventType::SoundFound});
    };
    const auto nothing = [] {};
    const auto inBox = [=] {
        find();
        Headless().PushKey(VK_RETURN, true);
    };
    const auto leave = [] { SendMessage(mainWindow, WM_ACTIVATE, WA_INACTIVE, 0); };
    const auto newGame = [] { Command(kCmdNewGame); };
    const auto highScores = [] { Command(kCmdHighScores); };
    const std::tuple<const char*, std::function<void()>, std::function<void()>, int> kCases[] = {
        {"menu", nullptr, nothing, kMenuOrder},
        {"game", nullptr, newGame, kGameOrder},
        {"scores", nullptr, highScores, kHighScoreOrder},
        {"behind another window", nullptr, leave, -1},
        {"while the box is open", inBox, nothing, kMenuOrder},
    };
    for (const auto& [what, answer, act, heard] : kCases) {
        SCOPED_TRACE(what);
        SetUp();
        Headless().RefuseSound(true);
        const BoxAnswerer boxes({kNoDevice});
        if (answer) Headless().WhenWaiting(answer);
        Start();
        EXPECT_EQ(audioReady, answer != nullptr);
        EXPECT_EQ(boxes.Read(), answer ? Lines() : Lines{kNoDevice});
        act();
        find();
        find();
        Headless().WhenWaiting([] { Headless().Push({.type = HostEventType::Moved}); });
        Passes(8);
        EXPECT_EQ(HeardOrder(), heard);
        theSettings.music = false;
        theMusic.Stop();
        Headless().Hear(kSoundBufferFrames);
        menuShowing = true;
        Click(170, 190);
        EXPECT_GT(PeakOf(Headless().Hear(kSoundBufferFrames)), 0) << "a button of the menu";
        theSettings.music = true;
        End();
        EXPECT_FALSE(Headless().IsSoundOpen());
    }
    SetUp();
    Headless().RefuseSound(true);
    const BoxAnswerer boxes({kNoDevice});
    Start();
    EXPECT_TRUE(Headless().IsSoundOpen());
    End();
    EXPECT_FALSE(Headless().IsSoundOpen()) << "none is looked for any more";
}

TEST_F(SoundTest, PressesOnTheMenuAreHeardExceptTheWayOut) {
    theSettings.music = false;
    Start();
    for (const auto& [what, x, y, mask, heard] : {std::tuple{"nothing", 5, 475, 31, false},
                                                  {"two players", 170, 190, 31, true},
                                                  {"not wanted", 170, 150, 30, false},
                                                  {"quit", 290, 410, 31, false}}) {
        theSettings.sfxMask = static_cast<std::uint8_t>(mask);
        Click(x, y);
        EXPECT_EQ(PeakOf(Headless().Hear(kSoundBufferFrames)) > 0, heard) << what;
    }
}

}  // namespace
}  // namespace korvane
