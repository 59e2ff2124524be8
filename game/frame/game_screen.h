#pragma once

#include "game/rules/figure.h"
#include "game/rules/player.h"

namespace korvane {

/// Draws a figure where it falls; `boardTop` is the screen's y of board row 0.
void DrawFigure(const Figure& figure, int boardTop);
/// Draws a figure with its origin at a point of the screen.
void DrawFigureAt(const Figure& figure, int x, int y);

/// Draws one player's half of the screen, 320 x 372 pixels from y = `boardTop` (0 to 106; 50 at
/// rest). Steps the shown score and the playing time.
void DrawPlayer(Player& player, int boardTop);

/// Draws a battle that both have won, since their games ended in one frame: both halves at rest,
/// and the way to another battle.
void DrawTie(Player& right, Player& left);

}  // namespace korvane
