#pragma once

#include "tools/korvane-skin/checked_skin.h"
#include "tools/korvane-skin/finding.h"

namespace korvane {

// Each looks at one side of a skin and adds what it finds. Pictures that fall back to the Original
// are the Original's business, but for how they go together with the skin's own.

/// What is there, what falls back, what no place uses, and what the game cannot read.
void CheckFiles(const CheckedSkin& skin, Report& report);
/// Pictures and strips against the places on the screen.
void CheckSizes(const CheckedSkin& skin, Report& report);
/// What is transparent by mistake, or not transparent by mistake.
void CheckKeys(const CheckedSkin& skin, Report& report);
/// Whether letters, numbers and the glyphs of keys can be read where they stand.
void CheckText(const CheckedSkin& skin, Report& report);
/// Whether eyes of all kinds can tell the eight tiles apart.
void CheckTiles(const CheckedSkin& skin, Report& report);
/// module.txt, the module that it names, and the sounds.
void CheckAudio(const CheckedSkin& skin, Report& report);

/// All of them, for the skin that theSettings name in the machine's files.
Report CheckSkin();

}  // namespace korvane
