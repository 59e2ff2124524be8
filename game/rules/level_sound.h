#pragma once

namespace korvane {

/// Lets a player's new level be heard; whether the user wants that is for the caller to ask. The
/// rules know no more of the sound than this: it comes with the game's pictures.
void PlayLevelSound();

}  // namespace korvane
