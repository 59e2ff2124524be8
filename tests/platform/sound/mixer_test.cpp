#include "platform/sound/mixer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "platform/headless/headless_host.h"
#include "tests/support/heard.h"
#include "tests/support/wav_writer.h"

namespace korvane {
namespace {

/// Music of a steady level, which takes the machine's time to render and records the jumps. One to
/// order 9 turns the level upside down.
class FakeStream final : public MusicStream {
  public:
    int Orders() const override { return 10; }
    void Seek(int order) override {
        seeks.push_back(order);
        if (order == 9) level = -level;
    }
    void Render(std::span<float> samples) override {
        std::ranges::fill(samples, level);
        Headless().Advance(milliseconds);
    }

    float level = 0.5F;
    std::uint32_t milliseconds = 0;
    std::vector<int> seeks;
};

class MixerTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        Headless().OpenSound(mixer);
    }
    void TearDown() override { Headless().CloseSound(); }

    static int Level() { return Headless().Hear(kSoundBufferFrames).back(); }
    static std::shared_ptr<const Sample> Steady(std::int16_t level, std::size_t frames = 2000) {
        WavRecipe recipe{.frames = frames};
        recipe.wave = [level](std::size_t, int) { return level / 32768.0; };
        return MakeSample(recipe);
    }

    Mixer mixer;
    std::shared_ptr<FakeStream> stream = std::make_shared<FakeStream>();
};

TEST(SoftLimitTest, IsPlainBelowTheKneeAndNeverPassesFullScale) {
    for (const float quiet : {0.0F, 0.1F, 0.5F, 0.75F})
        EXPECT_EQ(SoftLimit(quiet), quiet);
    float before = 0.75F;
    for (float loud = 0.76F; loud < 1000; loud *= 1.05F) {
        const float limited = SoftLimit(loud);
        EXPECT_GT(limited, before) << loud;
        EXPECT_LT(limited, std::min(loud, 1.0F)) << loud;
        EXPECT_EQ(SoftLimit(-loud), -limited);
        before = limited;
    }
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(SoftLimit(kInfinity), 1.0F);
    EXPECT_EQ(SoftLimit(-kInfinity), -1.0F);
    EXPECT_EQ(SoftLimit(std::numeric_limits<float>::quiet_NaN()), 0.0F);
}

TEST_F(MixerTest, AnySumStaysBelowFullScaleWithItsSign) {
    stream->level = -1;
    mixer.StartMusic(stream, 0);
    for (std::uint32_t channel = 1; channel <= 60; ++channel) {
        mixer.PlaySample(Steady(-32768), channel, 3);
        EXPECT_LT(Level(), -27000) << channel;
    }
    EXPECT_GT(PeakOf(Headless().Hear(4)), 32000);
}

TEST_F(MixerTest, OneMoreThanTheLimitEndsTheOldestOfThatSampleAlone) {
    const auto sample = Steady(4000);
    mixer.PlaySample(Steady(4000), 9, 3);
    for (std::uint32_t channel = 1; channel <= 4; ++channel)
        mixer.PlaySample(sample, channel, 3);
    EXPECT_FALSE(mixer.IsChannelSounding(1));
    for (const std::uint32_t channel : {2U, 3U, 4U, 9U})
        EXPECT_TRUE(mixer.IsChannelSounding(channel)) << channel;
    EXPECT_NEAR(Level(), 4 * 4000, 5);
    mixer.StopChannel(3);
    EXPECT_NEAR(Level(), 3 * 4000, 5);
    mixer.StopSample(*sample);
    EXPECT_EQ(sample.use_count(), 1) << "nobody holds it any more";
    EXPECT_NEAR(Level(), 4000, 5);
    EXPECT_TRUE(mixer.IsChannelSounding(9));
    Headless().Hear(2000 - 3 * kSoundBufferFrames);
    EXPECT_FALSE(mixer.IsChannelSounding(9)) << "it has ended by itself";
    EXPECT_EQ(Level(), 0);
}

TEST_F(MixerTest, ASampleThatCouldNotBeginInTimeIsDropped) {
    mixer.PlaySample(Steady(1000), 1, 3);
    EXPECT_NEAR(Level(), 1000, 2);
    mixer.PlaySample(Steady(4000), 2, 3);
    Headless().Advance(300);
    mixer.PlaySample(Steady(2000), 3, 3);
    Headless().Advance(200);
    EXPECT_NEAR(Level(), 3000, 2);
}

TEST_F(MixerTest, BothSidesOfAStereoSampleStayApart) {
    WavRecipe recipe{.channels = 2, .frames = 2};
    recipe.wave = [](std::size_t frame, int channel) {
        return (frame == 0 ? 100 : 300) / 32768.0 * (channel == 0 ? 1 : -2);
    };
    mixer.PlaySample(MakeSample(recipe), 1, 3);
    EXPECT_EQ(Headless().Hear(3), (std::vector<std::int16_t>{100, -200, 300, -600, 0, 0}));
}

TEST_F(MixerTest, TheRenderingThreadDoesTheJumps) {
    mixer.StartMusic(stream, 3);
    mixer.StartMusic(stream, 5);
    EXPECT_TRUE(stream->seeks.empty());
    Level();
    EXPECT_EQ(stream->seeks, (std::vector{5}));
    mixer.StartMusic(stream, std::nullopt);
    Level();
    EXPECT_EQ(stream->seeks, (std::vector{5})) << "it plays on where it is";
    const auto other = std::make_shared<FakeStream>();
    mixer.StartMusic(stream, 7);
    mixer.StopMusic(*stream);
    mixer.StartMusic(other, std::nullopt);
    Level();
    EXPECT_TRUE(other->seeks.empty());
    mixer.StartMusic(stream, std::nullopt);
    Level();
    EXPECT_EQ(stream->seeks, (std::vector{5, 7})) << "it was still to be done";
}

/// The largest step between two neighbouring samples of the left side.
int LargestStep(const std::vector<std::int16_t>& heard, int before) {
    int largest = 0;
    for (std::size_t i = 0; i < heard.size(); i += kSoundChannels)
        largest = std::max(largest, std::abs(heard[i] - std::exchange(before, heard[i])));
    return largest;
}

TEST_F(MixerTest, MusicBeginsAndEndsWithoutAStep) {
    const auto other = std::make_shared<FakeStream>();
    other->level = -0.5F;
    struct Row {
        const char* what;
        std::function<void()> act;
        int level;  ///< a while later
    };
    const Row rows[] = {
        {"starts", [&] { mixer.StartMusic(stream, 1); }, 16384},
        {"is paused", [&] { mixer.PauseMusic(*stream); }, 0},
        {"goes on", [&] { mixer.ResumeMusic(*stream); }, 16384},
        {"jumps", [&] { mixer.StartMusic(stream, 9); }, -16384},
        {"jumps back", [&] { mixer.StartMusic(stream, 9); }, 16384},
        {"is replaced", [&] { mixer.StartMusic(other, 3); }, -16384},
        {"is stopped", [&] { mixer.StopMusic(*other); }, 0},
    };
    // A change soon after another comes while that one still fades.
    for (const std::size_t frames : {1000U, 300U, 77U}) {
        int before = 0;
        for (const Row& row : rows) {
            row.act();
            const std::vector<std::int16_t> heard = Headless().Hear(frames);
            EXPECT_LT(LargestStep(heard, before), 200) << row.what << ", " << frames;
            before = heard[heard.size() - 2];
            if (frames == 1000U) {
                EXPECT_NEAR(before, row.level, 2) << row.what;
            }
        }
        Headless().Hear(1000);
    }
    mixer.StartMusic(stream, 0);
    Level();
    mixer.StopMusic(*stream);
    Level();
    EXPECT_EQ(stream.use_count(), 1) << "nobody holds it any more";
}

TEST_F(MixerTest, MusicThatFallsASecondBehindEndsAndStaysOff) {
    const auto render = [&](std::uint32_t milliseconds) {
        stream->milliseconds = milliseconds;
        Level();
        return mixer.IsMusicPlaying(*stream);
    };
    mixer.PlaySample(Steady(1000, 1000000), 1, 3);
    Level();
    mixer.StartMusic(stream, 0);
    // A buffer lasts 11.6 ms.
    EXPECT_TRUE(render(60000)) << "one alone may take any time";
    EXPECT_TRUE(render(60000));
    for (int i = 0; i < 80; ++i)
        render(0);
    for (int i = 0; i < 500; ++i) {
        EXPECT_TRUE(render(23)) << i;
        EXPECT_TRUE(render(0)) << i;
    }
    for (int i = 0; i < 9; ++i)
        EXPECT_TRUE(render(112)) << i;
    EXPECT_FALSE(render(112));
    const std::uint64_t ended = Headless().Counter();
    EXPECT_NEAR(Level(), 1000, 2) << "samples go on";
    EXPECT_EQ(Headless().Counter(), ended) << "and wait for it no more";
    EXPECT_FALSE(mixer.StartMusic(stream, 0));
    mixer.ResumeMusic(*stream);
    EXPECT_FALSE(mixer.IsMusicPlaying(*stream));
    // The delay of one piece does not count for the next.
    for (int piece = 0; piece < 2; ++piece) {
        const auto other = std::make_shared<FakeStream>();
        other->milliseconds = 500;
        EXPECT_TRUE(mixer.StartMusic(other, 0));
        Level();
        Level();
        EXPECT_TRUE(mixer.IsMusicPlaying(*other));
    }
}

}  // namespace
}  // namespace korvane
