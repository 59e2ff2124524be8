#include "app/state/settings.h"
#include "audio/music_player.h"
#include "game/frame/game_art.h"
#include "game/rules/level_table.h"

namespace korvane {

// The objects that exist before and after the main window, in the order in which they are made;
// they end in reverse, so that the settings are written last.
Settings theSettings;
GameArt theGameArt;
LevelTable theLevelTable;
MusicPlayer theMusic;

}  // namespace korvane
