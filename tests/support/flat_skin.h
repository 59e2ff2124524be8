#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace korvane {

/// A picture of the screens as a strip of flat cells, each of a colour that no other cell has: the
/// two frames of a button, the glyphs of a sheet. Names are relative to the skin, without ".bmp".
struct FlatPicture {
    std::string name;
    int cellWidth;
    int height;
    int cells;
};

/// Writes every picture of menu, key configuration and high scores, and the font, in the sizes of
/// the rooms that these screens give them.
void WriteFlatSkin(const TemporaryFolder& folder, const std::string& skin);

/// Writes one of these pictures with cells of another size, or takes it away.
void WriteFlatPicture(const TemporaryFolder& folder, const std::string& skin,
                      const std::string& name, int cellWidth, int height);
void RemoveFlatPicture(const TemporaryFolder& folder, const std::string& skin,
                       const std::string& name);

/// What a pixel of a composed screen shows: "name cell" of the flat picture, "-" for no picture.
std::string FlatPictureOf(std::uint32_t colour);

}  // namespace korvane
