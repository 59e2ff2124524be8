#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/descriptor.h"

namespace korvane {

/// Where a path leads: an open folder and a name in it. Nothing need exist under that name, but it
/// is no link at the time of the walk. A path that leads to the folder itself has the name ".".
struct PathEnd {
    Descriptor folder;
    std::string name;
};

struct WalkResult {
    std::optional<PathEnd> end;
    /// When there is no end: a folder on the way does not exist. Otherwise it could not be told, or
    /// a link leads out.
    bool missing = false;
};

/// The names in a path of the game, split at slashes and backslashes. Empty names and "." mean
/// nothing and are left out; blanks belong to the name. Nothing for a path that cannot lie beneath
/// a folder ("..", a leading separator, a drive letter) or that is none (a zero byte, more
/// than 1024 bytes).
std::optional<std::vector<std::string>> SplitGamePath(std::string_view path);

/// The names in a folder but "." and "..", in no particular order; nothing when `name` is no
/// folder in `parent` (a link is none) or cannot be read.
std::optional<std::vector<std::string>> NamesIn(const Descriptor& parent, const std::string& name);

/// What stands under a name; Unknown when the system cannot tell.
enum class Found : std::uint8_t { Nothing, Link, Other, Unknown };

/// What stands under a name. One that exists in another letter case only is spelled as it exists.
Found LookFor(const Descriptor& folder, std::string& name);

/// Follows names from a folder downwards. A name that does not exist as it is spelled stands for
/// the one that differs in ASCII letter case only, the first in byte order when there are several.
/// Links are followed as long as every step stays beneath `root`. No end when a folder on the way
/// is missing, a link leads out or in circles, or the system refuses a step.
///
/// Each step opens one name in the folder before it and follows no link by itself, so a link that
/// is made during the walk cannot lead out either. The kernel's own confined lookup (openat2) would
/// not do: letter case needs the walk anyway, and many sandboxes lack that call.
WalkResult WalkBeneath(Descriptor root, const std::vector<std::string>& names);

}  // namespace korvane
