#pragma once

#include <cstdint>

namespace korvane {

/// A press of a virtual key, or its automatic repeat: for the name that is being typed, else for
/// the games (pause keys first), the slot that waits for a key, and the focus of the screen.
void OnKeyDown(std::uint8_t key, bool repeated);

/// A press of Esc, which also gives a command: a slot that waits for a key keeps the one it has, or
/// the Back button of the menu's view is pressed.
void OnEscape();

/// A release of a virtual key, for the games.
void OnKeyUp(std::uint8_t key);

}  // namespace korvane
