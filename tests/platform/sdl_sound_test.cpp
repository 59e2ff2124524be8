#include "platform/sdl/sdl_sound.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>

namespace korvane {
namespace {

/// Silence; counts the threads that asked for it.
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

void ReportRemoved(SdlSound& sound, bool recorder) {
    // Whichever number SDL gave it.
    for (std::uint32_t device = 0; device <= 16; ++device) {
        SDL_AudioDeviceEvent event{};
        event.type = SDL_AUDIODEVICEREMOVED;
        event.which = device;
        event.iscapture = recorder ? 1 : 0;
        sound.OnEvent(event);
    }
}

class SdlSoundTest : public testing::Test {
  protected:
    // A driver that takes frames at the right pace and plays them nowhere.
    void SetUp() override { setenv("SDL_AUDIODRIVER", "dummy", 1); }
    void TearDown() override { unsetenv("SDL_AUDIODRIVER"); }

    CountingSource source;
    SdlSound sound;
};

TEST_F(SdlSoundTest, AsksForOneBufferAtATime) {
    ASSERT_TRUE(sound.Open(source));
    ASSERT_TRUE(source.WaitForDevices(1));
    EXPECT_EQ(source.AskedSize(), std::size_t{kSoundBufferFrames} * kSoundChannels);
}

TEST_F(SdlSoundTest, ARemovedDeviceIsOpenedAgainEachTime) {
    ASSERT_TRUE(sound.Open(source));
    for (int devices = 1; devices <= 3; ++devices) {
        ASSERT_TRUE(source.WaitForDevices(devices));
        ReportRemoved(sound, /*recorder=*/true);
        ReportRemoved(sound, /*recorder=*/false);
    }
    EXPECT_TRUE(source.WaitForDevices(4));
}

TEST_F(SdlSoundTest, OpensAgainAfterItWasClosed) {
    for (int devices = 1; devices <= 2; ++devices) {
        ASSERT_TRUE(sound.Open(source));
        EXPECT_TRUE(source.WaitForDevices(devices));
        sound.Close();
        sound.Close();
        ReportRemoved(sound, /*recorder=*/false);
    }
}

TEST_F(SdlSoundTest, ThereMayBeNoDevice) {
    setenv("SDL_AUDIODRIVER", "no such driver", 1);
    EXPECT_FALSE(sound.Open(source));
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    EXPECT_TRUE(sound.Open(source));
}

}  // namespace
}  // namespace korvane
