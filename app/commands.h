#pragma once

#include <cstdint>

namespace korvane {

/// Carries out a command of the window menu or of an accelerator key; false for an id that is none.
/// A changed setting shows on the menu's buttons at once.
bool RunCommand(std::uint16_t id);

}  // namespace korvane
