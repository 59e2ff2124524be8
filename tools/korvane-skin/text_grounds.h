#pragma once

#include <string_view>
#include <vector>

#include "tools/korvane-skin/checked_skin.h"

namespace korvane {

/// What a text stands on: the darkest and the lightest luminance that counts.
struct TextGround {
    std::string_view file;  ///< of the ground
    bool isOwn;             ///< some of it comes from the skin, not from the Original
    double darkest;         ///< relative luminance
    double lightest;
};

/// The rows of a cell that characters fill; `bottom` is the first one below them.
struct InkRows {
    int top;
    int bottom;
};

/// The grounds of all texts with characters of a kind (kLetters and so on): the backgrounds, with
/// the frames on them, where a screen of the game draws these rows of the characters.
std::vector<TextGround> TextGroundsOf(const CheckedSkin& skin, unsigned kind, const InkRows& rows);

/// The ground of these rows of a key's glyph: a slot of the key configuration.
TextGround KeySlotGround(const CheckedSkin& skin, int width, const InkRows& rows);

}  // namespace korvane
