#include "audio/music_player.h"

#include <array>
#include <filesystem>
#include <functional>
#include <tuple>

#include "tests/audio/audio_fixture.h"
#include "tests/support/xm_writer.h"

namespace korvane {
namespace {

constexpr const char* kMine =
    "FILENAME:\nmine.xm\nMENU START POSITION:\n1\nGAME START POSITION:\n2\n"
    "HIGH SCORE START POSITION:\n3\n";

class MusicPlayerTest : public AudioFixture {
  protected:
    /// Writes module.txt and a module into a skin's folder; null: there is none.
    void WriteSkin(const std::string& skin, const char* text, const char* module,
                   const XmRecipe& recipe = {}) const {
        const std::string audio = "Skins/" + skin + "/Audio/";
        if (text) WriteText(audio + "module.txt", text);
        if (module) folder.Write(audio + module, MakeXm(recipe));
    }

    MusicPlayer music;
};

TEST_F(MusicPlayerTest, LoadsFromTheSkinOrTheOriginal) {
    constexpr const char* kOriginal = "FILENAME:\no.xm\nMENU START POSITION:\n17\n";
    const std::string annotated = kMine + std::string(kMaxModuleTextBytes - 100, 'x');
    using Name = const char*;
    using Orders = std::array<int, 3>;  // on the menu, in a game, in the high scores
    // Modules of the Original have 16 orders, so that higher positions are heard as 0.
    const std::tuple<Name, Name, Name, Name, Name, Orders> cases[] = {
        {"all of the skin", kMine, "mine.xm", kOriginal, "o.xm", {1, 2, 3}},
        {"no module of the skin", kMine, nullptr, kOriginal, "o.xm", {0, 2, 3}},
        {"no text of the skin", nullptr, "sniffit.xm", kOriginal, "o.xm", {0, 8, 0}},
        {"a long text", annotated.c_str(), "mine.xm", kOriginal, "o.xm", {1, 2, 3}},
        {"no text at all", nullptr, nullptr, nullptr, "sniffit.xm", {0, 8, 0}},
        {"no text of the Original", kMine, nullptr, nullptr, "sniffit.xm", {0, 8, 0}},
        {"nothing", nullptr, nullptr, nullptr, nullptr, {-1, -1, -1}},
        {"texts alone", kMine, nullptr, kOriginal, nullptr, {-1, -1, -1}},
    };
    for (const auto& [what, mineText, mineModule, text, module, heard] : cases) {
        SCOPED_TRACE(what);
        std::filesystem::remove_all(folder.Path() + "/Skins");
        WriteSkin("Mine", mineText, mineModule);
        WriteSkin("Original", text, module, {.orders = 16});
        MusicPlayer player;
        EXPECT_EQ(player.Load(), heard[0] >= 0);
        EXPECT_EQ(HeardOrder(), -1) << "loading plays nothing";
        EXPECT_TRUE(player.Play());
        EXPECT_EQ(HeardOrder(), heard[0]);
        player.SetScreen(MusicScreen::Game);
        EXPECT_EQ(HeardOrder(), heard[1]);
        player.SetScreen(MusicScreen::HighScores);
        EXPECT_EQ(HeardOrder(), heard[2]);
        player.Free();
    }
    EXPECT_TRUE(Headless().Reports().empty()) << "only the caller shows what fails";
}

TEST_F(MusicPlayerTest, EveryScreenHasItsPosition) {
    const auto show = [this](MusicScreen screen) { return [=, this] { music.SetScreen(screen); }; };
    const auto turn = [](bool on) { return [=] { theSettings.music = on; }; };
    const auto play = [this] { EXPECT_TRUE(music.Play()); };
    const auto stop = [this] { music.Stop(); };
    const auto pause = [this] { music.Pause(); };
    const auto resume = [this] { music.Resume(); };
    const auto load = [this](bool loads) { return [=, this] { EXPECT_EQ(music.Load(), loads); }; };
    WriteSkin("Mine", kMine, "mine.xm");
    const std::tuple<const char*, std::function<void()>, int> steps[] = {
        {"a screen before the first load", show(MusicScreen::Game), -1},
        {"load", load(true), -1},
        {"resumed before it plays", resume, -1},
        {"menu", play, 1},
        {"paused", pause, -1},
        {"resumed", resume, 1},
        {"game", show(MusicScreen::Game), 2},
        {"high scores", show(MusicScreen::HighScores), 3},
        {"no screen", show(static_cast<MusicScreen>(7)), 3},
        {"remembered alone", [this] { music.SetScreenQuiet(MusicScreen::Game); }, 3},
        {"played", play, 2},
        {"paused for a while", pause, -1},
        {"stopped while it pauses", stop, -1},
        {"resumed when stopped", resume, -1},
        {"from the position, not from where it stopped", play, 2},
        {"paused again", pause, -1},
        {"switched off", turn(false), -1},
        {"stopped while it is off", stop, -1},
        {"resumed while it is off", resume, -1},
        {"played while it is off", play, -1},
        {"a screen while it is off", show(MusicScreen::HighScores), -1},
        {"on", turn(true), -1},
        {"played again", play, 3},
        {"another skin", [] { theSettings.skinName = "Other"; }, 3},
        {"which has no module", load(false), -1},
        {"played without a module", play, -1},
    };
    for (const auto& [what, act, heard] : steps) {
        act();
        EXPECT_EQ(HeardOrder(), heard) << what;
    }
}

TEST_F(MusicPlayerTest, TheSameScreenOrANegativePositionPlaysOn) {
    WriteSkin("Mine",
              "FILENAME:\nmine.xm\nMENU START POSITION:\n-2\nHIGH SCORE START POSITION:\n1\n",
              "mine.xm", {.orders = 12, .rows = 4});
    ASSERT_TRUE(music.Load());
    music.SetScreen(MusicScreen::HighScores);
    Headless().Hear(kSoundRate);  // two orders on
    music.SetScreen(MusicScreen::HighScores);
    EXPECT_EQ(HeardOrder(), 3);
    music.SetScreen(MusicScreen::Menu);
    EXPECT_EQ(HeardOrder(), 3);
    music.Play();
    EXPECT_EQ(HeardOrder(), 0) << "a start takes it for 0";
}

TEST_F(MusicPlayerTest, PlayFailsWhenTheLibraryRefusesButNotWithoutADevice) {
    WriteSkin("Mine", kMine, "mine.xm");
    ASSERT_TRUE(music.Load());
    music.Free();
    EXPECT_FALSE(music.Play());
    audioReady = false;
    EXPECT_TRUE(music.Load());
    EXPECT_TRUE(music.Play());
    EXPECT_EQ(HeardOrder(), -1);
}

}  // namespace
}  // namespace korvane
