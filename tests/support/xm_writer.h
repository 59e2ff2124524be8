#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace korvane {

/// A module of one channel that holds one tone through each order.
struct XmRecipe {
    int orders = 60;
    std::uint16_t rows = 64;  ///< of each pattern; a row lasts 0.12 s
    /// The last row of the last pattern jumps to this order.
    std::optional<std::uint8_t> jump = std::nullopt;
};

/// Orders that many apart sound alike; the next one is three semitones higher.
inline constexpr int kXmTones = 12;
/// The first order's tone in Hz.
inline constexpr double kXmLowestTone = 8363.0 / 32 / 2;

std::vector<std::byte> MakeXm(const XmRecipe& recipe);

}  // namespace korvane
