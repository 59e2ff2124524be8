#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/base/types.h"
#include "platform/draw/canvas.h"
#include "platform/window/button_face.h"

namespace korvane {

/// What a message box says.
struct BoxText {
    std::string text;  ///< \n begins a new line; longer lines are wrapped
    std::string caption;
    bool errorIcon = false;
};

/// Who draws frame and caption: the box itself when it lies over the window's picture, the desktop
/// when the window shows only the box.
enum class BoxFrame { Own, Desktop };

/// The look of a message box. All places count from the box's corner.
struct BoxFace {
    SIZE size;
    RECT caption;  ///< empty when the desktop draws it
    RECT icon;     ///< empty without one
    std::vector<RECT> rows;
    std::vector<std::string> lines;  ///< in the rows
    RECT button;
};

/// A box no larger than `limit`, if caption and button fit at all; lines that do not fit are left
/// out.
BoxFace LayOutBox(const BoxText& text, BoxFrame frame, SIZE limit, int scale);

Canvas PaintBox(const BoxText& text, const BoxFace& face, ButtonLook button, int scale);

/// Breaks a text at \n, at blanks, and within words that are wider than a line (layer pixels).
std::vector<std::string> WrapText(std::string_view utf8, int width, int scale);

}  // namespace korvane
