#include "tools/korvane-skin/catalogue.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "tools/korvane-skin/catalogue_table.h"
#include "tools/korvane-skin/finding.h"

namespace korvane {
namespace {

std::string Size(SIZE size) {
    return Text(size.cx, " × ", size.cy);
}

}  // namespace

std::string ShownName(std::string_view file) {
    std::string name(file);
    std::ranges::replace(name, '\\', '/');
    return name;
}

std::string SizeText(const PictureRow& row) {
    switch (row.kind) {
        case PictureKind::Tile:
            return Text("any, such as ", Size(row.room));
        case PictureKind::Single:
            return Text("up to ", Size(row.room));
        case PictureKind::Exact:
            return Size(row.room);
        case PictureKind::Button:
            return Text("up to ", Size(row.FileSize()), ": two views");
        case PictureKind::Cells:
            return Text(Size(row.FileSize()), ": ", row.cells, " cells of ", Size(row.room));
        case PictureKind::Keys:
            return Size(row.FileSize());
    }
    return {};
}

std::string PlaceText(const PictureRow& row) {
    if (!row.place.empty()) return std::string(row.place);
    if (!row.standsFor.empty()) return "the one above while disabled";
    std::vector<const ButtonPlace*> buttons;
    for (const ButtonPlace& button : kButtonPlaces)
        if (button.picture == row.file) buttons.push_back(&button);
    std::ranges::sort(buttons, {},
                      [](const ButtonPlace* button) { return std::pair(button->at.x, button); });
    std::string text;
    std::string_view view;
    for (const ButtonPlace* button : buttons) {
        text +=
            button->view == view ? " and " : Text(text.empty() ? "" : "; ", button->view, ", at ");
        text += Text("(", button->at.x, ", ", button->at.y, ")");
        view = button->view;
    }
    return text;
}

std::string CatalogueAsMarkdown() {
    std::string table = "| file | size in pixels | key | where |\n|---|---|---|---|\n";
    for (const PictureRow& row : kPictures) {
        const std::string key = row.key == kNoKey ? "none" : std::to_string(row.key + 1);
        table += Text("| `", ShownName(row.file), "` | ", SizeText(row), " | ", key, " | ",
                      PlaceText(row), " |\n");
    }
    for (const SoundRow& row : kSoundFiles)
        table += Text("| `", ShownName(row.file), "` | | | ", row.event, " |\n");
    return table;
}

}  // namespace korvane
