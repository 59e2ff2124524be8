#include "platform/dialogs/label_controls.h"

#include <algorithm>
#include <cmath>

namespace korvane {
namespace {

/// 8 dialog units, the height of a line in a dialog's template.
constexpr int kLineHeight = 13;
constexpr int kGroupTextIndent = 9;
constexpr int kGroupTextGap = 2;
constexpr int kIconSize = 32;

}  // namespace

void StaticText::Paint(Canvas& canvas, const ControlState& /*state*/) const {
    TextLook look = LabelLook();
    RECT row = Place();
    row.bottom = row.top + kLineHeight;
    for (std::string_view rest = Label();;) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        const int room = Place().Width() - TextWidth(line, canvas.Scale());
        row.left = Place().left;
        if (Has(kAlignRight)) row.left += room;
        if (Has(kAlignCentre)) row.left += room / 2;
        canvas.Text(row, line, look);
        if (end == rest.size()) return;
        rest.remove_prefix(end + 1);
        look.underlined = look.underlined > end ? look.underlined - end - 1 : look.kNothing;
        row.top += kLineHeight;
        row.bottom += kLineHeight;
    }
}

void GroupBox::Paint(Canvas& canvas, const ControlState& /*state*/) const {
    const RECT& place = Place();
    const RECT line{place.left, place.top + kLineHeight / 2, place.right - 1, place.bottom - 1};
    canvas.Frame(line, kEdgeColour);
    if (Label().empty()) return;
    const int left = place.left + kGroupTextIndent;
    const int right = left + TextWidth(Label(), canvas.Scale());
    const RECT row{left, place.top, right, place.top + kLineHeight};
    canvas.Fill({left - kGroupTextGap, row.top, right + kGroupTextGap, row.bottom}, kFaceColour);
    canvas.Text(row, Label(), LabelLook());
}

void StaticIcon::Paint(Canvas& canvas, const ControlState& /*state*/) const {
    const int side = static_cast<int>(std::lround(std::sqrt(square_.size())));
    if (side == 0) return;
    canvas.Picture(RectAt({Place().left, Place().top}, {kIconSize, kIconSize}),
                   {square_.data(), side, side, side});
}

}  // namespace korvane
