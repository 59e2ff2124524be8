#pragma once

#include "platform/window/messages.h"

namespace korvane {

/// Takes the window's scale that the user has chosen in an earlier session. To be called before the
/// window is made.
void RecallWindowScale();

/// Keeps the user's choice, if it has changed, in data\\window.dat. A failure goes unnoticed.
void RememberWindowScale();

/// Carries out a key that changes the window's size; true when the message was one. A key that
/// somebody plays with at the moment, alone or with Control, stays with the game.
bool TranslateSizeKey(const MSG& message);

}  // namespace korvane
