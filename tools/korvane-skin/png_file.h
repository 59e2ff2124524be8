#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/base/types.h"

namespace korvane {

/// Writes a picture of 0x00RRGGBB pixels as a PNG file. False when that fails.
bool WritePng(const std::string& file, SIZE size,
              const std::function<std::uint32_t(POINT)>& pixelAt);

}  // namespace korvane
