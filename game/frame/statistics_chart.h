#pragma once

#include "game/rules/figure_statistics.h"
#include "platform/base/types.h"

namespace korvane {

/// Draws the bars growing upwards from the bottom of a chart area of 56 x 20 pixels, whose left
/// upper corner is given.
void DrawChart(const FigureStatistics& statistics, POINT at);

}  // namespace korvane
