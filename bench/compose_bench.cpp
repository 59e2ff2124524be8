#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "bench/contest.h"
#include "bench/game_match.h"
#include "bench/recorded_frame.h"
#include "bench/sample_frame.h"
#include "bench/sdl_drawer.h"
#include "bench/sound_bench.h"

namespace korvane::bench {
namespace {

/// True when both have drawn the same picture; otherwise their times cannot be compared.
bool SamePicture(const FrameDrawer& a, const FrameDrawer& b) {
    for (int y = 0; y < kScreenSize.cy; ++y) {
        for (int x = 0; x < kScreenSize.cx; ++x) {
            if (a.Pixel({x, y}) != b.Pixel({x, y})) return false;
        }
    }
    return true;
}

/// Draws a frame in full, in all ways. Columns: microseconds of each, and our time as multiples of
/// the others'.
void DrawFullFrame(benchmark::State& state, const CopyKernels& kernels,
                   const RecordedFrame& frame) {
    UseCopyKernels(kernels);
    DirectDrawer direct(kScreenSize, frame);
    ListDrawer list(kScreenSize, frame);
    SdlDrawer sdlRuns(kScreenSize, frame, SdlKey::RunLength);
    SdlDrawer sdlKey(kScreenSize, frame, SdlKey::Plain);
    MemcpyFloor floor(kScreenSize, frame);
    FrameDrawer* const drawers[] = {&direct, &list, &sdlRuns, &sdlKey};

    Contest contest;
    for (FrameDrawer* drawer : drawers) {
        drawer->Draw();
        if (!SamePicture(direct, *drawer)) return state.SkipWithError("the pictures differ");
        contest.Enter([drawer] { drawer->Draw(); });
    }
    contest.Enter([&] { floor.Draw(); });
    for (auto _ : state) {
        contest.Round();
        state.SetIterationTime(contest.Last(0));
    }
    enum : std::size_t { kCopies, kList, kSdlRuns, kSdlKey, kMemcpy };
    const char* const names[] = {"copies", "list", "sdl_runs", "sdl_key", "memcpy"};
    for (std::size_t i = 0; i < std::size(names); ++i) {
        state.counters[std::string("us_") + names[i]] = contest.Median(i) * 1e6;
    }
    for (const std::size_t ours : {kCopies, kList}) {
        for (const std::size_t other : {kSdlRuns, kMemcpy}) {
            state.counters[std::string(names[ours]) + "/" + names[other]] =
                contest.Median(ours) / contest.Median(other);
        }
    }
}

/// Draws two frames in turn through a FrameList that keeps what they share. The column `of_full` is
/// the time of one frame as a part of the same frame drawn in full through the list.
void DrawChangedFrame(benchmark::State& state, const RecordedFrame& one, const RecordedFrame& two) {
    FrameList list;
    PixelBuffer target(kScreenSize, 4);
    bool odd = false;
    ListDrawer full(kScreenSize, one);

    Contest contest;
    contest.Enter([&] {
        Record(list, odd ? one : two);
        benchmark::DoNotOptimize(list.Compose(target).data());
        odd = !odd;
    });
    contest.Enter([&] { full.Draw(); });
    for (auto _ : state) {
        contest.Round();
        state.SetIterationTime(contest.Last(0));
    }
    state.counters["us_changed"] = contest.Median(0) * 1e6;
    state.counters["us_full"] = contest.Median(1) * 1e6;
    state.counters["of_full"] = contest.Median(0) / contest.Median(1);
}

/// Consecutive frames of a real match, as the program composes them: each from its list, only where
/// it differs from the one before. Beside it SDL and the memcpy floor, which draw every frame in
/// full. Columns: our time as multiples of theirs.
void DrawMatch(benchmark::State& state, GameMatch& match) {
    constexpr std::size_t kFrames = 32;
    std::vector<RecordedFrame> frames;
    for (std::size_t i = 0; i < kFrames; ++i) {
        match.Advance();
        frames.push_back(match.Capture());
    }
    std::vector<std::unique_ptr<SdlDrawer>> sdl;
    std::vector<std::unique_ptr<MemcpyFloor>> floors;
    for (const RecordedFrame& frame : frames) {
        sdl.push_back(std::make_unique<SdlDrawer>(kScreenSize, frame, SdlKey::RunLength));
        floors.push_back(std::make_unique<MemcpyFloor>(kScreenSize, frame));
    }
    FrameList list;
    PixelBuffer target(kScreenSize, 4);
    std::array<std::size_t, 3> next{};

    Contest contest;
    contest.Enter([&] {
        Record(list, frames[next[0]++ % kFrames]);
        benchmark::DoNotOptimize(list.Compose(target).data());
    });
    contest.Enter([&] { sdl[next[1]++ % kFrames]->Draw(); });
    contest.Enter([&] { floors[next[2]++ % kFrames]->Draw(); });
    for (auto _ : state) {
        contest.Round();
        state.SetIterationTime(contest.Last(0));
    }
    state.counters["us_ours"] = contest.Median(0) * 1e6;
    state.counters["us_sdl_runs"] = contest.Median(1) * 1e6;
    state.counters["us_memcpy"] = contest.Median(2) * 1e6;
    state.counters["ours/sdl_runs"] = contest.Median(0) / contest.Median(1);
    state.counters["ours/memcpy"] = contest.Median(0) / contest.Median(2);
}

/// The rules of a match of two random players, without drawing.
void AdvanceMatch(benchmark::State& state, GameMatch& match) {
    for (auto _ : state)
        match.Advance();
    state.SetItemsProcessed(state.iterations());
}

/// The frames that all measurements draw, kept while the program runs.
struct Samples {
    SampleSkin wholeSkin{{320, 372}};
    SampleSkin tiledSkin{{64, 64}};
    RecordedFrame whole = SampleFrame(wholeSkin, {});
    RecordedFrame tiled = SampleFrame(tiledSkin, {});
    RecordedFrame figureMoved = SampleFrame(wholeSkin, {.right = 34});
    RecordedFrame figuresMoved = SampleFrame(wholeSkin, {.right = 34, .left = 36});
};

void Register(const std::string& name, const std::function<void(benchmark::State&)>& run) {
    benchmark::RegisterBenchmark(name.c_str(), [run](benchmark::State& state) { run(state); })
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond)
        ->MinTime(0.05);
}

void RegisterAll(const Samples& samples, GameMatch& match) {
    static const RecordedFrame game = match.Capture();
    benchmark::RegisterBenchmark("Rules/AdvanceGame",
                                 [&](benchmark::State& state) { AdvanceMatch(state, match); });
    Register("MatchFrames", [&](benchmark::State& state) { DrawMatch(state, match); });
    for (const CopyKernels& kernels : AvailableCopyKernels()) {
        const std::string set = std::string("/") + kernels.name;
        Register("FullFrame/game" + set,
                 [&](benchmark::State& state) { DrawFullFrame(state, kernels, game); });
        Register("FullFrame/background320x372" + set,
                 [&](benchmark::State& state) { DrawFullFrame(state, kernels, samples.whole); });
        Register("FullFrame/background64x64" + set,
                 [&](benchmark::State& state) { DrawFullFrame(state, kernels, samples.tiled); });
    }
    Register("ChangedFrame/nothing", [&](benchmark::State& state) {
        DrawChangedFrame(state, samples.whole, samples.whole);
    });
    Register("ChangedFrame/oneFigure", [&](benchmark::State& state) {
        DrawChangedFrame(state, samples.whole, samples.figureMoved);
    });
    Register("ChangedFrame/twoFigures", [&](benchmark::State& state) {
        DrawChangedFrame(state, samples.whole, samples.figuresMoved);
    });
}

}  // namespace
}  // namespace korvane::bench

int main(int argc, char** argv) {
    korvane::bench::RegisterSoundBenchmarks();
    const korvane::bench::Samples samples;
    korvane::bench::GameMatch match;
    korvane::bench::RegisterAll(samples, match);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
