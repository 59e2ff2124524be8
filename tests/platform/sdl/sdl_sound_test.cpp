#include "platform/sdl/sdl_sound.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <future>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/sound/mixer.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/wav_writer.h"
#include "tests/support/xm_writer.h"

namespace korvane {
namespace {

using namespace std::chrono_literals;

constexpr int kLongMs = 20'000;
constexpr std::chrono::milliseconds kLong(kLongMs);

/// Numbers of devices, which one thread hands to another.
class DeviceQueue {
  public:
    DeviceQueue() { EXPECT_EQ(pipe2(ends_, O_CLOEXEC), 0); }
    ~DeviceQueue() { EXPECT_EQ(close(ends_[0]) + close(ends_[1]), 0); }
    void Push(SDL_AudioDeviceID device) {
        EXPECT_EQ(write(ends_[1], &device, sizeof device), ssize_t{sizeof device});
    }
    /// Waits for the next one; nothing when there is none for a long time.
    std::optional<SDL_AudioDeviceID> Pop() {
        pollfd waiting{ends_[0], POLLIN, 0};
        SDL_AudioDeviceID device = 0;
        if (poll(&waiting, 1, kLongMs) != 1) return std::nullopt;
        EXPECT_EQ(read(ends_[0], &device, sizeof device), ssize_t{sizeof device});
        return device;
    }

  private:
    int ends_[2] = {};
};

constexpr std::int16_t kLevel = 9;

/// A steady level; pushes a number for each device that asks for it, which has a thread of its own.
class CountingSource final : public SoundSource {
  public:
    void Render(std::span<std::int16_t> samples) override {
        thread_local bool isKnown = false;
        std::ranges::fill(samples, kLevel);
        EXPECT_EQ(samples.size(), std::size_t{kSoundBufferFrames} * kSoundChannels);
        if (!std::exchange(isKnown, true)) devices.Push(0);
    }

    DeviceQueue devices;
};

void ReportRemoved(SdlSound& sound, SDL_AudioDeviceID device, bool recorder = false) {
    sound.OnEvent({SDL_AUDIODEVICEREMOVED, /*timestamp=*/0, device, recorder, 0, 0, 0});
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
    SdlSound watched(look, {.answer = kLong, .retry = 1ms});
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

TEST_F(SdlSoundTest, ADeviceThatComesLaterIsFoundByTheRightDriverAndTold) {
    // SDL reads the variable on the thread that looks.
    const char* const kNext[] = {"disk", "dummy", "disk", "disk", "disk"};
    const std::set<std::size_t> kFailing = {1, 2, 4};
    std::vector<std::string> drivers;
    const auto look = [&](SoundSource& to) {
        drivers.emplace_back(SDL_GetCurrentAudioDriver());
        const SDL_AudioDeviceID device =
            kFailing.contains(drivers.size()) ? 0 : SdlSound::OpenDefault(to);
        setenv("SDL_AUDIODRIVER", kNext[drivers.size() - 1], 1);
        return device;
    };
    setenv("SDL_DISKAUDIOFILE", "/dev/null", 1);  // should it be opened all the same
    DeviceQueue told;
    SdlSound late(look, {.answer = kLong, .retry = 1ms, .search = 1ms});
    late.WhenFound([&] { told.Push(0); });
    // With the shortest pause it may be there before this thread has heard that it is not.
    late.Open(source);
    EXPECT_TRUE(told.Pop());
    EXPECT_TRUE(late.Open(source));
    EXPECT_TRUE(source.devices.Pop());
    ReportAnyRemoved(late, /*recorder=*/false);
    EXPECT_TRUE(source.devices.Pop());
    late.Close();
    EXPECT_EQ(drivers, (std::vector<std::string>{"dummy", "disk", "dummy", "dummy", "dummy"}))
        << "one that has opened a device stays";
}

TEST_F(SdlSoundTest, WithoutADeviceTheNextLookHoldsUpNobodyAndTheTerminalStaysClean) {
    setenv("SDL_AUDIODRIVER", "alsa", 1);
    setenv("AUDIODEV", "none of these", 1);
    testing::internal::CaptureStderr();
    SdlSound none(SdlSound::OpenDefault, {.answer = kLong, .search = 1h, .patience = 1h});
    EXPECT_FALSE(none.Open(source));
    none.Close();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(SDL_GetCurrentAudioDriver(), nullptr);
}

/// What a thread that hangs uses: it lives as long as the thread does.
struct Hanging {
    DeviceQueue reached;
    std::promise<void> release;
    std::atomic<int> looks = 0;
};

/// Opens devices; the look of that number hangs until it is released, and then finds none.
SdlSound::Opener HangAt(int look, const std::shared_ptr<Hanging>& hanging) {
    return [=](SoundSource& to) {
        if (++hanging->looks != look) return SdlSound::OpenDefault(to);
        hanging->reached.Push(0);
        hanging->release.get_future().wait();
        return SDL_AudioDeviceID{0};
    };
}

TEST_F(SdlSoundTest, ADriverThatHangsIsLeftBehind) {
    const auto hanging = std::make_shared<Hanging>();
    SdlSound stuck(HangAt(2, hanging), {.answer = kLong, .patience = 1ms});
    ASSERT_TRUE(stuck.Open(source));
    ReportAnyRemoved(stuck, /*recorder=*/false);
    ASSERT_TRUE(hanging->reached.Pop());
    stuck.Close();  // returns
    EXPECT_EQ(hanging->looks, 2);
    hanging->release.set_value();
}

constexpr SdlSound::Times kInAHurry = {.answer = 1ms, .retry = 1ms, .patience = 1h};

TEST_F(SdlSoundTest, ASoundSystemThatAnswersLateIsWaitedForByNobody) {
    for (const bool isClosedFirst : {true, false}) {
        const auto hanging = std::make_shared<Hanging>();
        SdlSound late(HangAt(1, hanging), kInAHurry);
        ASSERT_TRUE(late.Open(source)) << "as with a device";
        ASSERT_TRUE(hanging->reached.Pop());
        if (isClosedFirst) late.Close();
        hanging->release.set_value();
        EXPECT_TRUE(isClosedFirst || source.devices.Pop()) << "the second look finds a device";
    }
    // The first thread has left SDL, or this one could not play.
    ASSERT_TRUE(sound.Open(source));
    EXPECT_TRUE(source.devices.Pop());
}

TEST_F(SdlSoundTest, ASoundServerThatTakesAConnectionAndSaysNothingHoldsUpNobody) {
    const TemporaryFolder folder;
    const std::string path = folder.Path() + "/server";
    setenv("SDL_AUDIODRIVER", "pulseaudio", 1);
    setenv("PULSE_SERVER", ("unix:" + path).c_str(), 1);
    setenv("PULSE_COOKIE", (folder.Path() + "/cookie").c_str(), 1);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    pollfd server{socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0), POLLIN, 0};
    ASSERT_EQ(bind(server.fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(server.fd, 1), 0);
    SdlSound silent(SdlSound::OpenDefault, kInAHurry);
    EXPECT_TRUE(silent.Open(source)) << "as with a device";
    EXPECT_EQ(poll(&server, 1, kLongMs), 1) << "it is called";
    silent.Close();
    close(server.fd);
    EXPECT_FALSE(sound.Open(source)) << "nobody listens; the thread that was left behind has ended";
}

TEST(QuietStartTest, TheSourceIsSilentUntilTheQuietTimeIsOver) {
    CountingSource source;
    for (const auto& [quiet, heard] : {std::pair(1h, std::int16_t{0}), {0h, kLevel}}) {
        std::vector<std::int16_t> buffer(std::size_t{kSoundBufferFrames} * kSoundChannels, 1);
        QuietStart(source, quiet).Render(buffer);
        EXPECT_EQ(buffer, std::vector<std::int16_t>(buffer.size(), heard));
    }
}

/// The second thread stands for the device, but asks without a pause between two buffers.
TEST(TwoThreadsTest, TheGameMayChangeWhatSoundsAtAnyMoment) {
    Mixer mixer;
    const std::shared_ptr<MusicStream> music[] = {OpenModule(MakeXm({})),
                                                  OpenModuleLater(MakeXm({}))};
    const std::shared_ptr<const Sample> clicks[] = {MakeSample({.frames = 90}),
                                                    MakeSample({.rate = 8000, .frames = 90})};
    const auto device = std::async(std::launch::async, [&] {
        std::vector<std::int16_t> buffer(std::size_t{2} * 16);
        for (int i = 0; i < 20000; ++i)
            mixer.Render(buffer);
    });
    std::minstd_rand random(5);
    bool sounded = false;
    const auto isRendering = [&] { return device.wait_for(0s) == std::future_status::timeout; };
    for (std::uint32_t channel = 1; channel < 1000 || isRendering(); ++channel) {
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
    EXPECT_TRUE(sounded);
    mixer.StopAll();
    for (const auto& stream : music)
        EXPECT_EQ(stream.use_count(), 1) << "nobody holds it any more";
    for (const auto& click : clicks)
        EXPECT_EQ(click.use_count(), 1);
}

}  // namespace
}  // namespace korvane
