#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/files/folder_walk.h"
#include "platform/host/files.h"

namespace korvane {

// `Files::Replace`, `Update` and `Delete` at the end of their walk. While another program changes
// the folder, they wait for so many milliseconds; then Replace goes on beside it, and Delete gives
// up. Update does not wait at all without patience.

bool ReplaceAt(const PathEnd& place, std::span<const std::byte> bytes, std::uint32_t waitMs);
bool UpdateAt(const PathEnd& place, std::size_t cap, const FileChange& change, Patience patience,
              std::uint32_t waitMs);
bool DeleteAt(const PathEnd& place, std::span<const std::byte> bytes, std::uint32_t waitMs);

}  // namespace korvane
