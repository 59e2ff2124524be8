#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvane {

inline constexpr int kIconSide = 32;

/// Resource 101: the program's icon, 32 x 32 pixels of 0xAARRGGBB, tiles as in the game.
inline constexpr auto kIcon = [] {
    constexpr int kTile = 8;
    // A letter per tile; a dot is transparent.
    constexpr std::array<std::string_view, 4> kTiles = {"a..t", "a.tt", "asrt", "ssrr"};
    struct Enamel {
        char letter;
        std::uint32_t face, light, shadow;
    };
    constexpr std::array kEnamels = {
        Enamel{'a', 0xFFE8A93A, 0xFFFFDD8E, 0xFF8A5A10},
        Enamel{'t', 0xFF1FA08F, 0xFF7FE3D4, 0xFF0B5249},
        Enamel{'r', 0xFFC23A68, 0xFFF48FB0, 0xFF681733},
        Enamel{'s', 0xFF4FA6E8, 0xFFB2DEFF, 0xFF1D5585},
    };
    std::array<std::uint32_t, std::size_t{kIconSide} * kIconSide> pixels{};
    for (int y = 0; y < kIconSide; ++y) {
        for (int x = 0; x < kIconSide; ++x) {
            const char letter =
                kTiles[static_cast<std::size_t>(y / kTile)][static_cast<std::size_t>(x / kTile)];
            for (const Enamel& enamel : kEnamels) {
                if (enamel.letter != letter) continue;
                const bool lit = x % kTile == 0 || y % kTile == 0;
                const bool dark = x % kTile == kTile - 1 || y % kTile == kTile - 1;
                pixels[static_cast<std::size_t>(y * kIconSide + x)] = dark  ? enamel.shadow
                                                                      : lit ? enamel.light
                                                                            : enamel.face;
            }
        }
    }
    return pixels;
}();

}  // namespace korvane
