#include "gfx/figure_statistics.h"

#include <algorithm>

#include "gfx/surface.h"

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

void FigureStatistics::DrawChart(const Surface& picture, std::int32_t x, std::int32_t y) const {
    constexpr int kColumnWidth = 8;
    constexpr int kChartHeight = 20;
    for (std::size_t i = 0; i < kTypes; ++i) {
        if (bars_[i] < 1.0) continue;
        const int height = static_cast<int>(bars_[i]);
        const int column = static_cast<int>(i) * kColumnWidth;
        const int top = kChartHeight - height;
        picture.DrawKeyed({x + column, y + top}, RectAt({column, top}, {kColumnWidth, height}));
    }
}

}  // namespace korvane
