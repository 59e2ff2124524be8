#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/files/folder_walk.h"

namespace korvane {

// `Files::Replace` and `Files::Delete` at the end of their walk. While another program changes the
// folder, they wait for so many milliseconds; then Replace goes on beside it, and Delete gives up.

bool ReplaceAt(const PathEnd& place, std::span<const std::byte> bytes, std::uint32_t waitMs);
bool DeleteAt(const PathEnd& place, std::span<const std::byte> bytes, std::uint32_t waitMs);

}  // namespace korvane
