#pragma once

#include <string>

namespace korvane {

/// How making a skin went.
struct NewSkin {
    bool wasMade = false;
    std::string text;  ///< what to do next, or why there is none
};

/// Copies Skins/Original of the working directory to Skins/`name`. Refuses a name that is no
/// single folder name and one that is taken, in whatever letter case; a copy that fails halfway is
/// removed.
NewSkin MakeNewSkin(const std::string& name);

}  // namespace korvane
