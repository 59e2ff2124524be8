#pragma once

#include <string>

namespace korvane {

/// Draws the screens of the game in the skin that theSettings name, on the headless machine and
/// from its files, and writes them into one PNG file with a caption each. False when the file
/// cannot be written or nothing can be drawn.
bool WriteSheet(const std::string& file);

}  // namespace korvane
