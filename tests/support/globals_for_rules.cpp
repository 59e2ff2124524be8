// The objects that the rules read and the program defines elsewhere, without the program.
#include "tests/support/globals_for_rules.h"
#include "app/settings.h"
#include "game/level_sound.h"
#include "game/level_table.h"

namespace korvane {

Settings theSettings;
LevelTable theLevelTable;

int levelSoundsPlayed = 0;

void PlayLevelSound() {
    ++levelSoundsPlayed;
}

}  // namespace korvane
