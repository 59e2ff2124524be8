#pragma once

#include <cstdint>

namespace korvane {

/// What a press on the menu hit or did.
enum MenuAction : std::int32_t {
    kMenuNothing = -1,
    kMenuQuit = 0,
    kMenuOnePlayer = 1,
    kMenuTwoPlayers = 2,
    kMenuStart = 3,
    kMenuMusic = 4,
    kMenuSoundEffects = 5,
    kMenuRightEasy = 6,
    kMenuRightMedium = 7,
    kMenuRightHard = 8,
    kMenuLeftEasy = 9,
    kMenuLeftMedium = 10,
    kMenuLeftHard = 11,
    kMenuQuakes = 12,
    kMenuCredits = 13,  ///< opens the credits or leaves them
    kMenuConfigureKeys = 14,
    kMenuKeyConfigBack = 15,
    kMenuBattle = 16,
    kMenuSlotArmed = 17,
    kMenuKeysReset = 18,
    kMenuRightCounterClockwise = 19,
    kMenuRightClockwise = 20,
    kMenuLeftCounterClockwise = 21,
    kMenuLeftClockwise = 22,
    kMenuRightTime = 23,
    kMenuLeftTime = 24,
};

}  // namespace korvane
