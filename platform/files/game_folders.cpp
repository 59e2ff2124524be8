#include "platform/files/game_folders.h"

#include <cstdlib>
#include <filesystem>
#include <utility>
#include <vector>

#if __has_include(<sys/auxv.h>)
#include <sys/auxv.h>
#endif

#include "platform/files/files_disk.h"
#include "platform/files/home_files.h"
#include "platform/files/layered_files.h"
#include "platform/files/own_links.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

/// Both are set by the build: the way from the program's folder to the installed files, and their
/// absolute path when the packager has given one (else empty).
constexpr const char* kWayToInstalled = KORVANE_WAY_TO_INSTALLED;
constexpr const char* kFixedInstalled = KORVANE_FIXED_INSTALLED;

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// The path that the kernel was given to start the program by.
const char* StartedPath() {
#ifdef AT_EXECFN
    // The kernel's table holds all its values as numbers.
    return reinterpret_cast<const char*>(getauxval(AT_EXECFN));  // NOLINT
#else
    return nullptr;
#endif
}

bool IsAbsolute(const std::string& path) {
    return path.starts_with('/');
}

std::unique_ptr<Files> OpenUsersFiles(const Surroundings& surroundings) {
    auto here = OpenDiskFiles("", kFolderWaitMs, WalkThroughOwnLinks);
    if (here->List("Skins") || here->List("data")) return here;
    if (IsAbsolute(surroundings.dataHome)) return OpenHomeFiles(surroundings.dataHome + "/korvane");
    if (IsAbsolute(surroundings.home))
        return OpenHomeFiles(surroundings.home + "/.local/share/korvane");
    return here;
}

/// The place of an installation comes first.
std::vector<fs::path> InstalledPlaces(const std::string& program) {
    std::vector<fs::path> places;
    if (!program.empty()) {
        const fs::path beside = fs::path(program).parent_path();
        places = {beside / kWayToInstalled, beside, beside.parent_path()};
    }
    if (*kFixedInstalled) places.emplace_back(kFixedInstalled);
    return places;
}

/// Where nothing is installed, the place that it is missing from can still be named to the user.
std::unique_ptr<Files> OpenInstalledFiles(const std::string& program) {
    const std::vector<fs::path> places = InstalledPlaces(program);
    for (const fs::path& place : places) {
        auto files = OpenDiskFiles(place.string());
        if (files->List("Skins")) return files;
    }
    return places.empty() ? nullptr : OpenDiskFiles(places.front().string());
}

}  // namespace

std::string ProgramFile(const char* link) {
    std::error_code failed;
    fs::path file = fs::read_symlink(link, failed);
    if (!failed) return file.string();
    const char* started = StartedPath();
    if (started) file = fs::canonical(started, failed);
    return started && !failed ? file.string() : "";
}

Surroundings ReadSurroundings() {
    return {ProgramFile(), Variable("XDG_DATA_HOME"), Variable("HOME")};
}

std::unique_ptr<Files> OpenGameFiles(const Surroundings& surroundings) {
    auto users = OpenUsersFiles(surroundings);
    auto installed = OpenInstalledFiles(surroundings.program);
    return installed ? LayFiles(std::move(users), std::move(installed)) : std::move(users);
}

}  // namespace korvane
