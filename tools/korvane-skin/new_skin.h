#pragma once

#include <string>
#include <vector>

namespace korvane {

/// The result of making a skin.
struct NewSkin {
    bool wasMade = false;
    std::string text;  ///< what to do next, or why there is none
};

/// Copies the Original to Skins/`name` of the first of the game's folders, the user's own. Where
/// several of them have files of the Original, those of the first ones count. Refuses a name that
/// is no plain folder name or that a skin in any of the folders has (letter case does not matter).
/// Removes a copy that failed halfway.
NewSkin MakeNewSkin(const std::string& name, const std::vector<std::string>& folders);

}  // namespace korvane
