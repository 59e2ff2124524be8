#pragma once

#include <string>

#include "tests/support/temporary_folder.h"

namespace korvane {

/// The key colours of the test skin, 0x00RRGGBB.
inline constexpr std::uint32_t kTestKeys[3] = {0xFF00FF, 0x00FF00, 0x00FFFF};

/// Writes every picture of the game screen and the font as flat shapes that a golden picture tells
/// apart: frames with borders, glyph cells that show their code as dots, tiles in eight colours.
void WriteTestSkin(const TemporaryFolder& folder, const std::string& skin);

}  // namespace korvane
