#pragma once

#include <SDL_video.h>

#include <optional>
#include <string_view>

#include "platform/host/host.h"

namespace korvane {

/// What the desktop of this window says.
DesktopDensity DensityAt(SDL_Window* window);

/// The value of Xft.dpi in an X server's resource string; nothing without one.
std::optional<double> FontDpiIn(std::string_view resources);
/// A whole number from 1 as GDK_SCALE holds it; nothing when the text is none.
std::optional<double> WholeScaleIn(std::string_view text);

}  // namespace korvane
