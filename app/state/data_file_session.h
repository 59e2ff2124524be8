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
/// A session saves to one of the two, its target. What it has done since it read or wrote that the
/// last time is the difference between its record and `known`.
struct DataFileSession {
    bool oldStays = false;                        ///< the target is the file beside
    std::optional<std::vector<std::byte>> added;  ///< what the file beside held at the start
    std::vector<std::byte> known;    ///< the session's part of what the target held at that time
    std::vector<std::byte> written;  ///< the target as the session left it; empty before that
};

}  // namespace korvane
