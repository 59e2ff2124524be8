#pragma once

#include <memory>
#include <string>

#include "platform/host/files.h"

namespace korvane {

/// The files of a folder whose `Replace` also makes folders: this one, those above it and those on
/// the way to the file. Until then nothing need exist. Links are followed as by
/// `WalkThroughOwnLinks`.
std::unique_ptr<Files> OpenHomeFiles(const std::string& root);

}  // namespace korvane
