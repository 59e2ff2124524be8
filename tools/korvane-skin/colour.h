#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace korvane {

// Colours are 0x00RRGGBB unless they say otherwise.

/// "#RRGGBB".
std::string ColourName(std::uint32_t colour);

/// Relative luminance, 0 (black) to 1 (white), of an sRGB colour.
double Luminance(std::uint32_t colour);
/// Ratio of two luminances, 1 to 21.
double Contrast(double oneLuminance, double otherLuminance);

/// The bits of a colour that a display with 5 bits of red, 6 of green and 5 of blue shows.
std::uint32_t ReducedTo565(std::uint32_t colour);
/// Euclidean distance of two colours in 8-bit steps of their channels, 0 to 441.
double ChannelDistance(std::uint32_t one, std::uint32_t other);

/// Kinds of sight: no colours at all, or without one of the three kinds of cones.
enum class Sight : std::uint8_t { Greyscale, Protanopia, Deuteranopia, Tritanopia, Count };
inline constexpr std::array kSightNames = {"in greyscale", "with protanopia", "with deuteranopia",
                                           "with tritanopia"};
static_assert(kSightNames.size() == static_cast<std::size_t>(Sight::Count));

/// A colour of CIELAB, white point D65.
struct Lab {
    double lightness;  ///< 0 to 100
    double a;
    double b;
};

Lab SeenAs(std::uint32_t colour, Sight sight);
/// Square of the distance of two colours in CIELAB (the formula of 1976).
double SquaredDifference(const Lab& one, const Lab& other);

}  // namespace korvane
