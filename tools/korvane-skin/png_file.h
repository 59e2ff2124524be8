#pragma once

#include <string>

#include "platform/draw/pixel_buffer.h"

namespace korvane {

/// Writes a picture of 0x00RRGGBB pixels (four bytes each) as a PNG file. False when that fails.
bool WritePng(const std::string& file, const PixelBuffer& picture);

}  // namespace korvane
