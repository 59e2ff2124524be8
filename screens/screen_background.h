#pragma once

namespace korvane {

/// The tiled ground of menu and high scores, 520 pixels wide over the frame's whole height; the
/// frame stays black on both sides of it.
void DrawScreenBackground();

}  // namespace korvane
