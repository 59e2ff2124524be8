#include "app/state/settings.h"
#include "app/state/static_room.h"
#include "audio/music_player.h"
#include "game/frame/game_art.h"
#include "game/rules/level_table.h"

namespace korvane {
namespace {

/// The objects that exist before and after the main window. They are made in this order and end in
/// reverse, so that the settings are written last.
struct StaticObjects {
    MadeInRoom<Settings> settings{theSettings};
    MadeInRoom<GameArt> gameArt{theGameArt};
    MadeInRoom<LevelTable> levelTable{theLevelTable};
    MadeInRoom<MusicPlayer> music{theMusic};
};

const StaticObjects staticObjects;

}  // namespace
}  // namespace korvane
