#include "tools/korvane-skin/colour.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace korvane {
namespace {

/// Red, green and blue, or X, Y and Z, in proportion to light.
using Light = std::array<double, 3>;
using Matrix = std::array<Light, 3>;

constexpr Matrix kSrgbToXyz = {{{0.4124564, 0.3575761, 0.1804375},
                                {0.2126729, 0.7151522, 0.0721750},
                                {0.0193339, 0.1191920, 0.9503041}}};
constexpr Light kWhite = {0.95047, 1.0, 1.08883};

// How linear sRGB looks to eyes without one kind of cones, from Machado, Oliveira and Fernandes,
// "A Physiologically-based Model for Simulation of Color Vision Deficiency" (2009), severity 1.
constexpr Matrix kProtanopia = {{{0.152286, 1.052583, -0.204868},
                                 {0.114503, 0.786281, 0.099216},
                                 {-0.003882, -0.048116, 1.051998}}};
constexpr Matrix kDeuteranopia = {{{0.367322, 0.860646, -0.227968},
                                   {0.280085, 0.672501, 0.047413},
                                   {-0.011820, 0.042940, 0.968881}}};
constexpr Matrix kTritanopia = {{{1.255528, -0.076749, -0.178779},
                                 {-0.078411, 0.930809, 0.147602},
                                 {0.004733, 0.691367, 0.303900}}};
constexpr Matrix kGreyscale = {{kSrgbToXyz[1], kSrgbToXyz[1], kSrgbToXyz[1]}};
constexpr std::array kSights = {kGreyscale, kProtanopia, kDeuteranopia, kTritanopia};

std::uint32_t Channel(std::uint32_t colour, int channel) {
    return colour >> (16 - 8 * channel) & 0xFF;
}

double LightOf(std::uint32_t channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

Light LightOfColour(std::uint32_t colour) {
    return {LightOf(Channel(colour, 0)), LightOf(Channel(colour, 1)), LightOf(Channel(colour, 2))};
}

Light operator*(const Matrix& matrix, const Light& light) {
    Light result{};
    for (std::size_t i = 0; i < result.size(); ++i)
        for (std::size_t k = 0; k < light.size(); ++k)
            result[i] += matrix[i][k] * light[k];
    return result;
}

double LabCurve(double share) {
    constexpr double kEdge = 216.0 / 24389.0;
    return share > kEdge ? std::cbrt(share) : (24389.0 / 27.0 * share + 16.0) / 116.0;
}

}  // namespace

std::string ColourName(std::uint32_t colour) {
    std::array<char, 8> name;
    std::snprintf(name.data(), name.size(), "#%06X", colour & 0xFFFFFF);
    return name.data();
}

double Luminance(std::uint32_t colour) {
    return (kSrgbToXyz * LightOfColour(colour))[1];
}

double Contrast(double oneLuminance, double otherLuminance) {
    const auto [darker, lighter] = std::minmax(oneLuminance, otherLuminance);
    return (lighter + 0.05) / (darker + 0.05);
}

std::uint32_t ReducedTo565(std::uint32_t colour) {
    return colour & 0xF8FCF8;
}

double ChannelDistance(std::uint32_t one, std::uint32_t other) {
    double sum = 0;
    for (int channel = 0; channel < 3; ++channel) {
        const double step = static_cast<double>(Channel(one, channel)) - Channel(other, channel);
        sum += step * step;
    }
    return std::sqrt(sum);
}

Lab SeenAs(std::uint32_t colour, Sight sight) {
    Light seen = kSights[static_cast<std::size_t>(sight)] * LightOfColour(colour);
    for (double& channel : seen)
        channel = std::clamp(channel, 0.0, 1.0);
    Light curved = kSrgbToXyz * seen;
    for (std::size_t i = 0; i < curved.size(); ++i)
        curved[i] = LabCurve(curved[i] / kWhite[i]);
    return {116.0 * curved[1] - 16.0, 500.0 * (curved[0] - curved[1]),
            200.0 * (curved[1] - curved[2])};
}

double SquaredDifference(const Lab& one, const Lab& other) {
    const Light step = {one.lightness - other.lightness, one.a - other.a, one.b - other.b};
    return step[0] * step[0] + step[1] * step[1] + step[2] * step[2];
}

}  // namespace korvane
