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
#include <random>
#include <span>
#include <thread>
#include <utility>
#include <vector>

#include "platform/sound/mixer.h"
#include "tests/support/xm_writer.h"

namespace korvane {
namespace {

/// Silence; counts the threads that have asked for it: each device has its own.
class CountingSource final : public SoundSource {
  public:
    void Render(std::span<std::int16_t> samples) override {
        thread_local bool known = false;
        std::ranges::fill(samples, std::int16_t{0});
        const std::lock_guard lock(mutex_);
        size_ = samples.size();
        if (!known) ++threads_;
        known = true;
        changed_.notify_all();
    }

    /// Whether that many devices have asked, waiting for the last one as long as need be.
    bool WaitForDevices(int count) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, std::chrono::seconds(20), [&] { return threads_ >= count; });
    }
    std::size_t AskedSize() {
        const std::lock_guard lock(mutex_);
        return size_;
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int threads_ = 0;
    std::size_t size_ = 0;
};

void ReportRemoved(SdlSound& sound, SDL_AudioDeviceID device, bool recorder = false) {
    SDL_AudioDeviceEvent event{};
    event.type = SDL_AUDIODEVICEREMOVED;
    event.which = device;
    event.iscapture = recorder ? 1 : 0;
    sound.OnEvent(event);
}

/// Reports all numbers that SDL may have given the device.
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
    int devices = 0;
    for (int openings = 0; openings < 2; ++openings) {
        ASSERT_TRUE(sound.Open(source));
        ASSERT_TRUE(source.WaitForDevices(++devices));
        EXPECT_EQ(source.AskedSize(), std::size_t{kSoundBufferFrames} * kSoundChannels);
        ReportAnyRemoved(sound, /*recorder=*/true);
        ReportAnyRemoved(sound, /*recorder=*/false);
        ASSERT_TRUE(source.WaitForDevices(++devices));
        sound.Close();
        sound.Close();
        ReportAnyRemoved(sound, /*recorder=*/false);
    }
}

TEST_F(SdlSoundTest, ThereMayBeNoDevice) {
    setenv("SDL_AUDIODRIVER", "no such driver", 1);
    EXPECT_FALSE(sound.Open(source));
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    EXPECT_TRUE(sound.Open(source));
}

TEST_F(SdlSoundTest, ALostDeviceIsLookedForUntilThereIsOneThatStays) {
    // The second look finds none, and what the third finds has gone before it can be told.
    std::mutex mutex;
    std::condition_variable changed;
    int looks = 0;
    SDL_AudioDeviceID found = 0;
    SdlSound* opened = nullptr;
    SdlSound watched(
        [&](SoundSource& to) {
            const std::lock_guard lock(mutex);
            ++looks;
            found = looks == 2 ? 0 : SdlSound::OpenDefault(to);
            if (looks == 3) ReportRemoved(*opened, found);
            changed.notify_all();
            return found;
        },
        {.retry = std::chrono::milliseconds(1)});
    opened = &watched;
    // The device that the look of that number found.
    const auto waitForLook = [&](int count) {
        std::unique_lock lock(mutex);
        EXPECT_TRUE(
            changed.wait_for(lock, std::chrono::seconds(20), [&] { return looks == count; }));
        return found;
    };
    ASSERT_TRUE(watched.Open(source));
    ReportRemoved(watched, waitForLook(1));
    ReportRemoved(watched, waitForLook(4));
    EXPECT_NE(waitForLook(5), 0U);
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

TEST(QuietStartTest, TheSourceIsNotAskedBeforeTheSilenceIsOver) {
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

/// Stands for the device, but asks without a pause between two buffers.
TEST(TwoThreadsTest, TheGameMayChangeWhatSoundsAtAnyMoment) {
    Mixer mixer;
    const std::shared_ptr<MusicStream> music[] = {OpenModule(MakeXm({})),
                                                  OpenModuleLater(MakeXm({}))};
    const auto click = std::make_shared<const Sample>(Sample{1, std::vector<std::int16_t>(90)});
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
        const auto deed = random() % 6;
        if (deed == 0) mixer.StartMusic(stream, static_cast<int>(random() % 60));
        if (deed == 1) mixer.PauseMusic(*stream);
        if (deed == 2) mixer.ResumeMusic(*stream);
        if (deed == 3) mixer.StopMusic(*stream);
        if (deed == 4) mixer.StopSample(*click);
        if (deed == 5) mixer.PlaySample(click, channel, 3);
        sounded = sounded || mixer.IsChannelSounding(channel);
        std::this_thread::yield();
    }
    device.join();
    EXPECT_TRUE(sounded);
    mixer.StopAll();
    for (const auto& stream : music)
        EXPECT_EQ(stream.use_count(), 1) << "nobody holds it any more";
}

}  // namespace
}  // namespace korvane
