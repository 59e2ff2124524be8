#pragma once

namespace korvane {

/// Makes everything that is shown and played, once a display is open: the game's pictures and its
/// level sound, the font, the menu with the stored keys, both players and the high scores.
void SetStage();

/// Deletes high scores, menu, players, font and display, and saves nothing.
void ClearStage();

}  // namespace korvane
