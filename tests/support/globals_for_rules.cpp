// The objects that the rules read and the program defines elsewhere, without the program.
#include "tests/support/globals_for_rules.h"
#include "app/state/settings.h"
#include "game/rules/level_sound.h"
#include "game/rules/level_table.h"

namespace korvane {

Settings theSettings;
LevelTable theLevelTable;

int levelSoundsPlayed = 0;

void PlayLevelSound() {
    ++levelSoundsPlayed;
}

}  // namespace korvane
