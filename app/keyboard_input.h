#pragma once

#include <cstdint>

namespace korvane {

/// A press of a virtual key, or its automatic repeat: for the name that is being typed, else for
/// the games (pause keys first) and the menu.
void OnKeyDown(std::uint8_t key);

/// A release of a virtual key, for the games.
void OnKeyUp(std::uint8_t key);

}  // namespace korvane
