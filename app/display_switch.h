#pragma once

#include "platform/base/types.h"
#include "platform/window/user.h"

namespace korvane {

/// Replaces `currentDisplay` by one in a window or in full screen (with the mode that the settings
/// name) and loads every picture into it. Returns the display's negative result on failure; a
/// full screen that cannot be had is told to the user first. `currentDisplay` then holds a display
/// that did not open, and the caller ends the program.
HRESULT SwitchDisplayMode(HWND window, bool windowed);

}  // namespace korvane
