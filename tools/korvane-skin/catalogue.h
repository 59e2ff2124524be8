#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/base/types.h"
#include "tools/korvane-skin/button_places.h"

namespace korvane {

enum class PictureKind : std::uint8_t {
    Tile,    ///< laid side by side from the left top; any size
    Single,  ///< one picture of at most its room
    Exact,   ///< one picture whose inside has to fit what is drawn into it
    Button,  ///< two views side by side, normal and pressed, each of at most its room
    Cells,   ///< a strip of cells of a fixed size
    Keys,    ///< the three key colours
};

inline constexpr int kNoKey = -1;

/// A picture that a skin may hold. Sizes are in pixels.
struct PictureRow {
    std::string_view file;  ///< relative to the skin, with a backslash, as the game asks for it
    PictureKind kind;
    int key;  ///< which key colour is left out, 0 to 2, or kNoKey
    int cells;
    SIZE room;  ///< of one view or cell
    /// Its left top corner in the frame. Of several places, the greatest x and the greatest y.
    POINT at;
    std::string_view place;  ///< for people
    /// For a picture of a disabled button: the file of the button's usual picture.
    std::string_view standsFor = {};

    constexpr SIZE FileSize() const { return {room.cx * cells, room.cy}; }
};

constexpr PictureRow Tile(std::string_view file, SIZE size, std::string_view place) {
    return {file, PictureKind::Tile, kNoKey, 1, size, {0, 0}, place};
}
constexpr PictureRow Single(std::string_view file, int key, SIZE room, POINT at,
                            std::string_view place) {
    return {file, PictureKind::Single, key, 1, room, at, place};
}
constexpr PictureRow Cells(std::string_view file, int key, int cells, SIZE cell,
                           std::string_view place) {
    return {file, PictureKind::Cells, key, cells, cell, {0, 0}, place};
}
/// Without `place`, PlaceText names the places of the buttons that show the picture.
constexpr PictureRow TwoViews(std::string_view file, SIZE view, std::string_view place = {}) {
    return {file, PictureKind::Button, 0,     2,
            view, FarthestPlace(file), place, EnabledPicture(file)};
}

/// One of the sounds in the folder Audio.
struct SoundRow {
    std::string_view file;
    std::string_view event;
};

inline constexpr std::string_view kModuleTextFile = "Audio\\module.txt";

/// A file's name with slashes instead of backslashes.
std::string ShownName(std::string_view file);
/// The size that a picture's file must or may have, in words.
std::string SizeText(const PictureRow& row);
/// Where the game shows a picture, in words.
std::string PlaceText(const PictureRow& row);
/// The table of all files as Markdown, a line for each.
std::string CatalogueAsMarkdown();
/// All pictures and all buttons for programs, as JSON.
std::string CatalogueAsJson();

}  // namespace korvane
