#include "game/rules/figure_statistics.h"

#include <algorithm>

namespace korvane {

void FigureStatistics::ResetChart() {
    counts_.fill(0);
    bars_.fill(0.0);
    total_ = 0;
}

void FigureStatistics::AddFigure(int type) {
    if (type < 1 || type > static_cast<int>(kTypes)) return;
    ++total_;
    ++counts_[static_cast<std::size_t>(type - 1)];
    // Straight from the counts: scaling shares of the total instead rounds the tallest bar of some
    // counts to just under 20, and it would be drawn a pixel short.
    const double highest = *std::max_element(counts_.begin(), counts_.end());
    std::transform(counts_.begin(), counts_.end(), bars_.begin(),
                   [highest](std::int32_t count) { return count * kTallestBar / highest; });
}

}  // namespace korvane
