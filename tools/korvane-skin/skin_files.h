#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/host/files.h"

namespace korvane {

/// A skin's folder anywhere on the disk.
struct SkinPlace {
    std::string parent;  ///< the folder that it lies in
    std::string name;
};

/// The place of an existing folder; nothing when there is none.
std::optional<SkinPlace> FindSkin(const std::string& folder);

/// The Original that fills the gaps of a skin: the named folder if one is given, else the skin's
/// neighbour, else the one of the working directory. Nothing when there is none.
std::optional<SkinPlace> FindOriginal(const SkinPlace& skin, const std::string& given);

/// The game's folder as it would be with one skin installed beside the Original: what the game
/// asks for comes from their real folders. Nothing can be written.
class SkinFiles final : public Files {
  public:
    SkinFiles(SkinPlace skin, SkinPlace original);

    std::optional<std::vector<std::byte>> Read(std::string_view path, std::size_t cap) override;
    bool Replace(std::string_view path, std::span<const std::byte> bytes) override;
    std::optional<std::vector<FolderEntry>> List(std::string_view folder) override;

  private:
    struct Root {
        SkinPlace place;
        std::unique_ptr<Files> parent;
    };
    /// Where a path of the game really lies.
    struct RealPath {
        Files& files;
        std::string path;
    };

    std::optional<RealPath> Find(std::string_view path) const;

    Root skin_;
    Root original_;
};

/// Makes a skin's folder the one that the game on the headless machine shows, with the Original of
/// `FindOriginal` behind it and default settings. Empty, or why it cannot be done.
std::string UseSkin(const std::string& folder, const std::string& original);

}  // namespace korvane
