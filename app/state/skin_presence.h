#pragma once

namespace korvane {

/// Whether there is any readable picture or sound in the folders that the skin in use takes them
/// from: its own, the Original's and the fallback folder. When there is none the screen says so,
/// and no box is shown for each.
bool IsAnySkinReadable();

}  // namespace korvane
