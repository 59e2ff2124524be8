#include "tools/korvane-skin/skin_files.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "app/state/settings.h"
#include "platform/base/ascii.h"
#include "platform/files/game_folders.h"
#include "platform/headless/headless_host.h"
#include "tools/korvane-skin/catalogue_table.h"
#include "tools/korvane-skin/finding.h"

namespace korvane {
namespace {

char Folded(char character) {
    return character == '/' ? '\\' : AsciiLower(character);
}

/// The part of a path below a folder; nothing when the path is not below it.
std::optional<std::string> Behind(std::string_view path, const std::string& folder) {
    const std::string_view start = path.substr(0, folder.size());
    if (!std::ranges::equal(start, folder, {}, Folded, Folded)) return std::nullopt;
    const std::string_view rest = path.substr(folder.size());
    if (!rest.empty() && Folded(rest.front()) != '\\') return std::nullopt;
    return std::string(rest);
}

}  // namespace

std::optional<SkinPlace> FindSkin(const std::string& folder) {
    std::error_code failed;
    const std::filesystem::path path = std::filesystem::canonical(folder, failed);
    if (failed || !std::filesystem::is_directory(path, failed)) return std::nullopt;
    return SkinPlace{path.parent_path().string(), path.filename().string()};
}

std::vector<std::string> GameFolders() {
    return OpenGameFiles(ReadSurroundings())->Folders();
}

std::optional<SkinPlace> FindOriginal(const SkinPlace& skin, const std::string& given) {
    if (!given.empty()) return FindSkin(given);
    std::vector<std::string> originals = {skin.parent + "/Original", "Skins/Original"};
    for (const std::string& folder : GameFolders())
        originals.push_back(folder + "/Skins/Original");
    for (const std::string& folder : originals)
        if (std::optional<SkinPlace> found = FindSkin(folder)) return found;
    return std::nullopt;
}

SkinFiles::SkinFiles(SkinPlace skin, SkinPlace original)
    : skin_{skin, OpenDiskFiles(skin.parent)},
      original_{original, OpenDiskFiles(original.parent)} {}

std::optional<SkinFiles::RealPath> SkinFiles::Find(std::string_view path) const {
    std::string ownFolder = "Skins\\";
    ownFolder += skin_.place.name;
    // The skin first: when its name is Original, it is meant and not the one of the game.
    const std::array<std::pair<std::string, const Root*>, 3> folders = {{
        {ownFolder, &skin_},
        {"Skins\\Original", &original_},
        {"Graphics\\Original", &original_},
    }};
    for (const auto& [folder, root] : folders) {
        if (const std::optional<std::string> rest = Behind(path, folder))
            return RealPath{*root->parent, root->place.name + *rest};
    }
    return std::nullopt;
}

ReadResult SkinFiles::TryRead(std::string_view path, std::size_t cap) {
    const std::optional<RealPath> real = Find(path);
    return real ? real->files.TryRead(real->path, cap) : ReadResult{};
}

bool SkinFiles::Replace(std::string_view /*path*/, std::span<const std::byte> /*bytes*/) {
    return false;
}

bool SkinFiles::Delete(std::string_view /*path*/, std::span<const std::byte> /*bytes*/) {
    return false;
}

std::optional<std::vector<FolderEntry>> SkinFiles::List(std::string_view folder) {
    const std::optional<RealPath> real = Find(folder);
    return real ? real->files.List(real->path) : std::nullopt;
}

std::string UseSkin(const std::string& folder, const std::string& original) {
    const std::optional<SkinPlace> skin = FindSkin(folder);
    if (!skin) return Text("there is no folder ", folder);
    if (skin->name.size() > LongestSkinName())
        return Text("the folder's name is longer than ", LongestSkinName(), " characters");
    const std::optional<SkinPlace> behind = FindOriginal(*skin, original);
    if (!behind)
        return "the Original is needed: run this in the game's folder or name it with --original";
    theSettings.SetDefaults();
    theSettings.skinName = skin->name;
    Headless().UseFiles(std::make_unique<SkinFiles>(*skin, *behind));
    return {};
}

}  // namespace korvane
