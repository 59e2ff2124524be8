#pragma once

namespace korvane {

/// Tells the window side of the layer that its display side has taken or left the whole screen;
/// mouse positions and the window's frame depend on it.
void NoteFullScreen(bool fullScreen);

}  // namespace korvane
