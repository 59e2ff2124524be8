#pragma once

#include <SDL_audio.h>
#include <SDL_events.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include "platform/host/sound_source.h"

namespace korvane {

/// Another source after a time of silence.
class QuietStart final : public SoundSource {
  public:
    using Clock = std::chrono::steady_clock;

    QuietStart(SoundSource& source, std::chrono::milliseconds quiet)
        : source_(source), end_(Clock::now() + quiet) {}
    void Render(std::span<std::int16_t> samples) override;

  private:
    SoundSource& source_;
    const Clock::time_point end_;
};

/// The system's default sound device. SDL asks the source for frames on a thread of its own.
///
/// It plays nothing at first: the program's pictures are read and shown meanwhile, and the first
/// music, which takes some 20 ms to open, would take the processors from them.
///
/// When the device vanishes (a plug pulled, a sound server restarted), a second thread opens the
/// default device again, time after time until there is one; whoever opened the sound never waits.
class SdlSound {
  public:
    /// Opens a device and starts it; 0 when there is none.
    using Opener = std::function<SDL_AudioDeviceID(SoundSource&)>;
    static SDL_AudioDeviceID OpenDefault(SoundSource& source);

    struct Times {
        /// Between two looks for a device: half of the second after which it is to be heard.
        std::chrono::milliseconds retry{500};
        /// So long Close waits for a sound system that hangs.
        std::chrono::milliseconds patience{1000};
    };

    SdlSound() : SdlSound(OpenDefault, {}) {}
    SdlSound(Opener opener, Times times);
    ~SdlSound() { Close(); }
    SdlSound(const SdlSound&) = delete;
    SdlSound& operator=(const SdlSound&) = delete;

    /// False: there is no device. The source must live until Close has returned; for ever where a
    /// sound system may hang, as Close then leaves the device behind.
    bool Open(SoundSource& source);
    void Close();
    /// To be told of every device that SDL reports as added or removed.
    void OnEvent(const SDL_AudioDeviceEvent& event);

  private:
    class Device;

    const Opener opener_;
    const Times times_;
    std::shared_ptr<Device> device_;  ///< while it is open
};

}  // namespace korvane
