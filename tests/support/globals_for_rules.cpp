// The objects that the rules read and the program defines elsewhere, without the program.
#include "app/settings.h"
#include "game/level_sound.h"
#include "game/level_table.h"

namespace korvane {

Settings theSettings;
LevelTable theLevelTable;

void PlayLevelSound() {}

}  // namespace korvane
