#include "game/frame/statistics_chart.h"

#include "game/frame/game_art.h"

namespace korvane {

void DrawChart(const FigureStatistics& statistics, POINT at) {
    // The picture holds seven columns side by side, each the full bar of a type.
    constexpr int kColumnWidth = 8;
    constexpr int kChartHeight = 20;
    const Surface& columns = theGameArt.Picture(Art::Statistics);
    for (std::size_t type = 0; type < FigureStatistics::kTypes; ++type) {
        const double bar = statistics.Bars()[type];
        if (bar < 1.0) continue;
        const int height = static_cast<int>(bar);
        const int left = static_cast<int>(type) * kColumnWidth;
        const int top = kChartHeight - height;
        columns.DrawKeyed({at.x + left, at.y + top}, RectAt({left, top}, {kColumnWidth, height}));
    }
}

}  // namespace korvane
