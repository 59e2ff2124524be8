#pragma once

namespace korvane {

/// Which games `StartPlayers` starts.
enum class Starters { Right, Left, Both };

/// Leaves menu and high scores and starts games, the right player's first. Whether levels go by
/// playing time is what the menu's Time buttons show.
void StartPlayers(Starters starters);

/// What Start on the menu and Play on the high-score screen do: starts a match for the chosen
/// number of players, two of them with no wins yet; none for a number that is neither one nor two.
/// The pressed buttons go back to their normal look.
void StartMatch();

/// Shows the menu with nobody in a game. The number of players is again what the menu's buttons
/// show. The caller resets the players that are to be reset.
void ShowMenu();

}  // namespace korvane
