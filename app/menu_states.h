#pragma once

#include "platform/window/menu.h"

namespace korvane {

/// Checks and greys the items of the window menu by the settings and the games that run. Works
/// before the players exist, too.
void SetMenuStates(HMENU menu);

}  // namespace korvane
