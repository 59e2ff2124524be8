#pragma once

#include "platform/window/menu.h"

namespace korvane {

/// Checks and greys the items of the window menu as settings and games are now. Both players may be
/// missing.
void SetMenuStates(HMENU menu);

}  // namespace korvane
