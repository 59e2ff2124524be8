#include <memory>

#include "platform/sound/bass.h"
#include "platform/sound/music_stream.h"

// A sound library that does nothing and never fails. Linked into the program, it shows what the
// program needs without its sound.

namespace korvane {

std::uint32_t BASS_GetVersion() {
    return 0x00050001;
}
int BASS_ErrorGetCode() {
    return kAudioOk;
}
int BASS_Init(int, std::uint32_t, std::uint32_t, HWND) {
    return 1;
}
bool BASS_Start() {
    return true;
}
bool BASS_Stop() {
    return true;
}
void BASS_Free() {}
HMUSIC BASS_MusicLoad(bool, const std::string&, std::uint32_t, std::uint32_t, std::uint32_t) {
    return 1;
}
bool BASS_MusicPlayEx(HMUSIC, std::int32_t, std::uint32_t, bool) {
    return true;
}
void BASS_MusicFree(HMUSIC) {}
HSAMPLE BASS_SampleLoad(bool, const std::string&, std::uint32_t, std::uint32_t, std::uint32_t,
                        std::uint32_t) {
    return 1;
}
HCHANNEL BASS_SamplePlay(HSAMPLE) {
    return 1;
}
void BASS_SampleFree(HSAMPLE) {}
bool BASS_ChannelIsActive(std::uint32_t) {
    return false;
}
bool BASS_ChannelStop(std::uint32_t) {
    return true;
}
bool BASS_ChannelPause(std::uint32_t) {
    return true;
}
bool BASS_ChannelResume(std::uint32_t) {
    return true;
}

std::unique_ptr<MusicStream> OpenModuleLater(std::vector<std::byte>) {
    return nullptr;
}

}  // namespace korvane
