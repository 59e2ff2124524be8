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

std::string NextSteps(const std::string& folder) {
    return Text(
        "Made ", folder, " as a copy of the Original. What next:\n",
        "  1. Paint over the pictures there. Delete those that are to stay the Original's.\n",
        "  2. korvane-skin check \"", folder, "\"          tells what does not fit.\n",
        "  3. korvane-skin sheet \"", folder, "\" my.png   shows every screen.\n",
        "  4. Start the game here and choose it in Advanced Settings.\n");
}

}  // namespace

NewSkin MakeNewSkin(const std::string& name) {
    const fs::path skins = "Skins";
    std::error_code failed;
    if (!IsFolderName(name)) return {false, Text("\"", name, "\" is no name for a folder")};
    if (!fs::is_directory(skins / "Original", failed))
        return {false, "there is no Skins/Original here; run this in the game's folder"};
    if (IsTaken(skins, name)) return {false, Text("there is a Skins/", name, " already")};
    const fs::path folder = skins / name;
    fs::copy(skins / "Original", folder, fs::copy_options::recursive, failed);
    if (failed) {
        const std::string reason = failed.message();
        fs::remove_all(folder, failed);
        return {false, Text("cannot make ", folder.string(), ": ", reason)};
    }
    return {true, NextSteps(folder.string())};
}

}  // namespace korvane
