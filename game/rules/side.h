#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "app/state/settings.h"

namespace korvane {

/// The right player also plays alone; values kept per player are indexed by `IndexOf`.
enum class Side : int { Right = 1, Left = 2 };

constexpr std::size_t IndexOf(Side side) {
    return side == Side::Right ? 0 : 1;
}

constexpr Side OtherSide(Side side) {
    return side == Side::Right ? Side::Left : Side::Right;
}

enum class Difficulty : std::uint8_t { Easy, Medium, Hard };

inline constexpr std::size_t kDifficultyCount = 3;

/// The difficulty that a side plays: the stored one, which can be any number from a file, limited
/// to the three that exist.
inline Difficulty PlayedDifficulty(const SettingsValues& settings, Side side) {
    constexpr auto kHardest = static_cast<std::int32_t>(Difficulty::Hard);
    return static_cast<Difficulty>(std::clamp(settings.difficulty[IndexOf(side)], 0, kHardest));
}

}  // namespace korvane
