#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

/// The picture that full screen shows.
inline constexpr std::uint32_t kModeWidth = 640;
inline constexpr std::uint32_t kModeHeight = 480;

struct ModeChoice {
    std::uint32_t bitsPerPixel = 0;
    std::uint32_t refreshHz = 0;

    bool operator==(const ModeChoice&) const = default;
};

/// An entry of the mode list, such as "640 x 480 x 16 - 75 Hz".
std::string ModeText(const ModeChoice& mode);

/// The mode of such an entry; a number that is missing is 0.
ModeChoice ReadModeText(std::string_view entry);

}  // namespace korvane
