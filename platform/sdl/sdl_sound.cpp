#include "platform/sdl/sdl_sound.h"

#include <SDL.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <new>
#include <span>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/sdl/alsa_messages.h"

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
    const std::span samples(reinterpret_cast<std::int16_t*>(bytes),
                            static_cast<std::size_t>(count) / sizeof(std::int16_t));
    try {
        static_cast<SoundSource*>(source)->Render(samples);
    } catch (const std::bad_alloc&) {
        // The game's thread meets it, too, and saves. Until then there is silence.
        std::ranges::fill(samples, std::int16_t{0});
    }
}

/// Held by the thread that uses SDL's sound: one that was left behind may still be in there when
/// the next device is opened. Never destroyed, as threads may outlive everything else.
std::mutex& SdlSoundLock() {
    static auto* const mutex = new std::mutex;
    return *mutex;
}

}  // namespace

void QuietStart::Render(std::span<std::int16_t> samples) {
    if (Clock::now() >= end_) return source_.Render(samples);
    std::ranges::fill(samples, std::int16_t{0});
}

/// A device and the thread that opens, watches and closes it. The thread shares it, and may outlive
/// everything else when the sound system hangs.
class SdlSound::Device {
  public:
    Device(const Opener& opener, const Times& times, std::function<void()> tell,
           SoundSource& source)
        : opener_(opener),
          times_(times),
          tell_(std::move(tell)),
          source_(source, kQuiet),
          asked_(source) {}

    /// Body of the thread.
    void Run();
    /// False when the answer is that there is no device; true also when none comes in time.
    bool AwaitAnswer();
    /// Whether the source is asked for frames now.
    bool Plays(const SoundSource& source);
    void OnRemoved(SDL_AudioDeviceID removed);
    void AskToEnd();
    /// Waits until the device is closed, unless the sound system hangs.
    void AwaitEnd();

  private:
    enum class Answer : std::uint8_t { Awaited, Late, Device, NoDevice };

    /// Looks for a device whenever there is none, until it is asked to end.
    void Keep();
    /// Takes the result of a look into the answer, and tells of a device that nobody expects.
    /// Called with the lock, which is given up meanwhile.
    void TakeAnswer(std::unique_lock<std::mutex>& lock);
    /// Looks for a device in the place of one that has gone. Called with the lock, which is given
    /// up meanwhile: nobody must wait for it.
    void Look(std::unique_lock<std::mutex>& lock);
    SDL_AudioDeviceID Find();
    bool StartDriver();

    const Opener opener_;
    const Times times_;
    const std::function<void()> tell_;
    QuietStart source_;
    const SoundSource& asked_;
    // The thread's own.
    bool hasDriver_ = false;
    bool hasOpened_ = false;  ///< a device, by this driver

    std::mutex mutex_;  // guards all below
    std::condition_variable changed_;
    Answer answer_ = Answer::Awaited;
    SDL_AudioDeviceID device_ = 0;
    SDL_AudioDeviceID removed_ = 0;  ///< reported while the thread was looking
    bool lost_ = true;
    bool ending_ = false;
    bool ended_ = false;
};

void SdlSound::Device::Run() {
    const std::lock_guard alone(SdlSoundLock());
    Keep();
    if (hasDriver_) SDL_AudioQuit();  // closes the device
    SDL_TLSCleanup();                 // SDL does it for its own threads only
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
}

void SdlSound::Device::Keep() {
    std::unique_lock lock(mutex_);
    while (!ending_) {
        if (lost_) Look(lock);
        TakeAnswer(lock);
        const auto pause = hasOpened_ ? times_.retry : times_.search;
        if (lost_) changed_.wait_for(lock, pause, [this] { return ending_; });
        changed_.wait(lock, [this] { return ending_ || lost_; });
    }
}

void SdlSound::Device::TakeAnswer(std::unique_lock<std::mutex>& lock) {
    const Answer before = answer_;
    const bool isNone = before == Answer::Awaited || before == Answer::NoDevice;
    answer_ = lost_ && isNone ? Answer::NoDevice : Answer::Device;
    changed_.notify_all();
    if (before != Answer::NoDevice || lost_ || !tell_) return;
    lock.unlock();
    tell_();
    lock.lock();
}

void SdlSound::Device::Look(std::unique_lock<std::mutex>& lock) {
    const SDL_AudioDeviceID gone = std::exchange(device_, 0);
    removed_ = 0;
    lock.unlock();
    if (gone != 0) SDL_CloseAudioDevice(gone);
    const SDL_AudioDeviceID found = Find();
    lock.lock();
    device_ = found;
    lost_ = found == 0 || found == removed_;
}

/// A driver that has opened a device stays: while a sound server restarts, SDL would take another
/// driver, which the server then finds in its way. One that has not may be the wrong one, and SDL
/// chooses only when its sound is started.
SDL_AudioDeviceID SdlSound::Device::Find() {
    if (!hasDriver_ && !StartDriver()) return 0;
    const SDL_AudioDeviceID found = opener_(source_);
    hasOpened_ = hasOpened_ || found != 0;
    if (hasOpened_) return found;
    SDL_AudioQuit();
    hasDriver_ = false;
    return 0;
}

bool SdlSound::Device::StartDriver() {
    // Not SDL_InitSubSystem, whose counts of users are not made for two threads.
    SilenceAlsa();  // where SDL has the library from the start
    if (SDL_AudioInit(nullptr) != 0) return false;
    SilenceAlsa();  // where it has loaded it only now
    hasDriver_ = !DriverIsMute();
    if (!hasDriver_) SDL_AudioQuit();
    return hasDriver_;
}

bool SdlSound::Device::AwaitAnswer() {
    std::unique_lock lock(mutex_);
    const auto isAnswered = [this] { return answer_ != Answer::Awaited; };
    if (!changed_.wait_for(lock, times_.answer, isAnswered)) answer_ = Answer::Late;
    return answer_ != Answer::NoDevice;
}

bool SdlSound::Device::Plays(const SoundSource& source) {
    const std::lock_guard lock(mutex_);
    return &source == &asked_ && answer_ == Answer::Device && !lost_;
}

void SdlSound::Device::OnRemoved(SDL_AudioDeviceID removed) {
    {
        const std::lock_guard lock(mutex_);
        removed_ = removed;
        lost_ = lost_ || removed == device_;
    }
    changed_.notify_all();
}

void SdlSound::Device::AskToEnd() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
}

void SdlSound::Device::AwaitEnd() {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, times_.patience, [this] { return ended_ || answer_ == Answer::Late; });
}

SdlSound::SdlSound(Opener opener, Times times) : opener_(std::move(opener)), times_(times) {}

bool SdlSound::Open(SoundSource& source) {
    if (device_ && device_->Plays(source)) return true;
    Close();
    const auto device = std::make_shared<Device>(opener_, times_, tell_, source);
    try {
        std::thread([device] { device->Run(); }).detach();
    } catch (const std::system_error&) {
        return false;  // SDL could not make its own threads either
    }
    device_ = device;
    return device->AwaitAnswer();
}

void SdlSound::Close() {
    if (!device_) return;
    const std::shared_ptr<Device> device = std::exchange(device_, nullptr);
    device->AskToEnd();
    device->AwaitEnd();
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
