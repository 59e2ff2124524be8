#pragma once

#include <cstdint>

namespace korvane {

/// The one generator for everything that is random in the game: figures and garbage of both
/// players.
void SeedRandom(std::uint32_t seed);

/// The next value, 0 to 32767.
int Random();

}  // namespace korvane
