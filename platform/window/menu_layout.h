#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "platform/base/types.h"
#include "platform/draw/canvas.h"
#include "platform/window/menu.h"

namespace korvane {

/// The height of a menu bar.
inline constexpr int kMenuBarHeight = 19;

/// Stands for no popup and no item.
inline constexpr std::size_t kNoEntry = static_cast<std::size_t>(-1);

/// Where the titles lie in a bar at 0, 0.
std::vector<RECT> LayOutTitles(const Menu& menu, int scale);

struct PopupLayout {
    RECT place;               ///< with the border
    std::vector<RECT> items;  ///< one for each item, as wide as the popup inside its border
};

/// A popup with its corner at the given point, or moved as far as it takes to lie in an area that
/// begins at 0, 0. A popup that is larger than the area sticks out at the right and bottom.
PopupLayout LayOutPopup(const MenuPopup& popup, POINT corner, SIZE area, int scale);

/// The bar with one lit title, or kNoEntry.
Canvas PaintMenuBar(const Menu& menu, std::span<const RECT> titles, std::size_t lit, int width,
                    int scale);
/// The popup with one lit item, or kNoEntry; the canvas is as large as its place.
Canvas PaintPopup(const MenuPopup& popup, const PopupLayout& layout, std::size_t lit, int scale);

}  // namespace korvane
