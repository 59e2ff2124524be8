#include "platform/draw/pixel_format.h"

#include <algorithm>
#include <array>

namespace korvane {
namespace {

// The fixed palette: a 6 x 6 x 6 colour cube, then a ramp of greys between the cube's own.
constexpr unsigned kCubeSide = 6;
constexpr unsigned kCubeStep = 51;
constexpr unsigned kCubeSize = kCubeSide * kCubeSide * kCubeSide;
constexpr unsigned kGreys = 256 - kCubeSize;

constexpr unsigned GreyLevel(unsigned i) {
    return (i + 1) * 255 / (kGreys + 1);
}

constexpr std::array<std::uint32_t, 256> MakePalette() {
    std::array<std::uint32_t, 256> palette{};
    for (unsigned i = 0; i < kCubeSize; ++i) {
        const unsigned red = i / (kCubeSide * kCubeSide);
        const unsigned green = i / kCubeSide % kCubeSide;
        const unsigned blue = i % kCubeSide;
        palette[i] = (red << 16 | green << 8 | blue) * kCubeStep;
    }
    for (unsigned i = 0; i < kGreys; ++i)
        palette[kCubeSize + i] = GreyLevel(i) * 0x010101;
    return palette;
}

constexpr std::array<std::uint32_t, 256> kPalette = MakePalette();

constexpr unsigned Red(std::uint32_t rgb) {
    return rgb >> 16 & 0xFF;
}
constexpr unsigned Green(std::uint32_t rgb) {
    return rgb >> 8 & 0xFF;
}
constexpr unsigned Blue(std::uint32_t rgb) {
    return rgb & 0xFF;
}

unsigned SquaredDistance(std::uint32_t a, std::uint32_t b) {
    const auto square = [](unsigned p, unsigned q) {
        return p > q ? (p - q) * (p - q) : (q - p) * (q - p);
    };
    return square(Red(a), Red(b)) + square(Green(a), Green(b)) + square(Blue(a), Blue(b));
}

/// The nearest of the cube's entry and the greys around the colour's mean. Of entries that are
/// equally near, the first.
std::uint32_t NearestInPalette(std::uint32_t rgb) {
    const auto step = [](unsigned level) { return (level + kCubeStep / 2) / kCubeStep; };
    const unsigned cube =
        (step(Red(rgb)) * kCubeSide + step(Green(rgb))) * kCubeSide + step(Blue(rgb));
    const unsigned mean = (Red(rgb) + Green(rgb) + Blue(rgb)) / 3;
    const unsigned ramp = std::min(mean * (kGreys + 1) / 255, kGreys - 1);
    unsigned nearest = cube;
    for (unsigned i = ramp > 0 ? ramp - 1 : 0; i <= std::min(ramp + 1, kGreys - 1); ++i) {
        const unsigned grey = kCubeSize + i;
        if (SquaredDistance(rgb, kPalette[grey]) < SquaredDistance(rgb, kPalette[nearest]))
            nearest = grey;
    }
    return nearest;
}

}  // namespace

std::uint32_t PackPixel(const PixelFormat& format, std::uint32_t rgb) {
    if (format.bits == 8) return NearestInPalette(rgb);
    if (format.bits == 16) return (Red(rgb) >> 3) << 11 | (Green(rgb) >> 2) << 5 | Blue(rgb) >> 3;
    return rgb & 0x00FFFFFF;
}

std::uint32_t UnpackPixel(const PixelFormat& format, std::uint32_t pixel) {
    if (format.bits == 8) return kPalette[pixel & 0xFF];
    if (format.bits == 16) {
        const std::uint32_t red = pixel >> 11 & 0x1F;
        const std::uint32_t green = pixel >> 5 & 0x3F;
        const std::uint32_t blue = pixel & 0x1F;
        return (red << 3 | red >> 2) << 16 | (green << 2 | green >> 4) << 8 |
               (blue << 3 | blue >> 2);
    }
    return pixel & 0x00FFFFFF;
}

}  // namespace korvane
