#include "platform/sdl/sdl_sound.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <queue>
#include <random>
#include <span>
#include <thread>
#include <utility>
#include <vector>

#include "platform/sound/mixer.h"
#include "tests/support/wav_writer.h"
#include "tests/support/xm_writer.h"

namespace korvane {
namespace {

/// Numbers of devices, which one thread hands to another.
class DeviceQueue {
  public:
    void Push(SDL_AudioDeviceID device) {
        const std::lock_guard lock(mutex_);
        devices_.push(device);
        pushed_.notify_all();
    }
    /// Waits for the next one; nothing when there is none for 20 seconds.
    std::optional<SDL_AudioDeviceID> Pop() {
        std::unique_lock lock(mutex_);
        const auto hasOne = [this] { return !devices_.empty(); };
        if (!pushed_.wait_for(lock, std::chrono::seconds(20), hasOne)) return std::nullopt;
        const SDL_AudioDeviceID device = devices_.front();
        devices_.pop();
        return device;
    }

  private:
    std::mutex mutex_;
    std::condition_variable pushed_;
    std::queue<SDL_AudioDeviceID> devices_;
};

/// Silence; pushes a number for each device that asks for it, which has a thread of its own.
class CountingSource final : public SoundSource {
  public:
    void Render(std::span<std::int16_t> samples) override {
        thread_local bool isKnown = false;
        std::ranges::fill(samples, std::int16_t{0});
        EXPECT_EQ(samples.size(), std::size_t{kSoundBufferFrames} * kSoundChannels);
        if (!std::exchange(isKnown, true)) devices.Push(0);
    }

    DeviceQueue devices;
};

void ReportRemoved(SdlSound& sound, SDL_AudioDeviceID device, bool recorder = false) {
    SDL_AudioDeviceEvent event{};
    event.type = SDL_AUDIODEVICEREMOVED;
    event.which = device;
    event.iscapture = recorder ? 1 : 0;
    sound.OnEvent(event);
}

/// Reports the device removed, whatever number SDL gave it.
void ReportAnyRemoved(SdlSound& sound, bool recorder) {
    for (SDL_AudioDeviceID device = 0; device <= 16; ++device)
        ReportRemoved(sound, device, recorder);
}

class SdlSoundTest : public testing::Test {
  protected:
    // A driver that takes frames at the right pace and plays them nowhere.
    void SetUp() override { setenv("SDL_AUDIODRIVER", "dummy", 1); }
    void TearDown() override { unsetenv("SDL_AUDIODRIVER"); }

    CountingSource source;
    SdlSound sound;
};

TEST_F(SdlSoundTest, ARemovedDeviceIsOpenedAgainAndAClosedOneStaysClosed) {
    setenv("SDL_AUDIODRIVER", "no such driver", 1);
    EXPECT_FALSE(sound.Open(source));
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    for (int openings = 0; openings < 2; ++openings) {
        ASSERT_TRUE(sound.Open(source));
        ASSERT_TRUE(source.devices.Pop());
        ReportAnyRemoved(sound, /*recorder=*/true);
        ReportAnyRemoved(sound, /*recorder=*/false);
        ASSERT_TRUE(source.devices.Pop());
        sound.Close();
        sound.Close();
        ReportAnyRemoved(sound, /*recorder=*/false);
    }
}

TEST_F(SdlSoundTest, ALostDeviceIsLookedForUntilThereIsOneThatStays) {
    // The second look finds none, and the device of the third is lost before it can be used.
    std::atomic<int> looks = 0;
    DeviceQueue found;
    SdlSound* opened = nullptr;
    const auto look = [&](SoundSource& to) {
        const SDL_AudioDeviceID device = ++looks == 2 ? 0 : SdlSound::OpenDefault(to);
        if (looks == 3) ReportRemoved(*opened, device);
        found.Push(device);
        return device;
    };
    SdlSound watched(look, {.retry = std::chrono::milliseconds(1)});
    opened = &watched;
    ASSERT_TRUE(watched.Open(source));
    ReportRemoved(watched, found.Pop().value_or(0));
    for (int failed = 2; failed <= 3; ++failed)
        EXPECT_TRUE(found.Pop());
    ReportRemoved(watched, found.Pop().value_or(0));
    EXPECT_NE(found.Pop().value_or(0), 0U);
    watched.Close();
    EXPECT_EQ(looks, 5) << "no look for a device that is there";
}

TEST_F(SdlSoundTest, ADriverThatHangsIsLeftBehind) {
    // What the thread that hangs uses lives as long as it does.
    const auto hanging = std::make_shared<std::promise<void>>();
    const auto looks = std::make_shared<int>(0);
    std::promise<void> release;
    SdlSound stuck(
        [hanging, looks, released = release.get_future().share()](SoundSource& to) {
            if (++*looks == 1) return SdlSound::OpenDefault(to);
            hanging->set_value();
            released.wait();
            return SDL_AudioDeviceID{0};
        },
        {.patience = std::chrono::milliseconds(1)});
    ASSERT_TRUE(stuck.Open(source));
    ReportAnyRemoved(stuck, /*recorder=*/false);
    ASSERT_EQ(hanging->get_future().wait_for(std::chrono::seconds(20)), std::future_status::ready);
    stuck.Close();  // returns
    EXPECT_EQ(*looks, 2);
    release.set_value();
}

TEST(QuietStartTest, TheSourceIsSilentUntilTheQuietTimeIsOver) {
    class Loud final : public SoundSource {
      public:
        void Render(std::span<std::int16_t> samples) override { std::ranges::fill(samples, 9); }
    } loud;
    for (const auto& [quiet, heard] : {std::pair(std::chrono::hours(1), 0), {{}, 9}}) {
        std::vector<std::int16_t> buffer(6, 1);
        QuietStart(loud, quiet).Render(buffer);
        EXPECT_EQ(buffer, std::vector<std::int16_t>(6, static_cast<std::int16_t>(heard)));
    }
}

/// The second thread stands for the device, but asks without a pause between two buffers.
TEST(TwoThreadsTest, TheGameMayChangeWhatSoundsAtAnyMoment) {
    Mixer mixer;
    const std::shared_ptr<MusicStream> music[] = {OpenModule(MakeXm({})),
                                                  OpenModuleLater(MakeXm({}))};
    const std::shared_ptr<const Sample> clicks[] = {MakeSample({.frames = 90}),
                                                    MakeSample({.rate = 8000, .frames = 90})};
    std::atomic<bool> ended = false;
    std::thread device([&] {
        std::vector<std::int16_t> buffer(std::size_t{2} * 16);
        for (int i = 0; i < 20000; ++i)
            mixer.Render(buffer);
        ended = true;
    });
    std::minstd_rand random(5);
    bool sounded = false;
    for (std::uint32_t channel = 1; !ended || channel < 1000; ++channel) {
        const auto& stream = music[random() % 2];
        const auto call = random() % 6;
        if (call == 0) mixer.StartMusic(stream, static_cast<int>(random() % 60));
        if (call == 1) mixer.PauseMusic(*stream);
        if (call == 2) mixer.ResumeMusic(*stream);
        if (call == 3) mixer.StopMusic(*stream);
        const auto& click = clicks[random() % 2];
        if (call == 4) mixer.StopSample(*click);
        if (call == 5) mixer.PlaySample(click, channel, 3);
        sounded = sounded || mixer.IsChannelSounding(channel);
        std::this_thread::yield();
    }
    device.join();
    EXPECT_TRUE(sounded);
    mixer.StopAll();
    for (const auto& stream : music)
        EXPECT_EQ(stream.use_count(), 1) << "nobody holds it any more";
    for (const auto& click : clicks)
        EXPECT_EQ(click.use_count(), 1);
}

}  // namespace
}  // namespace korvane
