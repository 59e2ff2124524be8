#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace korvane {

/// A screen of the game and what it shows.
struct ScreenPicture {
    std::string_view caption;
    std::vector<std::uint32_t> pixels;  ///< 640 x 480, 0x00RRGGBB; empty when it failed
};

/// Every picture of the skin that is in use on the screens it belongs to. The settings are others
/// afterwards.
std::vector<ScreenPicture> DrawScreens();

}  // namespace korvane
