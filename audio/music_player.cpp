#include "audio/music_player.h"

#include <algorithm>
#include <string>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "app/state/static_room.h"

namespace korvane {
namespace {

constexpr std::uint32_t kLoadFlags = 1;  ///< volume changes without clicks
constexpr std::uint32_t kPlayFlags = 4;  ///< repeat for ever

HMUSIC LoadModule(const std::string& folder, const ModuleChoice& choice) {
    return BASS_MusicLoad(/*fromMemory=*/false, folder + choice.fileName, 0, 0, kLoadFlags);
}

bool Start(HMUSIC module, std::int32_t position) {
    return BASS_MusicPlayEx(module, position, kPlayFlags, /*reset=*/true);
}

constinit StaticRoom<MusicPlayer> room;

}  // namespace

constinit MusicPlayer& theMusic = room.object;

bool MusicPlayer::Load() {
    if (!audioReady) return true;
    if (playing_) Stop();
    if (loaded_) Free();
    return LoadFromSkin() || LoadFallback();
}

bool MusicPlayer::LoadFromSkin() {
    const std::string folder = "Skins\\" + theSettings.skinName + "\\Audio\\";
    if (!ReadModuleText(folder, choice_)) return false;
    const HMUSIC module = LoadModule(folder, choice_);
    if (module == 0) return false;
    module_ = module;
    loaded_ = true;
    return true;
}

bool MusicPlayer::LoadFallback() {
    const std::string folder = "Skins\\Original\\Audio\\";
    if (!ReadModuleText(folder, choice_)) choice_ = ModuleChoice();
    module_ = LoadModule(folder, choice_);
    if (module_ == 0) return false;
    loaded_ = true;
    return true;
}

std::int32_t MusicPlayer::Position() const {
    switch (screen_) {
        case MusicScreen::Menu:
            return choice_.menuPosition;
        case MusicScreen::Game:
            return choice_.gamePosition;
        case MusicScreen::HighScores:
            return choice_.highScorePosition;
    }
    return 0;
}

bool MusicPlayer::Play() {
    const bool starts = theSettings.music && audioReady && module_ != 0;
    if (starts && !Start(module_, std::max(Position(), 0))) return false;
    playing_ = true;
    return true;
}

void MusicPlayer::Stop() {
    if (!audioReady || module_ == 0) return;
    BASS_ChannelStop(module_);
    playing_ = false;
}

void MusicPlayer::Pause() {
    if (audioReady && theSettings.music && playing_) BASS_ChannelPause(module_);
}

void MusicPlayer::Resume() {
    if (audioReady && theSettings.music && playing_) BASS_ChannelResume(module_);
}

void MusicPlayer::SetScreen(MusicScreen screen) {
    if (!loaded_ || screen == screen_) return;
    screen_ = screen;
    if (module_ == 0 || !theSettings.music || screen > MusicScreen::HighScores) return;
    Start(module_, Position());
    playing_ = true;
}

void MusicPlayer::Free() {
    if (module_ != 0) BASS_MusicFree(module_);
}

}  // namespace korvane
