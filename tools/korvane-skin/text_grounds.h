#pragma once

#include <string_view>
#include <vector>

#include "tools/korvane-skin/checked_skin.h"

namespace korvane {

/// What a text stands on: the darkest and the lightest of it that counts.
struct TextGround {
    std::string_view file;  ///< of the ground
    bool isOwn;             ///< the skin has a part in it
    double darkest;         ///< relative luminance
    double lightest;
};

/// Which rows of their cells characters fill, from the top on and up to before the bottom.
struct InkRows {
    int top;
    int bottom;
};

/// The grounds of all texts with characters of a kind (kLetters and so on) on the screens of the
/// game: what the backgrounds and the frames laid over them show where these rows come to lie.
std::vector<TextGround> TextGroundsOf(const CheckedSkin& skin, unsigned kind, const InkRows& rows);

/// What a slot of the key configuration shows under these rows of a glyph.
TextGround KeySlotGround(const CheckedSkin& skin, int width, const InkRows& rows);

}  // namespace korvane
