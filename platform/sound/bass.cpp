#include "platform/sound/bass.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/host/host.h"
#include "platform/sound/mixer.h"
#include "platform/sound/module_header.h"
#include "platform/sound/wav.h"

namespace korvane {
namespace {

constexpr std::uint32_t kVersion = 0x00050001;

struct LoadedSample {
    std::shared_ptr<const Sample> sample;
    std::size_t limit = 1;
};

/// Everything between BASS_Init and BASS_Free.
struct AudioLibrary {
    Mixer mixer;
    std::map<HMUSIC, std::shared_ptr<MusicStream>> music;
    std::map<HSAMPLE, LoadedSample> samples;
    std::uint32_t lastHandle = 0;
    AudioError error = kAudioOk;
    bool open = false;
};

/// Never destroyed: static objects may free their sounds after every other static object has been
/// destroyed, and the device's thread may render until the host is destroyed.
AudioLibrary& Library() {
    static auto* const library = new AudioLibrary;
    return *library;
}

bool Fail(AudioError error) {
    Library().error = error;
    return false;
}

std::shared_ptr<MusicStream> FindMusic(HMUSIC handle) {
    const auto found = Library().music.find(handle);
    return found == Library().music.end() ? nullptr : found->second;
}

/// Calls `change` with the module of that handle; false when there is none.
template <typename Change>
bool ChangeMusic(HMUSIC handle, Change change) {
    const std::shared_ptr<MusicStream> stream = FindMusic(handle);
    if (!stream) return Fail(kAudioHandle);
    change(*stream);
    return true;
}

/// A file's bytes. Both players load the same sounds: what a sample has already is kept once.
SharedBytes KeepOnce(std::vector<std::byte> file) {
    for (const auto& [handle, loaded] : Library().samples)
        if (*loaded.sample->file == file) return loaded.sample->file;
    return std::make_shared<const std::vector<std::byte>>(std::move(file));
}

std::optional<Sample> LoadSampleOnce(std::vector<std::byte> file) {
    return LoadSample(KeepOnce(std::move(file)));
}

/// What `load` makes of a file's bytes. When the file cannot be read or loaded the result is empty
/// and the error code is set.
template <typename Load, typename Result = std::invoke_result_t<Load, std::vector<std::byte>>>
Result LoadFile(const std::string& path, std::size_t cap, Load load) {
    AudioError error = Library().open ? kAudioFile : kAudioDevice;
    try {
        std::optional<std::vector<std::byte>> file;
        if (Library().open) file = TheHost().GameFiles().Read(path, cap);
        if (file) {
            if (Result loaded = load(std::move(*file))) return loaded;
            error = kAudioFormat;
        }
    } catch (const std::bad_alloc&) {
        error = kAudioMemory;
    }
    Fail(error);
    return {};
}

void Close() {
    AudioLibrary& library = Library();
    if (library.open) TheHost().CloseSound();
    library.open = false;
    library.mixer.StopAll();
    library.music.clear();
    library.samples.clear();
}

/// Stops a module, a playback or all playbacks of a sample.
bool Stop(std::uint32_t handle) {
    AudioLibrary& library = Library();
    if (const auto sample = library.samples.find(handle); sample != library.samples.end()) {
        library.mixer.StopSample(*sample->second.sample);
        return true;
    }
    if (library.mixer.IsChannelSounding(handle)) {
        library.mixer.StopChannel(handle);
        return true;
    }
    return ChangeMusic(handle, [&](MusicStream& stream) { library.mixer.StopMusic(stream); });
}

/// The order that a start at a position begins with; none: play on from where the music stands.
std::optional<int> StartOrder(std::int32_t position) {
    return position < 0 ? std::nullopt : std::optional<int>(position);
}

}  // namespace

std::uint32_t BASS_GetVersion() {
    return kVersion;
}

int BASS_ErrorGetCode() {
    return Library().error;
}

int BASS_Init(int /*device*/, std::uint32_t /*rate*/, std::uint32_t /*flags*/, HWND /*window*/) {
    Close();
    AudioLibrary& library = Library();
    library.open = TheHost().OpenSound(library.mixer);
    if (!library.open) Fail(kAudioDevice);
    return library.open ? 1 : 0;
}

bool BASS_Start() {
    return Library().open || Fail(kAudioDevice);
}

bool BASS_Stop() {
    Library().mixer.StopAll();
    return Library().open || Fail(kAudioDevice);
}

void BASS_Free() {
    TheHost().CloseSound();  // also one that is only looked for
    Close();
}

HMUSIC BASS_MusicLoad(bool /*fromMemory*/, const std::string& path, std::uint32_t /*offset*/,
                      std::uint32_t /*length*/, std::uint32_t /*flags*/) {
    std::shared_ptr<MusicStream> stream = LoadFile(path, kMaxModuleBytes, OpenModuleLater);
    if (!stream) return 0;
    AudioLibrary& library = Library();
    library.music[++library.lastHandle] = std::move(stream);
    return library.lastHandle;
}

bool BASS_MusicPlayEx(HMUSIC music, std::int32_t position, std::uint32_t /*flags*/,
                      bool /*reset*/) {
    const std::shared_ptr<MusicStream> stream = FindMusic(music);
    if (!stream) return Fail(kAudioHandle);
    return Library().mixer.StartMusic(stream, StartOrder(position)) || Fail(kAudioSlow);
}

void BASS_MusicFree(HMUSIC music) {
    ChangeMusic(music, [](MusicStream& stream) { Library().mixer.StopMusic(stream); });
    Library().music.erase(music);
}

HSAMPLE BASS_SampleLoad(bool /*fromMemory*/, const std::string& path, std::uint32_t /*offset*/,
                        std::uint32_t /*length*/, std::uint32_t limit, std::uint32_t /*flags*/) {
    std::optional<Sample> sample = LoadFile(path, kMaxWavBytes, LoadSampleOnce);
    if (!sample) return 0;
    AudioLibrary& library = Library();
    library.samples[++library.lastHandle] = {std::make_shared<const Sample>(std::move(*sample)),
                                             std::max(limit, 1U)};
    return library.lastHandle;
}

HCHANNEL BASS_SamplePlay(HSAMPLE sample) {
    AudioLibrary& library = Library();
    const auto found = library.samples.find(sample);
    if (found == library.samples.end()) {
        Fail(kAudioHandle);
        return 0;
    }
    const HCHANNEL channel = ++library.lastHandle;
    library.mixer.PlaySample(found->second.sample, channel, found->second.limit);
    return channel;
}

void BASS_SampleFree(HSAMPLE sample) {
    if (!Library().samples.contains(sample)) {
        Fail(kAudioHandle);
        return;
    }
    Stop(sample);
    Library().samples.erase(sample);
}

bool BASS_ChannelIsActive(std::uint32_t handle) {
    Mixer& mixer = Library().mixer;
    if (const auto stream = FindMusic(handle)) return mixer.IsMusicPlaying(*stream);
    return mixer.IsChannelSounding(handle);
}

bool BASS_ChannelStop(std::uint32_t handle) {
    return Stop(handle);
}

bool BASS_ChannelPause(std::uint32_t handle) {
    return ChangeMusic(handle, [](MusicStream& stream) { Library().mixer.PauseMusic(stream); });
}

bool BASS_ChannelResume(std::uint32_t handle) {
    return ChangeMusic(handle, [](MusicStream& stream) { Library().mixer.ResumeMusic(stream); });
}

}  // namespace korvane
