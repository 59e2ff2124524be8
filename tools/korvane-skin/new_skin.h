#pragma once

#include <string>

namespace korvane {

/// The result of making a skin.
struct NewSkin {
    bool wasMade = false;
    std::string text;  ///< what to do next, or why there is none
};

/// Copies Skins/Original of the working directory to Skins/`name`. Refuses a name that is no plain
/// folder name or is taken (letter case does not matter). Removes a copy that failed halfway.
NewSkin MakeNewSkin(const std::string& name);

}  // namespace korvane
