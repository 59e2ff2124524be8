#include "platform/sdl/sdl_sound.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

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
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/sound/mixer.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/wav_writer.h"
#include "tests/support/xm_writer.h"

namespace korvane {
namespace {

constexpr std::chrono::seconds kLong(20);

/// Numbers of devices, which one thread hands to another.
class DeviceQueue {
  public:
    void Push(SDL_AudioDeviceID device) {
        const std::lock_guard lock(mutex_);
        devices_.push(device);
        pushed_.notify_all();
    }
    /// Waits for the next one; nothing when there is none for a long time.
    std::optional<SDL_AudioDeviceID> Pop() {
        std::unique_lock lock(mutex_);
        const auto hasOne = [this] { return !devices_.empty(); };
        if (!pushed_.wait_for(lock, kLong, hasOne)) return std::nullopt;
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

bool HasDriver(std::string_view name) {
    for (int i = 0; i < SDL_GetNumAudioDrivers(); ++i)
        if (SDL_GetAudioDriver(i) == name) return true;
    return false;
}

class SdlSoundTest : public testing::Test {
  protected:
    // A driver that takes frames at the right pace and plays them nowhere.
    void SetUp() override { setenv("SDL_AUDIODRIVER", "dummy", 1); }
    void TearDown() override {
        for (const char* name : {"SDL_AUDIODRIVER", "PULSE_SERVER", "PULSE_COOKIE"})
            unsetenv(name);
    }

    CountingSource source;
    SdlSound sound{SdlSound::OpenDefault, {.answer = kLong}};
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
        EXPECT_EQ(SDL_GetCurrentAudioDriver(), nullptr);
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

/// A way to open devices whose look of one number hangs until it is released. What the thread that
/// hangs uses lives as long as it does.
class HangingOpener {
  public:
    explicit HangingOpener(int look) : look_(look) {}

    SdlSound::Opener Open() const {
        return [all = *this](SoundSource& to) {
            if (++all.shared_->looks != all.look_) return SdlSound::OpenDefault(to);
            all.shared_->hanging.set_value();
            return all.released_.wait(), SDL_AudioDeviceID{0};
        };
    }
    bool Hangs() const {
        return shared_->hanging.get_future().wait_for(kLong) == std::future_status::ready;
    }
    void Release() const { shared_->release.set_value(); }
    int Looks() const { return shared_->looks; }

  private:
    struct Shared {
        std::promise<void> hanging, release;
        std::atomic<int> looks = 0;
    };

    const int look_;
    const std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
    const std::shared_future<void> released_ = shared_->release.get_future().share();
};

TEST_F(SdlSoundTest, ADriverThatHangsIsLeftBehind) {
    const HangingOpener opener(2);
    SdlSound stuck(opener.Open(), {.patience = std::chrono::milliseconds(1)});
    ASSERT_TRUE(stuck.Open(source));
    ReportAnyRemoved(stuck, /*recorder=*/false);
    ASSERT_TRUE(opener.Hangs());
    stuck.Close();  // returns
    EXPECT_EQ(opener.Looks(), 2);
    opener.Release();
}

TEST_F(SdlSoundTest, ASoundSystemThatAnswersLateIsWaitedForByNobody) {
    // Nothing here may end by itself: each time that is waited is longer than a test may take.
    constexpr SdlSound::Times kTimes = {.answer = std::chrono::milliseconds(1),
                                        .retry = std::chrono::milliseconds(1),
                                        .patience = std::chrono::hours(1)};
    for (const bool isClosedFirst : {true, false}) {
        const HangingOpener opener(1);
        SdlSound late(opener.Open(), kTimes);
        ASSERT_TRUE(late.Open(source)) << "as with a device";
        ASSERT_TRUE(opener.Hangs());
        ReportAnyRemoved(late, /*recorder=*/false);
        if (isClosedFirst) late.Close();
        opener.Release();
        if (isClosedFirst) continue;
        EXPECT_TRUE(source.devices.Pop()) << "the second look finds a device";
        EXPECT_EQ(opener.Looks(), 2);
    }
    // The first thread has left SDL, or this one could not play.
    ASSERT_TRUE(sound.Open(source));
    EXPECT_TRUE(source.devices.Pop());
}

/// A sound server that takes connections and says nothing.
class SilentServer {
  public:
    explicit SilentServer(const std::string& path) {
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(socket_, 9), 0);
    }
    ~SilentServer() { close(socket_); }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    /// Waits for a connection.
    bool IsCalled() const {
        pollfd call{socket_, POLLIN, 0};
        return poll(&call, 1, static_cast<int>(std::chrono::milliseconds(kLong).count())) == 1;
    }

  private:
    const int socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

TEST_F(SdlSoundTest, ASoundServerThatSaysNothingHoldsUpNobody) {
    const TemporaryFolder folder;
    setenv("SDL_AUDIODRIVER", "pulseaudio", 1);
    setenv("PULSE_SERVER", ("unix:" + folder.Path() + "/sound").c_str(), 1);
    setenv("PULSE_COOKIE", (folder.Path() + "/cookie").c_str(), 1);
    if (!HasDriver("pulseaudio")) GTEST_SKIP() << "SDL cannot talk to such a server";
    {
        const SilentServer server(folder.Path() + "/sound");
        SdlSound silent(SdlSound::OpenDefault, {.patience = std::chrono::hours(1)});
        EXPECT_TRUE(silent.Open(source)) << "as with a device";
        EXPECT_TRUE(server.IsCalled());
    }
    EXPECT_FALSE(sound.Open(source)) << "nobody listens; the thread that was left behind has ended";
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
