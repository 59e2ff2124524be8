#pragma once

#include <tuple>

#include "tools/korvane-skin/checked_skin.h"
#include "tools/korvane-skin/colour.h"
#include "tools/korvane-skin/finding.h"

namespace korvane {

// Each checks one side of a skin and adds what it finds. A picture that the Original lends is only
// checked together with pictures of the skin itself: nobody can mend the Original here.

/// Files that are missing, unreadable or never used.
void CheckFiles(const CheckedSkin& skin, Report& report);
/// Sizes that do not fit the places on the screen.
void CheckSizes(const CheckedSkin& skin, Report& report);
/// Pixels that are transparent, or are not, by mistake.
void CheckKeys(const CheckedSkin& skin, Report& report);
/// Letters, numbers and glyphs of keys that are hard to read where the game shows them.
void CheckText(const CheckedSkin& skin, Report& report);
/// Tiles that look alike, also to people who see fewer colours.
void CheckTiles(const CheckedSkin& skin, Report& report);
/// Faults in module.txt, in the module that it names and in the sounds.
void CheckAudio(const CheckedSkin& skin, Report& report);

/// The least contrast of any text or key glyph with what lies under it, as CheckText measures it.
double LeastTextContrast(const CheckedSkin& skin);

/// The least distances of any two tiles in CIELAB: pixel by pixel, and of their mean colours.
struct TileDistances {
    /// The distance, and the two tiles, from 1.
    using Pair = std::tuple<double, int, int>;
    Pair tiles{1000, 0, 0};
    Pair colours{1000, 0, 0};
};
/// What CheckTiles measures. The skin has all its tiles.
TileDistances LeastTileDistances(const CheckedSkin& skin, Sight sight);

/// The least contrast that a quarter of a figure's tile has with the inside of the board.
double LeastTileContrast(const CheckedSkin& skin);

/// All of these checks, for the skin that theSettings name.
Report CheckSkin();

}  // namespace korvane
