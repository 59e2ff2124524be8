#include "platform/files/own_links.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <iterator>
#include <utility>

#include "platform/base/ascii.h"

namespace korvane {
namespace {

/// How many of a path's first names may be the user's links.
std::size_t OwnPlaces(const std::vector<std::string>& names) {
    if (names.empty()) return 0;
    if (AsciiEqualsIgnoringCase(names.front(), "data")) return 1;
    if (!AsciiEqualsIgnoringCase(names.front(), "Skins")) return 0;
    return std::min<std::size_t>(names.size(), 2);
}

Descriptor Duplicate(const Descriptor& folder) {
    return Descriptor(fcntl(folder.Number(), F_DUPFD_CLOEXEC, 0));
}

/// Where others may write, one of their links could turn what this user saves against it.
bool IsOwn(const Descriptor& folder, const std::string& link) {
    struct stat status {};
    return fstatat(folder.Number(), link.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           status.st_uid == geteuid();
}

Descriptor OpenBehindLink(const Descriptor& folder, const std::string& link) {
    return Descriptor(Uninterrupted(
        [&] { return openat(folder.Number(), link.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
}

WalkResult NoEnd(int error) {
    return {.end = {}, .missing = TellsOfNothing(error)};
}

}  // namespace

WalkResult WalkThroughOwnLinks(Descriptor root, const std::vector<std::string>& names) {
    // Links that stay beneath the folder are followed as everywhere.
    WalkResult plain = WalkBeneath(Duplicate(root), names);
    if (plain.end || plain.missing) return plain;

    std::ptrdiff_t behindLink = 0;  // names that lead to the root of the walk in the end
    Descriptor folder = Duplicate(root);
    const auto places = static_cast<std::ptrdiff_t>(OwnPlaces(names));
    for (std::ptrdiff_t place = 0; place < places; ++place) {
        std::string name = names[static_cast<std::size_t>(place)];
        const bool isLink = LookFor(folder, name) == Found::Link;
        if (isLink && !IsOwn(folder, name)) return {};
        folder = isLink ? OpenBehindLink(folder, name)
                        : OpenIn(folder, name.c_str(), O_PATH | O_DIRECTORY);
        if (!folder) return NoEnd(errno);
        if (!isLink) continue;
        root = Duplicate(folder);
        behindLink = place + 1;
    }
    return WalkBeneath(std::move(root), {std::next(names.begin(), behindLink), names.end()});
}

}  // namespace korvane
