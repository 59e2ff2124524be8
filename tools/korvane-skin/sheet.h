#pragma once

#include <string>

namespace korvane {

/// Draws the screens of the game in the skin that theSettings name and writes them, each with a
/// caption, into one PNG file. False when they cannot be drawn or the file cannot be written.
bool WriteSheet(const std::string& file);

}  // namespace korvane
