#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace korvane {

class Surface;

/// Counts how often each figure type came up and keeps the bars of its chart.
class FigureStatistics {
  public:
    static constexpr std::size_t kTypes = 7;
    static constexpr double kTallestBar = 20.0;  ///< pixels

    virtual ~FigureStatistics() = default;

    void ResetChart();
    /// Counts a figure of type 1 to 7; any other type is ignored.
    void AddFigure(int type);

    /// Draws the bars growing upwards from the bottom of a chart area of 56 x 20 pixels at x, y.
    /// `picture` holds seven columns of 8 x 20, each the full bar of a type.
    void DrawChart(const Surface& picture, std::int32_t x, std::int32_t y) const;

    /// Figures of type 1 to 7 since the last reset, at index type - 1.
    const std::array<std::int32_t, kTypes>& Counts() const { return counts_; }
    /// Bar heights in pixels, 0 to kTallestBar; the most frequent type has the tallest bar.
    const std::array<double, kTypes>& Bars() const { return bars_; }
    std::int32_t Total() const { return total_; }

  private:
    std::array<std::int32_t, kTypes> counts_{};
    std::array<double, kTypes> bars_{};
    std::int32_t total_ = 0;
};

}  // namespace korvane
