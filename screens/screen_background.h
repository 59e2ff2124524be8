#pragma once

namespace korvane {

/// The tiled background of menu and high scores: a column 520 pixels wide over the frame's whole
/// height, with black left and right of it.
void DrawScreenBackground();

}  // namespace korvane
