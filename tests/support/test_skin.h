#pragma once

#include <cstdint>
#include <string>

#include "tests/support/temporary_folder.h"

namespace korvane {

/// The key colours of the test skins, 0x00RRGGBB.
inline constexpr std::uint32_t kTestKeys[3] = {0xFF00FF, 0x00FF00, 0x00FFFF};

/// Writes every picture of the game screen and the font as plain shapes that a golden picture tells
/// apart: frames with borders, glyph cells that show their code as dots, tiles in eight colours.
void WriteTestSkin(const TemporaryFolder& folder, const std::string& skin);

/// Writes every picture of menu, key configuration and high scores, and the font, as strips of flat
/// cells, each of a colour that no other cell has: the two frames of a button, the glyphs of a
/// sheet.
void WriteFlatSkin(const TemporaryFolder& folder, const std::string& skin);

/// The flat cell that a pixel of a composed screen shows: the picture's name without ".bmp" and the
/// number of the cell, as in "menu/startbutt 1"; "-" for no picture.
std::string FlatCellOf(std::uint32_t colour);

}  // namespace korvane
