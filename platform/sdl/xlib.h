#pragma once

#include <SDL_video.h>

#include <optional>
#include <string>

#include "platform/base/types.h"

namespace korvane {

// What SDL does not tell of an X server, and does not do there. SDL has loaded Xlib, so the program
// itself need not depend on it. Without an X server nothing comes of any of these.

/// What the desktop has told the server (its resource string), as it was when SDL connected.
std::string DesktopResources(SDL_Window* window);

/// Dots per inch of the server's whole screen: it may know that where it knows no monitor.
std::optional<double> DpiOfWholeScreen(SDL_Window* window);

/// The size of the server's whole screen now; SDL knows it as it was at the start.
std::optional<SIZE> WholeScreenSize(SDL_Window* window);

/// Resizes a window that fills the screen, where no window manager does.
void ResizeFullScreen(SDL_Window* window, SIZE size);

}  // namespace korvane
