#pragma once

#include <optional>

#include "platform/base/types.h"
#include "platform/window/user.h"

namespace korvane {

/// Makes the window, the display and everything else and shows the window. False: the user has
/// been told why not.
bool StartUp();

/// One pass of the message loop: handles a waiting message, else draws a frame, else waits for a
/// message. Returns the process's exit code when the program is over.
std::optional<int> RunLoopPass();

/// Runs the program from its window's making to its end; the process's exit code.
int RunProgram();

/// One step of the main loop: lets the games go on, keeps the pace and draws a frame. 0 to go on;
/// a negative result is fatal.
HRESULT RenderFrame(HWND window);

}  // namespace korvane
