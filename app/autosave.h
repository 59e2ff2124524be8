#pragma once

#include "platform/window/user.h"

namespace korvane {

// What would be lost if the program did not reach its end is saved while it runs: a result when it
// has come in and when its name has ended; keys, settings and levels when they have changed, each
// file at most once a second. What fails is tried again a second later.

/// To be called at the program's start.
void BeginAutosave();
/// Saves what is due. To be called when a frame has been shown, and before the program waits.
void SaveChanges();
/// The timer that ends the second where no frame does; false for another one.
bool OnAutosaveTimer(HWND window, WPARAM id);

}  // namespace korvane
