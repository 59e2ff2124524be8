#pragma once

#include <string>
#include <vector>

#include "platform/files/folder_walk.h"

namespace korvane {

/// `WalkBeneath` from the user's own folder: there `Skins`, a skin in it and `data` may be links of
/// this user's that lead anywhere. What lies behind such a link is gated like a folder of its own,
/// so that no link in it leads out of it.
WalkResult WalkThroughOwnLinks(Descriptor root, const std::vector<std::string>& names);

}  // namespace korvane
