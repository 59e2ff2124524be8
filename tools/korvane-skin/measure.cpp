#include "tools/korvane-skin/measure.h"

#include <algorithm>
#include <cstdio>
#include <functional>

#include "tools/korvane-skin/checks.h"
#include "tools/korvane-skin/screens.h"

namespace korvane {
namespace {

/// Pixels whose largest channel is below or above these count as dark or bright.
constexpr std::uint32_t kDark = 28;
constexpr std::uint32_t kBright = 150;

std::string Line(double value, std::string_view of, std::string_view what) {
    std::array<char, 16> number;
    std::snprintf(number.data(), number.size(), "%6.2f", value);
    return Text(number.data(), "  ", of, what, "\n");
}

std::string Line(const TileDistances::Pair& pair, std::string_view of, std::string_view sight) {
    const auto& [distance, one, other] = pair;
    return Line(distance, of, Text(sight, ": ", one, " and ", other));
}

std::uint32_t LargestChannel(std::uint32_t colour) {
    return std::max({colour >> 16 & 0xFF, colour >> 8 & 0xFF, colour & 0xFF});
}

/// The share of a screen's pixels with a property, in percent.
double Share(const ScreenPicture& screen, const std::function<bool(std::uint32_t)>& counts) {
    const auto found = std::ranges::count_if(screen.pixels, counts);
    return 100.0 * static_cast<double>(found) / static_cast<double>(screen.pixels.size());
}

std::string ScreenLines(const ScreenPicture& screen) {
    const double dark = Share(screen, [](auto pixel) { return LargestChannel(pixel) < kDark; });
    const double bright = Share(screen, [](auto pixel) { return LargestChannel(pixel) > kBright; });
    return Line(dark, "% dark: ", screen.caption) + Line(bright, "% bright: ", screen.caption);
}

}  // namespace

std::string MeasureSkin() {
    const CheckedSkin skin;
    std::string lines;
    for (std::size_t i = 0; i < kSightNames.size(); ++i) {
        const TileDistances least = LeastTileDistances(skin, static_cast<Sight>(i));
        lines += Line(least.tiles, "tiles apart ", kSightNames[i]);
        if (i > 0) lines += Line(least.colours, "colours apart ", kSightNames[i]);
    }
    lines += Line(LeastTextContrast(skin), "contrast of text", "");
    lines += Line(LeastTileContrast(skin), "contrast of tiles with the board", "");
    for (const ScreenPicture& screen : DrawScreens())
        lines += ScreenLines(screen);
    return lines;
}

}  // namespace korvane
