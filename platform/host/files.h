#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// An entry of a listed folder.
struct FolderEntry {
    std::string name;
    bool isFolder = false;
};

/// Access to the game's folder. Paths are relative to it, with backslashes or slashes between
/// names and names matched without regard to ASCII letter case (an exact match first). Nothing
/// outside the folder is opened: no "..", no absolute path, no link that leads out. What is
/// opened is a regular file; nothing here blocks on a pipe or a device.
class Files {
  public:
    virtual ~Files() = default;

    /// The whole file, or nothing when it is missing, no regular file, unreadable or larger than
    /// `cap` bytes.
    virtual std::optional<std::vector<std::byte>> Read(std::string_view path, std::size_t cap) = 0;

    /// Replaces a file whole or not at all: a kill at any moment leaves the old or the new bytes.
    /// False when it could not be written (the old file is then as it was and nothing is left
    /// beside it). Neither folders are made, nor is anything but a regular file replaced.
    virtual bool Replace(std::string_view path, std::span<const std::byte> bytes) = 0;

    /// The entries of a folder in no particular order, without "." and ".."; nothing when it is
    /// missing or no folder.
    virtual std::optional<std::vector<FolderEntry>> List(std::string_view folder) = 0;
};

/// The files of a real folder; an empty root is the working directory at the time of each call.
std::unique_ptr<Files> OpenDiskFiles(std::string root);

}  // namespace korvane
