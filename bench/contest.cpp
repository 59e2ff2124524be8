#include "bench/contest.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace korvane::bench {
namespace {

/// Long enough for the clock's resolution, short enough that all contestants see the same machine.
constexpr int kFramesPerSpell = 8;

}  // namespace

void Contest::Enter(std::function<void()> frame) {
    contestants_.push_back({std::move(frame), {}});
}

void Contest::Round() {
    for (Contestant& contestant : contestants_) {
        contestant.frame();
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < kFramesPerSpell; ++i)
            contestant.frame();
        const std::chrono::duration<double> spell = std::chrono::steady_clock::now() - start;
        contestant.spells.push_back(spell.count() / kFramesPerSpell);
    }
}

double Contest::Median(std::size_t contestant) const {
    std::vector<double> spells = contestants_[contestant].spells;
    const auto middle = spells.begin() + static_cast<std::ptrdiff_t>(spells.size() / 2);
    std::nth_element(spells.begin(), middle, spells.end());
    return *middle;
}

}  // namespace korvane::bench
