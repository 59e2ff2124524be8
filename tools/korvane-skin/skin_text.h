#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

/// What a skin says of itself in skin.txt; the game does not read it.
struct SkinText {
    std::string name;
    std::string author;
    std::string licence;

    bool operator==(const SkinText&) const = default;
};

inline constexpr const char* kSkinTextFile = "skin.txt";
inline constexpr std::size_t kMaxSkinTextBytes = 4096;
/// A longer value is cut, in bytes.
inline constexpr std::size_t kMaxSkinTextValue = 80;

/// Reads lines such as "Author: somebody" in any order; the words before the colon are Name, Author
/// and Licence (or License), in upper or lower case. Other lines say nothing; of two lines with the
/// same word the first counts. Control characters become question marks.
SkinText ReadSkinText(std::string_view text);

/// "Dusk by somebody, MIT", as far as the text tells it; empty when it tells nothing.
std::string TitleOf(const SkinText& text);

/// That of the skin that theSettings name; empty without a skin.txt.
SkinText LoadSkinText();

}  // namespace korvane
