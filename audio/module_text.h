#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

/// The largest module.txt that is opened. Eight lines count; below them there may be a long text.
inline constexpr std::size_t kMaxModuleTextBytes = std::size_t{1} << 20;

/// Which module plays, and from which of its orders on each kind of screen.
struct ModuleChoice {
    std::string fileName = "sniffit.xm";  ///< inside the skin's Audio folder
    std::int32_t menuPosition = 0;
    std::int32_t gamePosition = 8;
    std::int32_t highScorePosition = 54;

    bool operator==(const ModuleChoice&) const = default;
};

/// Takes what the text of a module.txt says; what it does not name stays.
///
/// A keyword stands alone on its line, in any letter case and without blanks round it; its value is
/// the next line. Four lines are looked at for keywords, matching or not, and no more. A number may
/// have blanks and a sign before it and anything behind it; without digits it is 0, and it is
/// limited to 32 bits. A line is read up to 254 characters; what is left of a longer one counts as
/// the next.
void ApplyModuleText(std::string_view text, ModuleChoice& choice);

/// Reads module.txt from a folder, whose name ends with a backslash. False, with nothing changed,
/// when there is none that can be opened.
bool ReadModuleText(const std::string& folder, ModuleChoice& choice);

}  // namespace korvane
