#include "tools/korvane-skin/new_skin.h"

#include <algorithm>
#include <filesystem>

#include "platform/base/ascii.h"
#include "tools/korvane-skin/checked_skin.h"
#include "tools/korvane-skin/finding.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

/// Whether a name is allowed on every system, and short enough for the game's paths.
bool IsFolderName(const std::string& name) {
    constexpr std::string_view kForbidden = "/\\:*?\"<>|";
    if (name.empty() || name.size() > LongestSkinName() || name.front() == '.') return false;
    if (name.front() == ' ' || name.back() == ' ' || name.back() == '.') return false;
    return std::ranges::none_of(name, [&](char character) {
        return static_cast<unsigned char>(character) < ' ' ||
               kForbidden.find(character) != kForbidden.npos;
    });
}

bool IsTaken(const fs::path& skins, const std::string& name) {
    std::error_code failed;
    return std::ranges::any_of(fs::directory_iterator(skins, failed), [&](const auto& entry) {
        return AsciiEqualsIgnoringCase(entry.path().filename().string(), name);
    });
}

/// Copies files and folders, without the write protection that installed ones may have. A file that
/// is there already is replaced.
void CopyTree(const fs::path& from, const fs::path& to, std::error_code& failed) {
    fs::create_directories(to, failed);
    if (failed) return;
    for (const auto& entry : fs::directory_iterator(from, failed)) {
        const fs::path copy = to / entry.path().filename();
        if (entry.is_directory(failed)) {
            CopyTree(entry.path(), copy, failed);
        } else if (!failed) {
            fs::copy_file(entry.path(), copy, fs::copy_options::overwrite_existing, failed);
            if (!failed)
                fs::permissions(copy, fs::perms::owner_write, fs::perm_options::add, failed);
        }
        if (failed) return;
    }
}

std::string NextSteps(const fs::path& made, const fs::path& users) {
    std::error_code failed;
    const char* here = fs::equivalent(users, ".", failed) ? " here" : "";
    const std::string folder = made.string();
    return Text(
        "Made ", folder, " as a copy of the Original. What next:\n",
        "  1. Paint over the pictures there. Delete those that are to stay the Original's.\n",
        "  2. korvane-skin check \"", folder, "\"          tells what does not fit.\n",
        "  3. korvane-skin sheet \"", folder, "\" my.png   shows every screen.\n",
        "  4. Start the game", here, " and choose it in Advanced Settings.\n");
}

}  // namespace

NewSkin MakeNewSkin(const std::string& name, const std::vector<std::string>& folders) {
    std::error_code failed;
    std::vector<fs::path> originals;
    if (!IsFolderName(name)) return {false, Text("\"", name, "\" is no name for a folder")};
    for (const fs::path game : folders) {
        if (IsTaken(game / "Skins", name))
            return {false, Text("there is a skin ", name, " already")};
        const fs::path original = game / "Skins" / "Original";
        if (fs::is_directory(original, failed)) originals.push_back(original);
    }
    if (originals.empty())
        return {false, "there is no Skins/Original; run this in the game's folder"};
    const fs::path made = fs::path(folders.front()) / "Skins" / name;
    failed.clear();
    for (auto from = originals.rbegin(); from != originals.rend() && !failed; ++from)
        CopyTree(*from, made, failed);
    if (failed) {
        const std::string reason = failed.message();
        fs::remove_all(made, failed);
        return {false, Text("cannot make ", made.string(), ": ", reason)};
    }
    return {true, NextSteps(made, folders.front())};
}

}  // namespace korvane
