#pragma once

#include <string>

namespace korvane {

/// What the skin that theSettings name measures, a line for each figure: a number, then what it
/// tells. Distances of tiles, contrasts, and how much of each screen is dark or bright.
std::string MeasureSkin();

}  // namespace korvane
