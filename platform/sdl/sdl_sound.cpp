#include "platform/sdl/sdl_sound.h"

#include <SDL.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace korvane {
namespace {

constexpr std::chrono::milliseconds kQuiet(100);

/// Drivers that play nowhere are used only when the user names one.
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

/// An open device, and the thread that opens it again. The thread that ends both shares it, and may
/// outlive everything else when the sound system hangs.
class SdlSound::Device {
  public:
    Device(const Opener& opener, const Times& times, SoundSource& source)
        : opener_(opener), times_(times), source_(source, kQuiet), device_(opener_(source_)) {}

    bool IsThere() const { return device_ != 0; }
    void StartKeeper() {
        keeper_ = std::thread([this] { Keep(); });
    }
    void OnRemoved(SDL_AudioDeviceID removed);

    void AskToEnd();
    /// Ends thread and device, however long that takes.
    void End();
    /// False when that takes too long.
    bool AwaitEnd();

  private:
    /// Body of the thread.
    void Keep();

    const Opener opener_;
    const Times times_;
    QuietStart source_;
    std::thread keeper_;

    std::mutex mutex_;  // guards all below
    std::condition_variable changed_;
    SDL_AudioDeviceID device_ = 0;
    SDL_AudioDeviceID removed_ = 0;  ///< reported while the keeper was opening
    bool lost_ = false;
    bool ending_ = false;
    bool ended_ = false;
};

void SdlSound::Device::OnRemoved(SDL_AudioDeviceID removed) {
    {
        const std::lock_guard lock(mutex_);
        removed_ = removed;
        lost_ = lost_ || removed == device_;
    }
    changed_.notify_all();
}

void SdlSound::Device::Keep() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ending_ || lost_; });
        if (ending_) return;
        const SDL_AudioDeviceID gone = std::exchange(device_, 0);
        removed_ = 0;
        // Opening and closing may take long; nobody must wait for the lock meanwhile.
        lock.unlock();
        if (gone != 0) SDL_CloseAudioDevice(gone);
        const SDL_AudioDeviceID found = opener_(source_);
        lock.lock();
        device_ = found;
        lost_ = found == 0 || found == removed_;
        if (lost_) changed_.wait_for(lock, times_.retry, [this] { return ending_; });
    }
}

void SdlSound::Device::AskToEnd() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
}

void SdlSound::Device::End() {
    if (keeper_.joinable()) keeper_.join();
    if (device_ != 0) SDL_CloseAudioDevice(device_);
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
}

bool SdlSound::Device::AwaitEnd() {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, times_.patience, [this] { return ended_; });
}

SdlSound::SdlSound(Opener opener, Times times) : opener_(std::move(opener)), times_(times) {}

bool SdlSound::Open(SoundSource& source) {
    Close();
    // Apart from video: a machine without sound still shows the game.
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
    if (!DriverIsMute()) device_ = std::make_shared<Device>(opener_, times_, source);
    if (!device_ || !device_->IsThere()) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        device_.reset();
        return false;
    }
    try {
        device_->StartKeeper();
    } catch (const std::system_error&) {
        // The device is not looked for again.
    }
    return true;
}

void SdlSound::Close() {
    if (!device_) return;
    const std::shared_ptr<Device> device = std::exchange(device_, nullptr);
    device->AskToEnd();
    try {
        std::thread([device] { device->End(); }).detach();
    } catch (const std::system_error&) {
        device->End();
    }
    // A sound system that hangs keeps what it uses: the program must be able to end.
    if (device->AwaitEnd()) SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

void SdlSound::OnEvent(const SDL_AudioDeviceEvent& event) {
    if (!device_ || event.iscapture != 0 || event.type != SDL_AUDIODEVICEREMOVED) return;
    device_->OnRemoved(event.which);
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

}  // namespace korvane
