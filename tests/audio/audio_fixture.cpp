#include "tests/audio/audio_fixture.h"

#include "app/state/static_room.h"

namespace korvane {
namespace {

// The one of the program's static objects that sounds and music ask.
const MadeInRoom<Settings> settings(theSettings);

}  // namespace

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
