#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/files/folder_walk.h"
#include "platform/host/files.h"

namespace korvane {

/// A way from a folder down to a path: `WalkBeneath`, or one that lets some links lead out.
using FolderWalk = WalkResult(Descriptor root, const std::vector<std::string>& names);

/// `OpenDiskFiles` of platform/host/files.h with another walk.
std::unique_ptr<Files> OpenDiskFiles(std::string root, std::uint32_t folderWaitMs,
                                     FolderWalk* walk);

}  // namespace korvane
