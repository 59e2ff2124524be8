#include "audio/audio.h"

#include "app/state/process_state.h"
#include "audio/audio_error.h"
#include "audio/music_player.h"
#include "platform/host/sound_source.h"
#include "platform/sound/bass.h"
#include "platform/window/message_box.h"

namespace korvane {
namespace {

constexpr std::uint32_t kExpectedVersion = 0x00050001;
/// The interface has an argument for each of these. The library looks at neither: it knows one
/// device and one way to open it.
constexpr int kDefaultDevice = -1;
constexpr std::uint32_t kInitFlags = 0x10;

void OpenLibrary() {
    audioReady = BASS_Init(kDefaultDevice, kSoundRate, kInitFlags, mainWindow) > 0;
}

}  // namespace

bool StartAudio() {
    if (BASS_GetVersion() != kExpectedVersion) {
        MessageBox(nullptr, "BASS version 1.5 was not loaded", "Incorrect BASS.DLL", MB_OK);
        return false;
    }
    OpenLibrary();
    if (!audioReady) ShowAudioError("Can't initialize digital sound system");
    BASS_Start();
    if (!theMusic.Load()) ShowLoadError("Skins\\Original\\audio\\sniffit.xm can't be loaded!");
    return audioReady;
}

bool TakeUpAudio() {
    if (audioReady) return false;
    OpenLibrary();
    return audioReady;
}

void StopAudio() {
    if (audioReady) {
        theMusic.Stop();
        theMusic.Free();
    }
    BASS_Stop();
    BASS_Free();
    audioReady = false;
}

}  // namespace korvane
