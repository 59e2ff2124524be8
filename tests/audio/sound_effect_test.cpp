#include "audio/sound_effect.h"

#include <memory>

#include "tests/audio/audio_fixture.h"
#include "tests/support/wav_writer.h"

namespace korvane {
namespace {

class SoundEffectTest : public AudioFixture {
  protected:
    void WriteWav(const std::string& path, double level, std::size_t frames = 1000) const {
        WavRecipe recipe{.frames = frames};
        recipe.wave = [=](std::size_t, int) { return level; };
        folder.Write(path, MakeWav(recipe));
    }
    static int Level() { return PeakOf(Headless().Hear(1)); }
};

TEST_F(SoundEffectTest, ComesFromTheSkinOrTheOriginalOrABoxIsShown) {
    WriteWav("Skins/Original/Audio/Rotate.wav", 0.25);
    {
        SoundEffect fallback("Rotate.wav");
        fallback.Play();
        EXPECT_NEAR(Level(), 8192, 1);
    }
    EXPECT_EQ(Level(), 0) << "an effect that goes takes its sound with it";
    WriteWav("Skins/Mine/Audio/Rotate.wav", 0.5);
    SoundEffect own("Rotate.wav");
    own.Play();
    EXPECT_NEAR(Level(), 16384, 1);
    EXPECT_TRUE(Headless().Reports().empty());

    SoundEffect missing("Landed.wav");
    missing.Play();
    WriteText("Skins/Mine/Audio/Bad.wav", "no sound");
    WriteText("Skins/Original/Audio/Bad.wav", "neither");
    SoundEffect bad("Bad.wav");
    EXPECT_EQ(Headless().Reports(),
              (std::vector<std::string>{
                  "Error: skins\\Original\\audio\\Landed.wav can't be loaded!\n(error code: 1)",
                  "Error: skins\\Original\\audio\\Bad.wav can't be loaded!\n(error code: 2)"}));
}

TEST_F(SoundEffectTest, ARepeatRestartsAndDifferentEffectsMix) {
    WriteWav("Skins/Original/Audio/a.wav", 0.25);
    SoundEffect right("a.wav");
    SoundEffect left("a.wav");
    right.Play();
    Headless().Hear(900);
    right.Play();
    EXPECT_NEAR(Level(), 8192, 1) << "not layered";
    Headless().Hear(900);
    EXPECT_NEAR(Level(), 8192, 1) << "from the beginning";
    left.Play();
    EXPECT_NEAR(Level(), 16384, 1) << "both players' sound together";
    Headless().Hear(200);
    EXPECT_NEAR(Level(), 8192, 1);
}

TEST_F(SoundEffectTest, MayOutliveTheLibrary) {
    WriteWav("Skins/Original/Audio/a.wav", 0.25);
    auto effect = std::make_unique<SoundEffect>("a.wav");
    effect->Play();
    BASS_Free();
    audioReady = false;
    effect->Play();
    effect.reset();
    EXPECT_FALSE(Headless().IsSoundOpen());
}

}  // namespace
}  // namespace korvane
