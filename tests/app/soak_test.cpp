// Days of play in minutes: lives of the program one after the other, with input at random and some
// games played well. In `./test` it is half an hour of play; tools/soak lets it go on for so many
// real minutes.

#include <malloc.h>

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
#include "platform/headless/headless_host.h"
#include "res/commands.h"
#include "screens/high_score_screen.h"
#include "tests/app/random_input.h"
#include "tests/support/auto_player.h"
#include "tests/support/dialog_script.h"
#include "tests/support/sound_player.h"

namespace korvane {
namespace {

using std::chrono::steady_clock;

constexpr std::uint64_t kHourMs = 3'600'000;

/// A number from the environment, where tools/soak puts its arguments.
unsigned FromEnvironment(const char* name, unsigned otherwise) {
    const char* const text = std::getenv(name);
    return text ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : otherwise;
}

/// KiB of memory that the program has asked for and not given back.
std::size_t AskedMemory() {
    const struct mallinfo2 heap = mallinfo2();
    return (heap.uordblks + heap.hblkhd) / 1024;
}

/// KiB of memory that the program occupies.
std::size_t ResidentMemory() {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm").ignore(100, ' ') >> pages;
    return pages * 4;
}

/// True when all of the last quarter lies above all of the second one; the first is for caches that
/// fill.
bool Grows(const std::vector<std::size_t>& samples) {
    const auto quarter = static_cast<std::ptrdiff_t>(samples.size() / 4);
    if (quarter < 5) return false;
    const auto second = samples.begin() + quarter;
    return *std::min_element(samples.end() - quarter, samples.end()) >
           *std::max_element(second, second + quarter);
}

class SoakTest : public RandomInput {
  protected:
    struct Watched {
        bool running = false;
        std::uint32_t figures = 0;
        int score = 0, lines = 0;
    };

    /// The program runs, and its window has not been closed.
    bool IsAlive() const { return IsRunning() && BothPlayersExist(); }

    bool IsOver() const {
        if (minutes_ == 0) return playedMs_ >= kHourMs / 2 && lives_ >= 3;
        return steady_clock::now() - begin_ >= std::chrono::minutes(minutes_);
    }

    /// From a start of the program to its end.
    void Live() {
        ++lives_;
        watched_ = {};
        Start();
        for (int steps = 200 + Below(2000); steps > 0 && IsAlive(); --steps) {
            ASSERT_NO_FATAL_FAILURE(Step()) << "life " << lives_ << ", step " << steps;
        }
        EndLife();
    }

    void Step() {
        const int what = Below(200);
        if (what < 100) SendAnything();
        if (what >= 100 && what < 197) {
            Headless().Push(RandomDialogEvent(random_));
            LetTimePass(static_cast<std::uint32_t>(Below(100)));
        }
        if (what == 197) PlayOn();
        if (what == 198) Headless().Push({.type = HostEventType::Minimized});
        if (what == 199) Headless().FailPresents({DDERR_SURFACELOST});
        if (!IsAlive()) return;
        skins_ += std::exchange(skin_, theSettings.skinName) != theSettings.skinName;
        Look();
        ASSERT_NO_FATAL_FAILURE(ExpectSoundProgram());
    }

    /// One or both players play passably for some time.
    void PlayOn() {
        Headless().Push({.type = HostEventType::Restored});
        Headless().Push({.type = HostEventType::Activated});
        LetTimePass(50);
        if (!IsAlive()) return;
        Command(OneIn(2) ? kCmdNewGame : kCmdRightRestart);
        Look();
        for (Player* player : BothPlayers())
            hands_.emplace_back(*player);
        passMs = static_cast<std::uint32_t>(10 + Below(40));
        LetTimePass(static_cast<std::uint32_t>(Below(300'000)));
        hands_.clear();
        passMs = 10;
    }

    void AfterPass() override {
        if (!IsAlive()) return;
        CountTime();
        Look();
        for (AutoPlayer& hand : hands_)
            hand.PressKeys();
        if (OneIn(20)) Headless().Hear(kSoundBufferFrames);
    }

    /// The window waits for up to an hour.
    void WakeWindow() override {
        Headless().Advance(static_cast<std::uint32_t>(OneIn(4) ? Below(kHourMs) : Below(1000)));
        Headless().Push({.type = HostEventType::Restored});
        RandomInput::WakeWindow();
    }

    void CountTime() {
        const std::uint32_t passed = Headless().Milliseconds() - lastTick_;
        lastTick_ += passed;
        passedMs_ += passed;
        if (rightPlayer->IsRunning() || leftPlayer->IsRunning())
            playedMs_ += std::min(passed, 100u);
        Headless().SetUnixSeconds(static_cast<std::int64_t>(1'000'000'000 + passedMs_ / 1000));
        ++frames_;
    }

    void Look() override {
        if (HasFailure()) return;  // the first one is enough
        Watch(*rightPlayer, watched_[0]);
        Watch(*leftPlayer, watched_[1]);
    }

    /// A score never falls within a game.
    void Watch(const Player& player, Watched& before) {
        ASSERT_NO_FATAL_FAILURE(ExpectSoundPlayer(player));
        const bool begins = player.IsRunning() && !before.running;
        if (begins || player.FigureCount() < before.figures) before = {};
        ASSERT_GE(player.Score(), before.score);
        games_ += begins;
        rows_ += player.Lines() - before.lines;
        before = {player.IsRunning(), player.FigureCount(), player.Score(), player.Lines()};
        digest_ =
            (digest_ * 31 + player.FigureCount()) * 31 + static_cast<std::uint32_t>(before.score);
    }

    void ExpectSoundProgram() {
        ASSERT_NO_FATAL_FAILURE(ExpectScreensAgree());
        ASSERT_NO_FATAL_FAILURE(ExpectSettingsInRange());
        ASSERT_TRUE(Headless().IsOpen() && mainWindow);
        ASSERT_EQ(Headless().IsFullScreen(), !theSettings.windowed);
        ASSERT_TRUE(Headless().Reports().empty()) << Headless().Reports().front();
    }

    /// The user closes the window, the session ends, or the program was ended from its menu.
    void EndLife() {
        HighScoreTable scores = theHighScoreScreen ? theHighScoreScreen->Table() : HighScoreTable();
        if (IsAlive()) {
            if (OneIn(2)) Command(kCmdExit);
            Headless().Push(
                {.type = OneIn(2) ? HostEventType::Terminate : HostEventType::CloseRequested});
        }
        LetTimePass(1000);
        ASSERT_FALSE(IsRunning() || Headless().IsOpen());
        ASSERT_NO_FATAL_FAILURE(ExpectFilesHoldEverything());
        const HighScoreTable stored;
        for (std::size_t row = 0; row < kHighScoreRows; ++row)
            ASSERT_EQ(stored.Row(row), scores.Row(row)) << row;
    }

    void ExpectFilesHoldEverything() {
        theSettings.Save();
        theLevelTable.SaveTable();
        KeyBindings keys;
        keys.Load();
        ASSERT_EQ(keys, keyBindings);
        const SettingsValues settings = theSettings;
        const LevelTableValues levels = theLevelTable;
        ASSERT_TRUE(theSettings.Load() && theLevelTable.LoadTable());
        ASSERT_EQ(settings, static_cast<const SettingsValues&>(theSettings));
        ASSERT_EQ(levels, static_cast<const LevelTableValues&>(theLevelTable));
        std::set<std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path() + "/data"))
            files.insert(entry.path().filename());
        ASSERT_EQ(files,
                  (std::set<std::string>{"hs.dat", "keys.dat", "menu.dat", "other", "sync.dat"}));
    }

    void PrintRow() const {
        std::printf("%8.1f%8.1f%7d%7d%8lld%15d%7d%9lld%8zu%9zu  %08x\n",
                    static_cast<double>(passedMs_) / kHourMs,
                    static_cast<double>(playedMs_) / kHourMs, lives_, games_, rows_, wakings_,
                    skins_, frames_, AskedMemory(), ResidentMemory(), digest_);
        std::fflush(stdout);
    }

    const unsigned minutes_ = FromEnvironment("KORVANE_SOAK_MINUTES", 0);
    const steady_clock::time_point begin_ = steady_clock::now();
    std::uint32_t lastTick_ = 0, digest_ = 0;
    std::uint64_t passedMs_ = 0, playedMs_ = 0, nextRowMs_ = kHourMs;
    int lives_ = 0, games_ = 0;
    int skins_ = 0;  ///< how often another was chosen
    long long frames_ = 0, rows_ = 0;
    std::string skin_ = "Original";
    std::array<Watched, 2> watched_;
    std::vector<AutoPlayer> hands_;
    std::vector<std::size_t> asked_;
};

TEST_F(SoakTest, LivesGoByWithoutDepartures) {
    const unsigned seed = FromEnvironment("KORVANE_SOAK_SEED", 1);
    Seed(seed);
    // The clock wraps around a quarter of an hour after the start.
    Headless().SetMilliseconds(lastTick_ = 0xFFFFFFFF - kHourMs / 4);
    std::printf("seed %u; memory in KiB\n", seed);
    std::puts(
        "   hours in play  lives  games    rows  dialog events  skins   frames    heap resident    "
        "digest");
    while (!IsOver() && !HasFailure()) {
        Live();
        asked_.push_back(AskedMemory());  // when all that a life needs was given back
        if (passedMs_ < nextRowMs_) continue;
        PrintRow();
        nextRowMs_ = std::bit_ceil(passedMs_ / kHourMs + 1) * kHourMs;
    }
    PrintRow();
    EXPECT_FALSE(Grows(asked_)) << "memory grows";
    EXPECT_TRUE(games_ > 10 && rows_ > 10 && wakings_ > 100);
}

}  // namespace
}  // namespace korvane
