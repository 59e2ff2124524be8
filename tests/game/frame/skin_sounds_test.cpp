#include "game/frame/skin_sounds.h"

#include <gtest/gtest.h>

#include <string>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_art.h"
#include "platform/headless/headless_host.h"
#include "platform/host/sound_source.h"
#include "platform/sound/bass.h"
#include "tests/support/heard.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/wav_writer.h"

namespace korvane {
namespace {

struct SoundCase {
    GameSound sound;
    const char* file;
    std::uint8_t event;
};

constexpr SoundCase kCases[] = {
    {GameSound::Landed, "Landed", 16},   {GameSound::Rotate, "Rotate", 8},
    {GameSound::Single, "Single", 2},    {GameSound::Double, "Double", 2},
    {GameSound::Triple, "Triple", 2},    {GameSound::Tetris, "Tetris", 2},
    {GameSound::NewLevel, "NewLevel", 4}};

/// Each file of the skin has a loudness of its own, by which its sound is told.
class SkinSoundsTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        Headless().UseFolder(folder_.Path());
        theSettings.SetDefaults();
        int loudness = 0;
        for (const SoundCase& row : kCases) {
            loudness += kLoudnessStep;
            WavRecipe recipe{.frames = kFrames};
            recipe.wave = [=](std::size_t, int) { return loudness / 32768.0; };
            folder_.Write(std::string("Skins/Original/Audio/") + row.file + ".wav",
                          MakeWav(recipe));
        }
        audioReady = BASS_Init(-1, kSoundRate, 0, nullptr) > 0;
        sounds_.Load();
        theGameArt.LoadLevelSound();
    }
    void TearDown() override {
        BASS_Free();
        audioReady = false;
    }

    /// The file of the one sound that sounds, "" for silence; it is over afterwards.
    static std::string Heard() {
        const int peak = PeakOf(Headless().Hear(kFrames));
        const auto index = static_cast<std::size_t>((peak + kLoudnessStep / 2) / kLoudnessStep);
        if (index == 0) return "";
        return index <= std::size(kCases) ? kCases[index - 1].file : "several";
    }

    static constexpr std::size_t kFrames = 200;
    static constexpr int kLoudnessStep = 2048;

    TemporaryFolder folder_;
    SkinSounds sounds_;
};

TEST_F(SkinSoundsTest, EachIsAFileOfTheSkinAndAsksSwitchAndMask) {
    for (const SoundCase& row : kCases) {
        for (const bool enabled : {true, false}) {
            for (const int mask : {31, 31 & ~row.event, +row.event}) {
                theSettings.soundEffects = enabled;
                theSettings.sfxMask = static_cast<std::uint8_t>(mask);
                sounds_.Play(row.sound);
                EXPECT_EQ(Heard(), enabled && (mask & row.event) ? row.file : "")
                    << row.file << enabled << mask;
            }
        }
    }
}

TEST_F(SkinSoundsTest, EachPlayerHasItsOwn) {
    SkinSounds others;
    others.Load();
    sounds_.Play(GameSound::Landed);
    others.Play(GameSound::Landed);
    EXPECT_EQ(Heard(), "Rotate") << "twice as loud as one landing";
}

}  // namespace
}  // namespace korvane
