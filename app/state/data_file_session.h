#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace korvane {

/// What a session has to know of a data file between loading and saving it.
///
/// A file that is there but cannot be read is never replaced. What the session adds goes to a file
/// beside it, which has the same name and ".new" behind it. Sessions start from that one until one
/// can read both; it takes the additions into the old file and deletes the other.
///
/// A session saves to one of the two, its target.
struct DataFileSession {
    bool oldStays = false;                        ///< the target is the file beside
    std::optional<std::vector<std::byte>> added;  ///< what the file beside held at the start
    std::vector<std::byte> held;                  ///< what the target held when it was last seen
    std::vector<std::byte> known;  ///< the session's own record, as it stood in the target then
};

}  // namespace korvane
