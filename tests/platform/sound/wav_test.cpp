#include "platform/sound/wav.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <numbers>
#include <optional>
#include <span>
#include <vector>

#include "platform/host/sound_source.h"
#include "platform/sound/sample.h"
#include "tests/support/broken_files.h"
#include "tests/support/heard.h"
#include "tests/support/wav_writer.h"

namespace korvane {
namespace {

using Samples = std::vector<std::int16_t>;

/// All of a sample as it is played, read in parts of that many frames.
Samples ReadAll(const std::shared_ptr<const Sample>& sample, std::size_t part) {
    SampleReader reader(sample);
    Samples all;
    Samples room(part * static_cast<std::size_t>(reader.Channels()));
    while (!reader.HasEnded()) {
        const std::span<std::int16_t> read = reader.Read(room);
        all.insert(all.end(), read.begin(), read.end());
    }
    return all;
}

TEST(WavTest, SamplesOfEveryAcceptedFormatAreRead) {
    WavRecipe recipe{.frames = 3};
    recipe.wave = [](std::size_t frame, int channel) {
        return channel == 0 ? -1 + 0.75 * static_cast<double>(frame) : 0.5;
    };
    const Samples wanted[] = {{-32768, -8192, 16384}, {-32768, 16384, -8192, 16384, 16384, 16384}};
    for (const std::uint32_t unknown : {0U, 4U, 7U}) {
        for (const std::uint16_t bits : {std::uint16_t{8}, std::uint16_t{16}}) {
            for (const std::uint16_t channels : {std::uint16_t{1}, std::uint16_t{2}}) {
                recipe.unknownBytes = unknown;
                recipe.bits = bits;
                recipe.channels = channels;
                const auto sample = MakeSample(recipe);
                ASSERT_TRUE(sample) << bits << " bits, " << channels << " channels, " << unknown;
                EXPECT_EQ(sample->sound.rate, 44100);
                EXPECT_EQ(sample->sound.channels, channels);
                for (const std::size_t part : {1U, 2U, 3U, 4U})
                    EXPECT_EQ(ReadAll(sample, part), wanted[channels - 1]) << part;
            }
        }
    }
}

TEST(WavTest, LimitsAreAcceptedAndWhatLiesBeyondIsNot) {
    const auto isRead = [](const WavRecipe& recipe) {
        return ReadWav(MakeWav(recipe)).has_value();
    };
    for (const std::uint32_t excess : {0U, 1U}) {
        EXPECT_EQ(isRead({.rate = 8000 - excess}), excess == 0);
        EXPECT_EQ(isRead({.rate = 48000 + excess}), excess == 0);
        EXPECT_EQ(isRead({.frames = 1 - excess}), excess == 0);
        EXPECT_EQ(isRead({.rate = 8000, .bits = 8, .frames = 30 * 8000 + excess}), excess == 0);
    }
    const WavRecipe refused[] = {{.tag = 3},
                                 {.channels = 0},
                                 {.bits = 24},
                                 {.channels = 3},
                                 {.channels = 2, .bits = 4},
                                 {.extraFrameBytes = 1}};
    for (const WavRecipe& recipe : refused)
        EXPECT_FALSE(isRead(recipe)) << "row " << &recipe - refused;
    for (const std::size_t frames : {1U, 2U})
        EXPECT_EQ(MakeSample({.rate = 48000, .frames = frames}) != nullptr, frames == 2)
            << "one does not make a frame at the device's rate";
}

TEST(WavTest, CutFilesAreRefusedAndDamagedOnesDoNoHarm) {
    std::vector<std::byte> file = MakeWav({.bits = 8, .frames = 9, .unknownBytes = 3});
    ForEachCut(file, [](std::span<const std::byte> cut) { EXPECT_FALSE(ReadWav(cut)); });
    EXPECT_TRUE(ReadWav(file)) << "the last chunk has no padding";
    file[24] = std::byte{'x'};  // the chunk of the format becomes an unknown one
    EXPECT_FALSE(ReadWav(file));
    int read = 0;
    file = MakeWav({.channels = 2, .rate = 22050, .frames = 50});
    ForDamagedCopies(file, file.size(), 5'000, [&](std::span<const std::byte> damaged) {
        const auto bytes = std::make_shared<std::vector<std::byte>>(damaged.begin(), damaged.end());
        std::optional<Sample> sample = LoadSample(bytes);
        if (!sample) return;
        ++read;
        const std::size_t samples = ReadAll(std::make_shared<Sample>(*sample), 1000).size();
        EXPECT_GT(samples, 0U);
        EXPECT_LE(samples, (30U * kSoundRate + 1) * static_cast<unsigned>(sample->sound.channels));
    });
    EXPECT_GT(read, 100) << "too few damaged files are read";
}

TEST(WavTest, EveryRateKeepsLengthAndPitch) {
    for (const std::uint32_t rate : {8000U, 11025U, 22050U, 44100U, 48000U}) {
        SCOPED_TRACE(rate);
        WavRecipe recipe{.rate = rate, .frames = rate / 2};
        recipe.wave = [rate](std::size_t frame, int) {
            return 0.5 * std::sin(2 * std::numbers::pi * 500 * static_cast<double>(frame) / rate);
        };
        const auto sample = MakeSample(recipe);
        ASSERT_TRUE(sample);
        const Samples heard = ReadAll(sample, rate);
        EXPECT_NEAR(static_cast<double>(heard.size()), kSoundRate / 2.0, 100);
        EXPECT_NEAR(PitchOf(heard), 500, 2);
        EXPECT_NEAR(PeakOf(heard), 16384, 700);
        EXPECT_EQ(ReadAll(sample, kSoundBufferFrames), heard);
    }
}

}  // namespace
}  // namespace korvane
