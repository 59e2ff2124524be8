#pragma once

#include <cstdint>

namespace korvane {

/// How a surface stores colours: channel masks for 16 and 32 bits; with 8 bits an index into the
/// layer's fixed palette (then the masks are 0).
struct PixelFormat {
    int bits = 32;
    std::uint32_t redMask = 0x00FF0000;
    std::uint32_t greenMask = 0x0000FF00;
    std::uint32_t blueMask = 0x000000FF;

    int BytesPerPixel() const { return bits / 8; }
};

/// The format of a display depth of 8, 16 (5-6-5) or 32 bits.
constexpr PixelFormat FormatOfDepth(int bits) {
    if (bits == 8) return {8, 0, 0, 0};
    if (bits == 16) return {16, 0xF800, 0x07E0, 0x001F};
    return {};
}

/// The pixel value that stands for 0x00RRGGBB: channels cut to their width, or the nearest palette
/// entry.
std::uint32_t PackPixel(const PixelFormat& format, std::uint32_t rgb);
/// 0x00RRGGBB of a pixel value; full channels stay full (5-6-5 white is white).
std::uint32_t UnpackPixel(const PixelFormat& format, std::uint32_t pixel);

}  // namespace korvane
