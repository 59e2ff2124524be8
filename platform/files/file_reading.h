#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <optional>

#include "platform/files/folder_walk.h"
#include "platform/host/files.h"

namespace korvane {

/// What is found there, without following a link; nothing, and errno tells why, when that fails.
std::optional<struct stat> StatusOf(const PathEnd& place);

/// `Files::TryRead` at the end of its walk.
ReadResult ReadAt(const PathEnd& place, std::size_t cap);

}  // namespace korvane
