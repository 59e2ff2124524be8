#include <array>

#include "tools/korvane-skin/catalogue_table.h"
#include "tools/korvane-skin/finding.h"
#include "tools/korvane-skin/json.h"
#include "tools/korvane-skin/limits.h"

namespace korvane {
namespace {

constexpr std::array kKindNames = {"tile", "single", "exact", "button", "cells", "keys"};
static_assert(kKindNames.size() == static_cast<std::size_t>(PictureKind::Keys) + 1);

/// The name of a picture, or null for no picture.
std::string FileOrNull(std::string_view file) {
    return file.empty() ? "null" : Quoted(ShownName(file));
}

std::string PictureToJson(const PictureRow& row) {
    return Object({{"file", Quoted(ShownName(row.file))},
                   {"kind", Quoted(kKindNames[static_cast<std::size_t>(row.kind)])},
                   {"key", row.key == kNoKey ? "null" : Text(row.key + 1)},
                   {"cells", Text(row.cells)},
                   {"width", Text(row.FileSize().cx)},
                   {"height", Text(row.FileSize().cy)},
                   {"place", Quoted(PlaceText(row))},
                   {"standsFor", FileOrNull(row.standsFor)}});
}

std::string ButtonToJson(const ButtonPlace& button) {
    const SIZE size = RowOf(button.picture).room;
    return Object({{"name", Quoted(button.name)},
                   {"view", Quoted(button.view)},
                   {"picture", FileOrNull(button.picture)},
                   {"disabledPicture", FileOrNull(button.disabledPicture)},
                   {"x", Text(button.at.x)},
                   {"y", Text(button.at.y)},
                   {"width", Text(size.cx)},
                   {"height", Text(size.cy)}});
}

}  // namespace

std::string CatalogueAsJson() {
    return Object({{"leastContrast", Text(kLeastContrast)},
                   {"pictures", List(kPictures, PictureToJson)},
                   {"buttons", List(kButtonPlaces, ButtonToJson)}}) +
           '\n';
}

}  // namespace korvane
