#pragma once

#include <optional>

#include "platform/base/types.h"

namespace korvane {

/// Tells the window side of the layer that its display side has taken the whole screen for pictures
/// of this size, or left it (nothing); mouse positions, the window's frame and what is drawn over
/// the picture depend on it.
void NoteFullScreen(std::optional<SIZE> pictureSize);

}  // namespace korvane
