#include "platform/window/menu_layout.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace korvane {
namespace {

constexpr int kTitlePadding = 7;
constexpr int kBorder = 3;
constexpr int kItemHeight = 18;
constexpr int kSeparatorHeight = 9;
constexpr int kCheckColumn = 20;
constexpr int kHintGap = 20;
constexpr int kRightMargin = 16;

constexpr std::array<std::string_view, 7> kCheckMark = {
    "......#",  //
    ".....##",  //
    "#...###",  //
    "##.###.",  //
    "#####..",  //
    ".###...",  //
    "..#....",  //
};

int HeightOf(const MenuItem& item) {
    return item.IsSeparator() ? kSeparatorHeight : kItemHeight;
}

SIZE PopupSize(const MenuPopup& popup, int scale) {
    int text = 0;
    int hint = 0;
    int height = 0;
    for (const MenuItem& item : popup.items) {
        text = std::max(text, TextWidth(item.label.text, scale));
        if (!item.label.hint.empty())
            hint = std::max(hint, kHintGap + TextWidth(item.label.hint, scale));
        height += HeightOf(item);
    }
    return {2 * kBorder + kCheckColumn + text + hint + kRightMargin, 2 * kBorder + height};
}

void DrawCheckMark(Canvas& canvas, const RECT& row, Colour colour) {
    const int width = static_cast<int>(kCheckMark[0].size());
    const int height = static_cast<int>(kCheckMark.size());
    const POINT corner{row.left + (kCheckColumn - width) / 2,
                       row.top + (row.Height() - height) / 2};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (kCheckMark[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] != '#')
                continue;
            canvas.Fill({corner.x + x, corner.y + y, corner.x + x + 1, corner.y + y + 1}, colour);
        }
    }
}

void PaintSeparator(Canvas& canvas, const RECT& row) {
    const int y = row.top + row.Height() / 2 - 1;
    canvas.Fill({row.left + 1, y, row.right - 1, y + 1}, kEdgeColour);
}

/// An item out of use is lit in a quieter colour, on which greyed text is read.
void PaintLight(Canvas& canvas, const RECT& row, const MenuItem& item) {
    canvas.Fill(row, item.greyed ? kFieldColour : kSelectionColour);
}

TextLook LookOf(const MenuItem& item, bool lit) {
    const Colour usable = lit ? kSelectedTextColour : kTextColour;
    return {.colour = item.greyed ? kGreyedColour : usable, .underlined = item.label.underlined};
}

void PaintItem(Canvas& canvas, const RECT& row, const MenuItem& item, bool lit) {
    if (lit) PaintLight(canvas, row, item);
    TextLook look = LookOf(item, lit);
    if (item.checked) DrawCheckMark(canvas, row, look.colour);
    RECT text = row;
    text.left += kCheckColumn;
    canvas.Text(text, item.label.text, look);
    text.left = row.right - kRightMargin - TextWidth(item.label.hint, canvas.Scale());
    look.underlined = TextLook::kNothing;
    canvas.Text(text, item.label.hint, look);
}

}  // namespace

std::vector<RECT> LayOutTitles(const Menu& menu, int scale) {
    std::vector<RECT> titles;
    int left = 0;
    for (const MenuPopup& popup : menu.popups) {
        const int width = TextWidth(popup.title.text, scale) + 2 * kTitlePadding;
        titles.push_back({left, 0, left + width, kMenuBarHeight});
        left += width;
    }
    return titles;
}

PopupLayout LayOutPopup(const MenuPopup& popup, POINT corner, SIZE area, int scale) {
    const SIZE size = PopupSize(popup, scale);
    const int left = std::max(0, std::min(corner.x, area.cx - size.cx));
    const int top = std::max(0, std::min(corner.y, area.cy - size.cy));
    PopupLayout layout{RectAt({left, top}, size), {}};
    int y = top + kBorder;
    for (const MenuItem& item : popup.items) {
        layout.items.push_back(
            RectAt({left + kBorder, y}, {size.cx - 2 * kBorder, HeightOf(item)}));
        y += HeightOf(item);
    }
    return layout;
}

Canvas PaintMenuBar(const Menu& menu, std::span<const RECT> titles, std::size_t lit, int width,
                    int scale) {
    Canvas canvas({width, kMenuBarHeight}, scale);
    canvas.Fill({0, 0, width, kMenuBarHeight}, kFaceColour);
    for (std::size_t i = 0; i < titles.size(); ++i) {
        const MenuLabel& title = menu.popups[i].title;
        RECT row = titles[i];
        row.bottom -= 1;
        TextLook look;
        look.underlined = title.underlined;
        if (i == lit) {
            canvas.Fill(row, kSelectionColour);
            look.colour = kSelectedTextColour;
        }
        row.left += kTitlePadding;
        canvas.Text(row, title.text, look);
    }
    return canvas;
}

Canvas PaintPopup(const MenuPopup& popup, const PopupLayout& layout, std::size_t lit, int scale) {
    const RECT& place = layout.place;
    Canvas canvas(place.Size(), scale);
    const RECT all{0, 0, place.Width(), place.Height()};
    canvas.Fill(all, kFaceColour);
    canvas.Frame(all, kEdgeColour);
    for (std::size_t i = 0; i < popup.items.size(); ++i) {
        const RECT& item = layout.items[i];
        const RECT row{item.left - place.left, item.top - place.top, item.right - place.left,
                       item.bottom - place.top};
        if (popup.items[i].IsSeparator()) {
            PaintSeparator(canvas, row);
        } else {
            PaintItem(canvas, row, popup.items[i], i == lit);
        }
    }
    return canvas;
}

}  // namespace korvane
