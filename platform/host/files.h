#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {

/// An entry of a listed folder.
struct FolderEntry {
    std::string name;
    bool isFolder = false;
};

enum class ReadStatus : std::uint8_t {
    Read,
    Missing,     ///< nothing is there
    Unreadable,  ///< something is there, or that could not be told: no regular file, one that is
                 ///< too large, no right to read it, a failing disk, too many open files
};

struct ReadResult {
    ReadStatus status = ReadStatus::Missing;
    std::vector<std::byte> bytes;  ///< the whole file; empty unless it was read
};

/// What a file is to hold after it held this; nothing to leave it as it is.
using FileChange = std::function<std::optional<std::vector<std::byte>>(const ReadResult& there)>;

/// For how long a change of a file waits for another program that changes the folder.
enum class Patience : std::uint8_t {
    None,     ///< gives up at once
    Limited,  ///< goes on beside it after kFolderWaitMs
};

/// Access to the game's folder, or to several that are searched as if they were one: then only the
/// first, the user's, is ever changed. Paths are relative to it, with backslashes or slashes
/// between names and names matched without regard to ASCII letter case (an exact match first).
/// Nothing outside the folder is opened: no "..", no absolute path, no link that leads out. What is
/// opened is a regular file; nothing here blocks on a pipe or a device.
class Files {
  public:
    virtual ~Files() = default;

    /// The whole file. One of more than `cap` bytes is unreadable, and so is one behind a link that
    /// leads out; a path that no file of the folder can have is missing.
    virtual ReadResult TryRead(std::string_view path, std::size_t cap) = 0;

    /// The whole file, or nothing, for whoever need not know why.
    std::optional<std::vector<std::byte>> Read(std::string_view path, std::size_t cap) {
        ReadResult result = TryRead(path, cap);
        if (result.status != ReadStatus::Read) return std::nullopt;
        return std::move(result.bytes);
    }

    /// Replaces a file whole or not at all: a kill at any moment leaves the old or the new bytes.
    /// False when it could not be written (the old file is then as it was and nothing is left
    /// beside it). Neither folders are made, nor is anything but a regular file replaced.
    virtual bool Replace(std::string_view path, std::span<const std::byte> bytes) = 0;

    /// Reads a file and replaces it by what `change` makes of it. No other program can `Update` it
    /// in between, unless it has lost its patience. False when the file was not replaced.
    virtual bool Update(std::string_view path, std::size_t cap, const FileChange& change,
                        Patience /*patience*/) {
        const auto bytes = change(TryRead(path, cap));
        return bytes && Replace(path, *bytes);
    }

    /// Deletes a file that `Replace` could replace and that holds these very bytes. False when it
    /// is still there.
    virtual bool Delete(std::string_view path, std::span<const std::byte> bytes) = 0;

    /// The entries of a folder in no particular order, without "." and ".."; nothing when it is
    /// missing or no folder.
    virtual std::optional<std::vector<FolderEntry>> List(std::string_view folder) = 0;

    /// The folders that files are looked for in, as the user writes them, in the order of the
    /// search. Empty when they have no names.
    virtual std::vector<std::string> Folders() const { return {}; }
};

/// How long a change of a folder waits for another program that changes it.
inline constexpr std::uint32_t kFolderWaitMs = 500;

/// The files of a real folder; an empty root is the working directory at the time of each call.
std::unique_ptr<Files> OpenDiskFiles(std::string root, std::uint32_t folderWaitMs = kFolderWaitMs);

}  // namespace korvane
