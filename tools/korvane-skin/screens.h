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

/// Screens of the game that together show every picture of the skin in use. Changes theSettings.
std::vector<ScreenPicture> DrawScreens();

}  // namespace korvane
