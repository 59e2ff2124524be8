#pragma once

namespace korvane {

/// Which games `StartPlayers` starts.
enum class Starters { Right, Left, Both };

/// Leaves menu and high scores and starts games, the right player's first. Whether levels go by
/// playing time is what the menu's Time buttons show.
void StartPlayers(Starters starters);

/// Starts a match for the chosen number of players, two of them without wins; none for a number
/// that is neither one nor two.
void StartMatch();

/// Shows the menu with nobody in a game. The number of players is again what its buttons show; who
/// resets which player is left to the caller.
void ShowMenu();

}  // namespace korvane
