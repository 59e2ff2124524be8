#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/host/files.h"

namespace korvane {

/// The place of a skin's folder on the disk.
struct SkinPlace {
    std::string parent;  ///< the folder that holds it
    std::string name;
};

/// The place of a folder; nothing when it does not exist.
std::optional<SkinPlace> FindSkin(const std::string& folder);

/// The folders of the game that this program came with, the user's own first.
std::vector<std::string> GameFolders();

/// The Original that lends what a skin lacks: the given folder if any, else the one beside the
/// skin, else that of the working directory or the game. Nothing when there is none.
std::optional<SkinPlace> FindOriginal(const SkinPlace& skin, const std::string& given);

/// The files that the game would find with one skin installed beside the Original. They are read
/// from the real folders of both; nothing can be written.
class SkinFiles final : public Files {
  public:
    SkinFiles(SkinPlace skin, SkinPlace original);

    ReadResult TryRead(std::string_view path, std::size_t cap) override;
    bool Replace(std::string_view path, std::span<const std::byte> bytes) override;
    bool Delete(std::string_view path, std::span<const std::byte> bytes) override;
    std::optional<std::vector<FolderEntry>> List(std::string_view folder) override;

  private:
    struct Root {
        SkinPlace place;
        std::unique_ptr<Files> parent;
    };
    /// The file behind a path of the game.
    struct RealPath {
        Files& files;
        std::string path;
    };

    std::optional<RealPath> Find(std::string_view path) const;

    Root skin_;
    Root original_;
};

/// Lets the game on the headless machine use a skin's folder, with the Original of `FindOriginal`
/// and default settings. Returns an empty text, or why it cannot be done.
std::string UseSkin(const std::string& folder, const std::string& original);

}  // namespace korvane
