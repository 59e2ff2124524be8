#include "bench/sound_bench.h"

#include <benchmark/benchmark.h>
#include <time.h>

#include <string>
#include <vector>

#include "platform/headless/headless_host.h"
#include "platform/sdl/heap.h"
#include "platform/sound/bass.h"
#include "platform/sound/music_stream.h"

namespace korvane::bench {
namespace {

constexpr const char* kFolder = "Skins\\Original\\Audio\\";

void Open() {
    Headless().UseFolder("");
    BASS_Init(-1, kSoundRate, /*flags=*/0, nullptr);
}

HMUSIC LoadModule() {
    return BASS_MusicLoad(false, std::string(kFolder) + "sniffit.xm", 0, 0, /*flags=*/0);
}

/// Renders one frame too, because a module is opened when it is first played.
void LoadPlayAndFree() {
    const HMUSIC music = LoadModule();
    BASS_MusicPlayEx(music, 0, /*flags=*/0, true);
    benchmark::DoNotOptimize(Headless().Hear(1).data());
    BASS_MusicFree(music);
}

/// Processor time of this thread, in milliseconds.
double ThreadTime() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double TimeToLoad() {
    const double start = ThreadTime();
    LoadPlayAndFree();
    return ThreadTime() - start;
}

/// Loading, starting and freeing the module. `first_ms` is that of the process's first time,
/// without the tables that another thread makes as it does in the game.
void Load(benchmark::State& state, double first) {
    Open();
    for (auto _ : state)
        LoadPlayAndFree();
    state.counters["first_ms"] = first;
}

/// A device's buffer of the game's music under 16 samples, or of silence. `of_core` is its time as
/// a share of how long it lasts.
void Mix(benchmark::State& state, bool music, int samples) {
    Open();
    const HMUSIC module = LoadModule();
    if (music) BASS_MusicPlayEx(module, 8, /*flags=*/0, true);
    std::vector<HSAMPLE> loaded;
    for (int i = 0; i < samples; ++i)
        loaded.push_back(
            BASS_SampleLoad(false, std::string(kFolder) + "NewLevel.wav", 0, 0, 3, /*flags=*/0));
    std::vector<HCHANNEL> channels(loaded.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < loaded.size(); ++i)
            if (!BASS_ChannelIsActive(channels[i])) channels[i] = BASS_SamplePlay(loaded[i]);
        benchmark::DoNotOptimize(Headless().Hear(kSoundBufferFrames).data());
    }
    state.counters["of_core"] = benchmark::Counter(
        static_cast<double>(state.iterations()) * kSoundBufferFrames / kSoundRate,
        benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    BASS_MusicFree(module);
    for (const HSAMPLE sample : loaded)
        BASS_SampleFree(sample);
}

}  // namespace

void RegisterSoundBenchmarks() {
    PrepareHeap();
    Open();
    const double first = TimeToLoad();
    const auto add = [](const char* name, auto run) {
        benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMicrosecond);
    };
    add("Sound/loadModule", [first](benchmark::State& state) { Load(state, first); });
    add("Sound/silence", [](benchmark::State& state) { Mix(state, false, 0); });
    add("Sound/music", [](benchmark::State& state) { Mix(state, true, 0); });
    add("Sound/musicAnd16Samples", [](benchmark::State& state) { Mix(state, true, 16); });
}

}  // namespace korvane::bench
