#include "platform/sound/bass.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "platform/headless/headless_host.h"
#include "platform/sound/module_header.h"
#include "platform/sound/music_stream.h"
#include "platform/sound/sample.h"
#include "tests/support/heard.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/wav_writer.h"
#include "tests/support/xm_writer.h"

namespace korvane {
namespace {

HMUSIC LoadMusic(const std::string& path) {
    return BASS_MusicLoad(false, path, 0, 0, 1);
}

HSAMPLE LoadWav(const std::string& path, std::uint32_t limit = 3) {
    return BASS_SampleLoad(false, path, 0, 0, limit, 0x20000);
}

bool PlayAt(HMUSIC music, std::int32_t position) {
    return BASS_MusicPlayEx(music, position, 4, true);
}

class BassTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        Headless().UseFolder(folder.Path());
        folder.Write("a.xm", MakeXm({}));
        folder.Write("click.wav", MakeWav({.frames = 1000}));
        ASSERT_EQ(BASS_Init(-1, 44100, 0x10, nullptr), 1);
    }
    void TearDown() override { BASS_Free(); }

    TemporaryFolder folder;
};

TEST_F(BassTest, PlaysFromTheOrderOfThatNumber) {
    const HMUSIC music = LoadMusic("a.xm");
    ASSERT_NE(music, 0U);
    EXPECT_EQ(HeardOrder(), -1) << "loaded, not started";
    struct Case {
        std::int32_t position;
        int heard;
    };
    for (const Case c : {Case{0, 0}, Case{8, 8}, Case{54, 54 % kXmTones}, Case{59, 11}, Case{60, 0},
                         Case{100000, 0}, Case{3, 3}, Case{-1, 3}, Case{-100000, 3}}) {
        EXPECT_TRUE(PlayAt(music, c.position));
        EXPECT_EQ(HeardOrder(), c.heard) << c.position;
    }
    EXPECT_TRUE(BASS_ChannelStop(music));
    EXPECT_EQ(HeardOrder(), -1);
    EXPECT_TRUE(PlayAt(music, -1));
    EXPECT_EQ(HeardOrder(), 3) << "where it stood";
}

TEST_F(BassTest, TheSongFollowsItsJumpsAndRepeatsForEver) {
    struct Case {
        XmRecipe recipe;
        std::vector<int> heard;
    };
    const Case cases[] = {
        {{.orders = 3, .rows = 4}, {0, 1, 2, 0, 1, 2, 0, 1}},
        {{.orders = 3, .rows = 4, .jump = 1}, {0, 1, 2, 1, 2, 1, 2, 1}},
        {{.orders = 3, .rows = 4, .jump = 2}, {0, 1, 2, 2, 2, 2, 2, 2}},
    };
    for (const Case& c : cases) {
        folder.Write("b.xm", MakeXm(c.recipe));
        const HMUSIC music = LoadMusic("b.xm");
        PlayAt(music, 0);
        std::vector<int> heard;
        for (std::size_t i = 0; i < c.heard.size(); ++i) {
            heard.push_back(HeardOrder());
            // The rest of the pattern's 0.48 seconds.
            Headless().Hear(21168 - kSoundRate / 5 - 2 * kSoundBufferFrames);
        }
        EXPECT_EQ(heard, c.heard);
    }
}

TEST_F(BassTest, StartsAndStopsAreHeardWithinTwoBuffers) {
    const HMUSIC music = LoadMusic("a.xm");
    PlayAt(music, 0);
    EXPECT_GT(PeakOf(Headless().Hear(2 * kSoundBufferFrames)), 500);
    BASS_ChannelStop(music);
    Headless().Hear(2 * kSoundBufferFrames);
    EXPECT_EQ(PeakOf(Headless().Hear(kSoundRate)), 0);
    const HSAMPLE click = LoadWav("click.wav");
    BASS_SamplePlay(click);
    EXPECT_NEAR(PeakOf(Headless().Hear(kSoundBufferFrames)), 16384, 2);
    BASS_ChannelStop(click);
    EXPECT_EQ(PeakOf(Headless().Hear(kSoundBufferFrames)), 0);
}

TEST_F(BassTest, ResumedMusicContinuesAsIfItHadNeverPaused) {
    const auto play = [](int silence) {
        const HMUSIC music = LoadMusic("a.xm");
        PlayAt(music, 2);
        std::vector<std::int16_t> heard = Headless().Hear(3000);
        if (silence != 0) {
            EXPECT_TRUE(BASS_ChannelPause(music));
            EXPECT_EQ(PeakOf(Headless().Hear(static_cast<std::size_t>(silence))), 0);
            EXPECT_TRUE(BASS_ChannelResume(music));
        }
        const std::vector<std::int16_t> rest = Headless().Hear(3000);
        heard.insert(heard.end(), rest.begin(), rest.end());
        BASS_MusicFree(music);
        return heard;
    };
    EXPECT_EQ(play(10000), play(0));
}

TEST_F(BassTest, FailuresHaveTheirCodes) {
    folder.Write("text.xm", std::vector<std::byte>(500, std::byte{'x'}));
    folder.Write("../outside.xm", MakeXm({}));
    struct Case {
        const char* path;
        int code;
    };
    for (const Case c :
         {Case{"missing.xm", kAudioFile}, Case{"..\\outside.xm", kAudioFile}, Case{"", kAudioFile},
          Case{"text.xm", kAudioFormat}, Case{"click.wav", kAudioFormat}}) {
        EXPECT_EQ(LoadMusic(c.path), 0U) << c.path;
        EXPECT_EQ(BASS_ErrorGetCode(), c.code) << c.path;
    }
    EXPECT_EQ(LoadWav("a.xm"), 0U);
    EXPECT_EQ(BASS_ErrorGetCode(), kAudioFormat);
    const HMUSIC music = LoadMusic("a.xm");
    BASS_MusicFree(music);
    EXPECT_FALSE(PlayAt(music, 0));
    EXPECT_EQ(BASS_ErrorGetCode(), kAudioHandle);
    EXPECT_EQ(BASS_SamplePlay(music), 0U);
    std::filesystem::remove(folder.Path() + "/../outside.xm");
}

TEST_F(BassTest, WithoutADeviceNothingStarts) {
    Headless().RefuseSound(true);
    EXPECT_EQ(BASS_Init(-1, 44100, 0x10, nullptr), 0);
    EXPECT_EQ(BASS_ErrorGetCode(), kAudioDevice);
    EXPECT_FALSE(BASS_Start());
    EXPECT_EQ(LoadMusic("a.xm"), 0U);
    EXPECT_EQ(BASS_ErrorGetCode(), kAudioDevice);
}

/// Random calls, and what the library must therefore hold.
class RandomCalls {
  public:
    /// Makes one call; the results and what sounds must fit all calls before.
    void Step() {
        const auto pick = random_() % 100;
        if (pick < 2) {
            Reopen();
        } else if (pick < 6) {
            Load();
        } else if (pick < 10) {
            Free();
        } else if (pick < 60) {
            Change();
        } else {
            Hear();
        }
        EXPECT_LE(std::ranges::count_if(music_, BASS_ChannelIsActive), 1);
        for (const auto& [sample, loaded] : samples_)
            EXPECT_LE(std::ranges::count_if(loaded.channels, BASS_ChannelIsActive),
                      std::max(loaded.limit, 1));
    }

  private:
    bool Chance() { return random_() % 2 == 0; }

    /// A handle of a kind, or one of another kind or of none.
    std::uint32_t Any() { return static_cast<std::uint32_t>(random_() % (last_ + 3)); }

    void Reopen() {
        BASS_Free();
        for (const HMUSIC music : music_)
            EXPECT_FALSE(PlayAt(music, 0));
        music_.clear();
        samples_.clear();
        EXPECT_EQ(BASS_Init(-1, 44100, 0x10, nullptr), 1);
    }

    void Load() {
        const char* const paths[] = {"a.xm", "click.wav", "missing"};
        const char* path = paths[random_() % std::size(paths)];
        const int limit = static_cast<int>(random_() % 4);
        const std::uint32_t handle =
            Chance() ? LoadMusic(path) : LoadWav(path, static_cast<std::uint32_t>(limit));
        if (handle == 0) return;
        EXPECT_GT(handle, last_) << "no number comes twice";
        last_ = handle;
        if (path == paths[0]) music_.insert(handle);
        if (path == paths[1]) samples_[handle].limit = limit;
    }

    void Free() {
        const std::uint32_t handle = Any();
        if (Chance()) {
            BASS_MusicFree(handle);
            music_.erase(handle);
            return;
        }
        BASS_SampleFree(handle);
        const auto found = samples_.find(handle);
        if (found == samples_.end()) return;
        EXPECT_TRUE(std::ranges::none_of(found->second.channels, BASS_ChannelIsActive));
        samples_.erase(found);
    }

    void Change() {
        const std::uint32_t handle = Any();
        const bool isMusic = music_.contains(handle);
        switch (random_() % 5) {
            case 0:
                EXPECT_EQ(PlayAt(handle, static_cast<std::int32_t>(random_() % 80) - 5), isMusic);
                EXPECT_EQ(BASS_ChannelIsActive(handle), isMusic);
                break;
            case 1:
                EXPECT_EQ(BASS_ChannelPause(handle), isMusic);
                break;
            case 2:
                EXPECT_EQ(BASS_ChannelResume(handle), isMusic);
                break;
            case 3:
                BASS_ChannelStop(handle);
                EXPECT_FALSE(BASS_ChannelIsActive(handle));
                break;
            default:
                PlaySample(handle);
        }
    }

    void PlaySample(HSAMPLE sample) {
        const HCHANNEL channel = BASS_SamplePlay(sample);
        EXPECT_EQ(channel != 0, samples_.contains(sample));
        EXPECT_EQ(BASS_ChannelIsActive(channel), channel != 0);
        if (channel == 0) return;
        last_ = channel;
        samples_[sample].channels.push_back(channel);
    }

    void Hear() {
        bool sounds = std::ranges::any_of(music_, BASS_ChannelIsActive);
        for (const auto& [sample, loaded] : samples_)
            sounds = sounds || std::ranges::any_of(loaded.channels, BASS_ChannelIsActive);
        EXPECT_EQ(PeakOf(Headless().Hear(200 + random_() % 700)) > 0, sounds);
    }

    struct LoadedSample {
        int limit = 0;
        std::vector<HCHANNEL> channels;
    };

    std::minstd_rand random_{3};
    std::uint32_t last_ = 0;
    std::set<HMUSIC> music_;
    std::map<HSAMPLE, LoadedSample> samples_;
};

TEST_F(BassTest, TenThousandRandomCallsKeepEveryPromise) {
    RandomCalls calls;
    for (int i = 0; i < 10'000 && !HasFailure(); ++i)
        calls.Step();
}

/// A module that opens must play, whatever it plays; and of XM the header's check is all that
/// is known before it is played for the first time.
void RenderSome(const std::vector<std::byte>& file) {
    const std::unique_ptr<MusicStream> stream = OpenModule(file);
    EXPECT_TRUE(stream || CheckModuleHeader(file) != ModuleFormat::Xm);
    if (!stream) return;
    std::vector<float> samples(2 * 256);
    stream->Seek(stream->Orders() - 1);
    stream->Render(samples);
    stream->Seek(0);
    stream->Render(samples);
}

TEST(StrangersFilesTest, CutModulesNeverCrash) {
    const std::vector<std::byte> whole = MakeXm({.orders = 3, .rows = 4});
    for (std::size_t size = 0; size < whole.size(); ++size)
        RenderSome({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
    EXPECT_TRUE(OpenModule(whole));
}

TEST(StrangersFilesTest, RandomDamageNeverCrashes) {
    constexpr int kRounds = 20'000;
    // Opening a module is a hundred times as dear as opening a sound.
    constexpr int kRoundsToAModule = 8;
    const std::vector<std::byte> xm = MakeXm({.orders = 3, .rows = 4, .jump = 0});
    const std::vector<std::byte> wav = MakeWav({.channels = 2, .rate = 22050, .frames = 50});
    std::minstd_rand random(7);
    int opened = 0;
    for (int round = 0; round < kRounds; ++round) {
        const bool isModule = round % kRoundsToAModule == 0;
        std::vector<std::byte> file = isModule ? xm : wav;
        const auto changes = 1 + random() % 8;
        for (unsigned i = 0; i < changes; ++i)
            file[random() % file.size()] = static_cast<std::byte>(random() & 0xFF);
        if (isModule) {
            RenderSome(file);
        } else if (const auto sample = LoadSample(file)) {
            ++opened;
            ASSERT_GT(sample->Frames(), 0U);
            ASSERT_LE(sample->Frames(), 30U * kSoundRate + 1);
        }
    }
    EXPECT_GT(opened, 100) << "not everything was refused at the door";
}

}  // namespace
}  // namespace korvane
