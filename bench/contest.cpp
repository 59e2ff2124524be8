#include "bench/contest.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace korvane::bench {
namespace {

/// Long enough for the clock's resolution, short enough that the machine's speed changes little
/// while all contestants have their turn.
constexpr int kFramesPerRun = 8;

}  // namespace

void Contest::Enter(std::function<void()> frame) {
    contestants_.push_back({std::move(frame), {}});
}

void Contest::Round() {
    for (Contestant& contestant : contestants_) {
        contestant.frame();
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < kFramesPerRun; ++i)
            contestant.frame();
        const std::chrono::duration<double> run = std::chrono::steady_clock::now() - start;
        contestant.runs.push_back(run.count() / kFramesPerRun);
    }
}

double Contest::Median(std::size_t contestant) const {
    std::vector<double> runs = contestants_[contestant].runs;
    const auto middle = runs.begin() + static_cast<std::ptrdiff_t>(runs.size() / 2);
    std::nth_element(runs.begin(), middle, runs.end());
    return *middle;
}

}  // namespace korvane::bench
