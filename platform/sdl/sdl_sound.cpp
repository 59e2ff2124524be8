#include "platform/sdl/sdl_sound.h"

#include <SDL.h>

#include <algorithm>
#include <string_view>
#include <system_error>
#include <utility>

namespace korvane {
namespace {

constexpr std::chrono::milliseconds kQuiet(100);

/// Drivers that nobody hears are only wanted by somebody who names them.
bool DriverIsMute() {
    const char* driver = SDL_GetCurrentAudioDriver();
    if (driver == nullptr) return true;
    const std::string_view name = driver;
    return (name == "dummy" || name == "disk") && SDL_getenv("SDL_AUDIODRIVER") == nullptr;
}

void SDLCALL Fill(void* source, Uint8* bytes, int count) {
    auto* samples = reinterpret_cast<std::int16_t*>(bytes);
    const auto size = static_cast<std::size_t>(count) / sizeof(std::int16_t);
    static_cast<SoundSource*>(source)->Render(std::span(samples, size));
}

}  // namespace

void QuietStart::Render(std::span<std::int16_t> samples) {
    if (Clock::now() >= end_) return source_.Render(samples);
    std::ranges::fill(samples, std::int16_t{0});
}

bool SdlSound::Open(SoundSource& source) {
    Close();
    // Apart from video: a machine without sound still shows the game.
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
    source_.emplace(source, kQuiet);
    device_ = DriverIsMute() ? 0 : opener_(*source_);
    if (device_ == 0) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        source_.reset();
        return false;
    }
    lost_ = ending_ = false;
    try {
        keeper_ = std::thread([this] { KeepDevice(); });
    } catch (const std::system_error&) {
        // The device is not looked for again.
    }
    return true;
}

void SdlSound::Close() {
    if (!source_) return;
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_one();
    if (keeper_.joinable()) keeper_.join();
    if (device_ != 0) SDL_CloseAudioDevice(std::exchange(device_, 0));
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    source_.reset();
}

void SdlSound::OnEvent(const SDL_AudioDeviceEvent& event) {
    if (!source_ || event.iscapture != 0 || event.type != SDL_AUDIODEVICEREMOVED) return;
    {
        const std::lock_guard lock(mutex_);
        removed_ = event.which;
        lost_ = lost_ || event.which == device_;
    }
    changed_.notify_one();
}

SDL_AudioDeviceID SdlSound::OpenDefault(SoundSource& source) {
    SDL_AudioSpec wanted{};
    wanted.freq = kSoundRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = kSoundChannels;
    wanted.samples = kSoundBufferFrames;
    wanted.callback = Fill;
    wanted.userdata = &source;
    const SDL_AudioDeviceID device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device != 0) SDL_PauseAudioDevice(device, 0);
    return device;
}

void SdlSound::KeepDevice() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ending_ || lost_; });
        if (ending_) return;
        const SDL_AudioDeviceID gone = std::exchange(device_, 0);
        removed_ = 0;
        // Opening and closing may wait for the system; nobody is to wait for the lock meanwhile.
        lock.unlock();
        if (gone != 0) SDL_CloseAudioDevice(gone);
        const SDL_AudioDeviceID found = opener_(*source_);
        lock.lock();
        device_ = found;
        lost_ = found == 0 || found == removed_;
        if (lost_) changed_.wait_for(lock, retry_, [this] { return ending_; });
    }
}

}  // namespace korvane
