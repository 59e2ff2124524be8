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
struct DataFileSession {
    bool oldStays = false;
    std::optional<std::vector<std::byte>> added;  ///< what the file beside it held
    std::vector<std::byte> begun;                 ///< what saving at once would have written
};

}  // namespace korvane
