#pragma once

#include <SDL_audio.h>
#include <SDL_events.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <utility>

#include "platform/host/sound_source.h"

namespace korvane {

/// Plays silence for some time, then another source.
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
/// It is silent at first. The program loads and shows its pictures then, and opening the first
/// music would delay them by some 20 ms.
///
/// A thread of its own does all that may take long: it starts SDL's sound, opens the device, opens
/// the default device again when it vanishes (a plug pulled, a sound server restarted), and closes
/// it. Where there is none at the start it goes on looking once a second, each time for the right
/// driver, too: a sound server may be started later. A sound server may also accept a connection
/// and never answer. So the program waits for the thread for a short time only, and leaves it
/// behind when it hangs.
class SdlSound {
  public:
    /// Opens a device and starts it; 0 when there is none. Called on the thread.
    using Opener = std::function<SDL_AudioDeviceID(SoundSource&)>;
    static SDL_AudioDeviceID OpenDefault(SoundSource& source);

    struct Times {
        /// How long Open waits for the first answer of the sound system.
        std::chrono::milliseconds answer{300};
        /// Between two tries to open a device that has gone, which is to be heard a second after it
        /// has come back.
        std::chrono::milliseconds retry{500};
        /// The same while there has not been any. Each try starts a driver, which takes longer.
        std::chrono::milliseconds search{1000};
        /// How long Close waits for one that has answered before and now hangs.
        std::chrono::milliseconds patience{1000};
    };

    SdlSound() : SdlSound(OpenDefault, {}) {}
    SdlSound(Opener opener, Times times);
    ~SdlSound() { Close(); }
    SdlSound(const SdlSound&) = delete;
    SdlSound& operator=(const SdlSound&) = delete;

    /// To be called, on a thread of its own, when there is a device after Open has said that there
    /// is none: Open is then true. Holds for the next Open.
    void WhenFound(std::function<void()> tell) { tell_ = std::move(tell); }

    /// False: there is no device yet. True also when the sound system does not answer in time: the
    /// source is then asked for frames as soon as there is a device. SDL's events must be started,
    /// if they are used at all. The source must live until Close has returned; for ever where a
    /// sound system may hang, as Close then leaves the device behind.
    bool Open(SoundSource& source);
    /// Does not wait at all for a sound system that has not yet answered.
    void Close();
    /// To be told of every device that SDL reports as added or removed.
    void OnEvent(const SDL_AudioDeviceEvent& event);

  private:
    class Device;

    const Opener opener_;
    const Times times_;
    std::function<void()> tell_;
    std::shared_ptr<Device> device_;  ///< while it is open or looked for
};

}  // namespace korvane
