#include "tests/audio/audio_fixture.h"

namespace korvane {

// The program defines it among its static objects.
Settings theSettings;

void AudioFixture::SetUp() {
    Headless().Reset();
    Headless().UseFolder(folder.Path());
    theSettings.SetDefaults();
    theSettings.skinName = "Mine";
    audioReady = BASS_Init(-1, kSoundRate, 0, nullptr) > 0;
    ASSERT_TRUE(audioReady);
}

void AudioFixture::TearDown() {
    BASS_Free();
    audioReady = false;
    theSettings.SetDefaults();
}

}  // namespace korvane
