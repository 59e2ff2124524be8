#include "audio/music_player.h"

#include <functional>

#include "tests/audio/audio_fixture.h"
#include "tests/support/xm_writer.h"

namespace korvane {
namespace {

constexpr const char* kMine =
    "FILENAME:\nmine.xm\nMENU START POSITION:\n1\nGAME START POSITION:\n2\n"
    "HIGH SCORE START POSITION:\n3\n";
const ModuleChoice kMineChoice = {"mine.xm", 1, 2, 3};

class MusicPlayerTest : public AudioFixture {
  protected:
    void WriteSkin(const std::string& skin, const std::string& module) const {
        folder.Write("Skins/" + skin + "/Audio/" + module, MakeXm({}));
    }
    /// The skin in use, whole.
    void WriteMine() const {
        WriteSkin("Mine", "mine.xm");
        WriteText("Skins/Mine/Audio/module.txt", kMine);
    }

    MusicPlayer music;
};

TEST_F(MusicPlayerTest, LoadsFromTheSkinOrTheOriginal) {
    struct Case {
        const char* what;
        const char* mineText;
        const char* mineModule;
        const char* originalText;
        const char* originalModule;
        bool loaded;
        ModuleChoice choice;
    };
    constexpr const char* kOriginal = "FILENAME:\no.xm\nMENU START POSITION:\n20\n";
    const ModuleChoice kOriginalOverMine = {"o.xm", 20, 2, 3};
    const std::string annotated = kMine + std::string(kMaxModuleTextBytes - 100, 'x');
    const Case cases[] = {
        {"all of the skin", kMine, "mine.xm", kOriginal, "o.xm", true, kMineChoice},
        {"the skin's module is missing", kMine, nullptr, kOriginal, "o.xm", true,
         kOriginalOverMine},
        {"the skin's text is missing",
         nullptr,
         "sniffit.xm",
         kOriginal,
         "o.xm",
         true,
         {"o.xm", 20, 8, 54}},
        {"much below the skin's entries", annotated.c_str(), "mine.xm", kOriginal, "o.xm", true,
         kMineChoice},
        {"no text at all", nullptr, nullptr, nullptr, "sniffit.xm", true, {}},
        {"no text of the Original", kMine, nullptr, nullptr, "sniffit.xm", true, {}},
        {"nothing", nullptr, nullptr, nullptr, nullptr, false, {}},
        {"texts alone", kMine, nullptr, kOriginal, nullptr, false, kOriginalOverMine},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const TemporaryFolder own;
        Headless().UseFolder(own.Path());
        const auto write = [&](const char* skin, const char* text, const char* module) {
            const std::string audio = std::string("Skins/") + skin + "/Audio/";
            if (text) {
                const std::string_view view = text;
                own.Write(audio + "module.txt", std::as_bytes(std::span(view)));
            }
            if (module) own.Write(audio + module, MakeXm({}));
        };
        write("Mine", c.mineText, c.mineModule);
        write("Original", c.originalText, c.originalModule);
        MusicPlayer player;
        EXPECT_EQ(player.Load(), c.loaded);
        EXPECT_EQ(player.IsLoaded(), c.loaded);
        EXPECT_EQ(player.Choice(), c.choice);
        EXPECT_EQ(HeardOrder(), -1) << "loading plays nothing";
        EXPECT_TRUE(player.Play());
        EXPECT_EQ(HeardOrder(), c.loaded ? c.choice.menuPosition % kXmTones : -1);
        player.Stop();
    }
    EXPECT_TRUE(Headless().Reports().empty()) << "who loads tells the user";
}

TEST_F(MusicPlayerTest, EveryScreenHasItsPosition) {
    WriteMine();
    ASSERT_TRUE(music.Load());
    struct Step {
        const char* what;
        std::function<void()> act;
        int heard;
        bool isPlaying = true;  ///< or would be, were it switched on
    };
    const auto show = [this](MusicScreen screen) { return [=, this] { music.SetScreen(screen); }; };
    const auto turn = [](bool on) { return [=] { theSettings.music = on; }; };
    const auto play = [this] { EXPECT_TRUE(music.Play()); };
    const auto stop = [this] { music.Stop(); };
    const auto pause = [this] { music.Pause(); };
    const auto resume = [this] { music.Resume(); };
    const Step steps[] = {
        {"resumed before it plays", resume, -1, false},
        {"menu", play, 1},
        {"paused", pause, -1},
        {"resumed", resume, 1},
        {"game", show(MusicScreen::Game), 2},
        {"high scores", show(MusicScreen::HighScores), 3},
        {"no screen", show(static_cast<MusicScreen>(7)), 3},
        {"only noted", [this] { music.SetScreenQuiet(MusicScreen::Game); }, 3},
        {"played", play, 2},
        {"stopped", stop, -1, false},
        {"resumed when stopped", resume, -1, false},
        {"from the position, not from where it stopped", play, 2},
        {"paused again", pause, -1},
        {"switched off", turn(false), -1},
        {"stopped while it is off", stop, -1, false},
        {"resumed while it is off", resume, -1, false},
        {"played while it is off", play, -1},
        {"screen while it is off", show(MusicScreen::HighScores), -1},
        {"on", turn(true), -1},
        {"played again", play, 3},
    };
    for (const auto& [what, act, heard, isPlaying] : steps) {
        act();
        EXPECT_EQ(HeardOrder(), heard) << what;
        EXPECT_EQ(music.IsPlaying(), isPlaying) << what;
    }
}

TEST_F(MusicPlayerTest, TheSameScreenDoesNotRestart) {
    folder.Write("Skins/Mine/Audio/mine.xm", MakeXm({.orders = 12, .rows = 4}));
    WriteText("Skins/Mine/Audio/module.txt", kMine);
    ASSERT_TRUE(music.Load());
    music.SetScreen(MusicScreen::Game);
    Headless().Hear(kSoundRate);  // two orders on
    music.SetScreen(MusicScreen::Game);
    EXPECT_EQ(HeardOrder(), 4);
}

TEST_F(MusicPlayerTest, NegativePositionsArePassedOnByAScreenChangeAlone) {
    WriteSkin("Mine", "mine.xm");
    WriteText("Skins/Mine/Audio/module.txt",
              "FILENAME:\nmine.xm\nMENU START POSITION:\n5\nGAME START POSITION:\n-2\n");
    ASSERT_TRUE(music.Load());
    music.Play();
    ASSERT_EQ(HeardOrder(), 5);
    music.SetScreen(MusicScreen::Game);
    EXPECT_EQ(HeardOrder(), 5) << "plays on";
    music.Play();
    EXPECT_EQ(HeardOrder(), 0);
}

TEST_F(MusicPlayerTest, ScreensChangeOnlyAfterTheFirstLoad) {
    music.SetScreen(MusicScreen::Game);
    EXPECT_EQ(music.Screen(), MusicScreen::Menu);
    WriteMine();
    ASSERT_TRUE(music.Load());
    music.SetScreen(MusicScreen::Game);
    EXPECT_TRUE(music.IsPlaying());
    // Another skin without any module: what was loaded is gone and nothing is told.
    theSettings.skinName = "Other";
    EXPECT_FALSE(music.Load());
    EXPECT_TRUE(music.IsLoaded());
    EXPECT_TRUE(music.Play());
    EXPECT_EQ(HeardOrder(), -1);
    EXPECT_TRUE(Headless().Reports().empty());
}

TEST_F(MusicPlayerTest, PlayTellsWhenTheLibraryRefuses) {
    WriteMine();
    ASSERT_TRUE(music.Load());
    music.Free();
    EXPECT_FALSE(music.Play());
    EXPECT_FALSE(music.IsPlaying());
}

TEST_F(MusicPlayerTest, WithoutADeviceEverythingSucceedsInSilence) {
    WriteMine();
    audioReady = false;
    EXPECT_TRUE(music.Load());
    EXPECT_FALSE(music.IsLoaded());
    EXPECT_TRUE(music.Play());
    EXPECT_TRUE(music.IsPlaying());
    music.Stop();
    EXPECT_TRUE(music.IsPlaying()) << "there was nothing to stop";
}

}  // namespace
}  // namespace korvane
