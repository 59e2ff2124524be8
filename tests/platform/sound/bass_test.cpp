#include "platform/sound/bass.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <memory>
#include <optional>
#include <tuple>
#include <utility>

#include "platform/headless/headless_host.h"
#include "platform/sound/module_header.h"
#include "platform/sound/music_stream.h"
#include "tests/support/broken_files.h"
#include "tests/support/heard.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/wav_writer.h"
#include "tests/support/xm_writer.h"

namespace korvane {
namespace {

HMUSIC LoadMusic(const std::string& path) {
    return BASS_MusicLoad(false, path, 0, 0, 0);
}

HSAMPLE LoadWav(const std::string& path, std::uint32_t limit = 3) {
    return BASS_SampleLoad(false, path, 0, 0, limit, 0);
}

bool PlayAt(HMUSIC music, std::int32_t position) {
    return BASS_MusicPlayEx(music, position, 0, true);
}

class BassTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        Headless().UseFolder(folder.Path());
        folder.Write("a.xm", MakeXm({}));
        folder.Write("click.wav", MakeWav({.frames = 1000}));
        ASSERT_EQ(BASS_Init(-1, kSoundRate, 0, nullptr), 1);
    }
    void TearDown() override { BASS_Free(); }

    TemporaryFolder folder;
};

TEST_F(BassTest, PlaysFromTheOrderOfThatNumber) {
    const HMUSIC music = LoadMusic("a.xm");
    ASSERT_NE(music, 0U);
    EXPECT_EQ(HeardOrder(), -1) << "loaded, not started";
    for (const auto& [position, heard] :
         {std::pair(0, 0), {8, 8}, {59, 11}, {60, 0}, {100000, 0}, {3, 3}, {-1, 3}, {-100000, 3}}) {
        EXPECT_TRUE(PlayAt(music, position));
        EXPECT_EQ(HeardOrder(), heard) << position;
    }
    BASS_ChannelStop(music);
    EXPECT_TRUE(PlayAt(music, -1));
    EXPECT_EQ(HeardOrder(), 3) << "where it stood";
}

TEST_F(BassTest, TheSongFollowsItsJumpsAndRepeatsForEver) {
    for (const auto& [jump, wanted] :
         {std::pair<std::optional<std::uint8_t>, std::vector<int>>{{}, {0, 1, 2, 0, 1, 2, 0}},
          {1, {0, 1, 2, 1, 2, 1, 2}}}) {
        folder.Write("b.xm", MakeXm({.orders = 3, .rows = 4, .jump = jump}));
        PlayAt(LoadMusic("b.xm"), 0);
        std::vector<int> heard;
        while (heard.size() < wanted.size()) {
            heard.push_back(HeardOrder());
            // The rest of the pattern's 0.48 seconds.
            Headless().Hear(21168 - kSoundRate / 5 - 2 * kSoundBufferFrames);
        }
        EXPECT_EQ(heard, wanted);
    }
}

TEST_F(BassTest, ResumedMusicContinuesAsIfItHadNeverPaused) {
    const auto heardAfter = [](std::size_t silence) {
        const HMUSIC music = LoadMusic("a.xm");
        PlayAt(music, 2);
        EXPECT_GT(PeakOf(Headless().Hear(3000)), 0);
        if (silence != 0) {
            EXPECT_TRUE(BASS_ChannelPause(music));
        }
        Headless().Hear(kSoundBufferFrames);
        EXPECT_EQ(PeakOf(Headless().Hear(silence)), 0);
        EXPECT_TRUE(BASS_ChannelResume(music));
        Headless().Hear(kSoundBufferFrames);
        return Headless().Hear(3000);
    };
    EXPECT_EQ(heardAfter(10000), heardAfter(0));
}

TEST_F(BassTest, WhatCannotBeLoadedTellsWhy) {
    folder.Write("text.xm", std::vector<std::byte>(500, std::byte{'x'}));
    const auto refuses = [](std::uint32_t handle, int code) {
        return handle == 0 && BASS_ErrorGetCode() == code;
    };
    for (const auto& [file, code] : {std::pair("missing.xm", kAudioFile),
                                     {"", kAudioFile},
                                     {"text.xm", kAudioFormat},
                                     {"click.wav", kAudioFormat}})
        EXPECT_TRUE(refuses(LoadMusic(file), code)) << file;
    EXPECT_TRUE(refuses(LoadWav("a.xm"), kAudioFormat));
    Headless().RefuseSound(true);
    EXPECT_EQ(BASS_Init(-1, kSoundRate, 0, nullptr), 0);
    EXPECT_EQ(BASS_ErrorGetCode(), kAudioDevice);
    EXPECT_FALSE(BASS_Start());
    EXPECT_TRUE(refuses(LoadMusic("missing.xm"), kAudioDevice)) << "before the file is looked for";
}

TEST_F(BassTest, LongSamplesOfBothPlayersAreKeptOnceAndNotDecoded) {
    // 8 seconds of 8 bits take 64 KiB in the file and 11 times as much decoded.
    folder.Write("long.wav", MakeWav({.rate = 8000, .bits = 8, .frames = 64000}));
    const auto used = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
    const std::size_t before = used();
    const HSAMPLE right = LoadWav("long.wav");
    const HSAMPLE left = LoadWav("long.wav");
    EXPECT_LT(used() - before, 100'000U);
    BASS_SamplePlay(right);
    Headless().Hear(4 * kSoundRate);
    BASS_SamplePlay(left);
    BASS_SampleFree(right);
    EXPECT_GT(PeakOf(Headless().Hear(4 * kSoundRate)), 16000) << "each by itself";
    BASS_ChannelStop(left);
    folder.Write("long.wav", MakeWav({.rate = 8000, .bits = 8, .frames = 1}));
    BASS_SamplePlay(LoadWav("long.wav"));
    EXPECT_GT(PeakOf(Headless().Hear(100)), 0);
    EXPECT_EQ(PeakOf(Headless().Hear(100)), 0) << "the file as it is now";
}

TEST_F(BassTest, AHandleNamesOneThingUntilItIsFreed) {
    const HMUSIC music = LoadMusic("a.xm");
    const HMUSIC other = LoadMusic("a.xm");
    const HSAMPLE click = LoadWav("click.wav", /*limit=*/0);
    PlayAt(music, 0);
    const HCHANNEL first = BASS_SamplePlay(click);
    const HCHANNEL second = BASS_SamplePlay(click);
    EXPECT_FALSE(BASS_ChannelIsActive(first)) << "a limit of 0 counts as 1";
    for (const auto& [what, handle, isMusic, sounds] : {std::tuple("music", music, true, true),
                                                        {"other music", other, true, false},
                                                        {"sample", click, false, false},
                                                        {"channel", second, false, true},
                                                        {"ended channel", first, false, false},
                                                        {"no handle", second + 1, false, false},
                                                        {"0", 0, false, false}}) {
        SCOPED_TRACE(what);
        EXPECT_EQ(BASS_ChannelIsActive(handle), sounds);
        for (const bool taken :
             {BASS_ChannelPause(handle), BASS_ChannelResume(handle), PlayAt(handle, 0)})
            EXPECT_EQ(taken, isMusic);
        EXPECT_FALSE(handle != click && BASS_SamplePlay(handle) != 0);
    }
    EXPECT_FALSE(BASS_ChannelIsActive(music)) << "the other music plays in its place";
    BASS_MusicFree(click);
    BASS_SampleFree(other);
    EXPECT_TRUE(BASS_ChannelIsActive(second) && BASS_ChannelIsActive(other)) << "not of their kind";
    BASS_SampleFree(click);
    EXPECT_FALSE(BASS_ChannelIsActive(second));
    EXPECT_EQ(BASS_SamplePlay(click), 0U);
    BASS_MusicFree(other);
    EXPECT_EQ(HeardOrder(), -1);
    EXPECT_FALSE(PlayAt(other, 0));
    EXPECT_EQ(BASS_ErrorGetCode(), kAudioHandle);
    ASSERT_EQ(BASS_Init(-1, kSoundRate, 0, nullptr), 1);
    EXPECT_FALSE(PlayAt(music, 0)) << "the device was closed before";
    EXPECT_GT(LoadMusic("a.xm"), second) << "no number comes twice";
}

TEST_F(BassTest, AStopIsHeardWithinABuffer) {
    const HMUSIC music = LoadMusic("a.xm");
    const HSAMPLE click = LoadWav("click.wav");
    for (const bool all : {false, true}) {
        PlayAt(music, 0);
        BASS_SamplePlay(click);
        EXPECT_GT(PeakOf(Headless().Hear(kSoundBufferFrames)), 16384);
        EXPECT_TRUE(all ? BASS_Stop() : BASS_ChannelStop(music) && BASS_ChannelStop(click));
        EXPECT_TRUE(BASS_ChannelResume(music)) << "it stays stopped";
        if (!all) {
            EXPECT_GT(PeakOf(Headless().Hear(kSoundBufferFrames)), 0) << "it fades";
        }
        EXPECT_EQ(PeakOf(Headless().Hear(kSoundRate)), 0);
    }
}

/// A module that opens can be played, whatever is in it. An XM file that passes the check of its
/// header is opened late, so it must open then.
void RenderSome(std::span<const std::byte> file) {
    const std::unique_ptr<MusicStream> stream = OpenModule(file);
    EXPECT_TRUE(stream || CheckModuleHeader(file) != ModuleFormat::Xm);
    if (!stream) return;
    std::vector<float> samples(2 * 256);
    for (const int order : {stream->Orders() - 1, 0}) {
        stream->Seek(order);
        stream->Render(samples);
    }
}

TEST(ModuleStreamTest, CutAndDamagedFilesDoNoHarm) {
    const std::vector<std::byte> file = MakeXm({.orders = 3, .rows = 4, .jump = 0});
    EXPECT_TRUE(OpenModule(file));
    ForEachCut(file, RenderSome);
    ForDamagedCopies(file, file.size(), 500, RenderSome);
}

}  // namespace
}  // namespace korvane
