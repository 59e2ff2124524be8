#include "platform/window/box_face.h"

#include <algorithm>
#include <utility>

#include "platform/window/window_frame.h"

namespace korvane {
namespace {

constexpr int kMargin = 12;
constexpr int kIconSize = 32;
constexpr int kWidestText = 400;
constexpr SIZE kButton = {75, 23};
constexpr std::string_view kButtonText = "OK";

bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The length in bytes of the longest part of a word that fits, at least one character.
std::size_t FittingCharacters(std::string_view word, int width, int scale) {
    std::size_t fitting = 0;
    for (std::size_t end = 1; end <= word.size(); ++end) {
        if (end < word.size() && ContinuesCharacter(word[end])) continue;
        if (fitting != 0 && TextWidth(word.substr(0, end), scale) > width) break;
        fitting = end;
    }
    return fitting;
}

void WrapLine(std::vector<std::string>& lines, std::string_view text, int width, int scale) {
    std::string line;
    while (!text.empty()) {
        // A word with the blanks before it.
        const std::size_t start = std::min(text.find_first_not_of(' '), text.size());
        const std::size_t end = std::min(text.find(' ', start), text.size());
        std::string_view word = text.substr(0, end);
        text.remove_prefix(end);
        if (start == end) break;  // blanks at the end of a line show nothing
        if (TextWidth(line + std::string(word), scale) <= width) {
            line += word;
            continue;
        }
        if (!line.empty()) lines.push_back(std::exchange(line, {}));
        word.remove_prefix(start);
        while (TextWidth(word, scale) > width && word.size() > 1) {
            const std::size_t part = FittingCharacters(word, width, scale);
            lines.emplace_back(word.substr(0, part));
            word.remove_prefix(part);
        }
        line = word;
    }
    lines.push_back(line);
}

/// What surrounds a box's text.
struct Surroundings {
    int border = 0;
    int top = 0;  ///< border and caption
    int icon = 0;
    int beside = 0;
    int aboveAndBelow = 0;
};

Surroundings SurroundingsOf(BoxFrame frame, bool hasIcon) {
    Surroundings around;
    if (frame == BoxFrame::Own) {
        around.border = kFrameBorder;
        around.top = kFrameBorder + kFrameCaption;
    }
    if (hasIcon) around.icon = kIconSize + kMargin;
    around.beside = 2 * around.border + 2 * kMargin + around.icon;
    around.aboveAndBelow = around.top + 3 * kMargin + kButton.cy + around.border;
    return around;
}

std::vector<std::string> FittingLines(std::string_view text, const Surroundings& around, SIZE limit,
                                      int scale) {
    auto lines = WrapText(text, std::clamp(limit.cx - around.beside, 1, kWidestText), scale);
    const int fitting = std::max(1, (limit.cy - around.aboveAndBelow) / kTextLineHeight);
    if (static_cast<int>(lines.size()) > fitting) lines.resize(static_cast<std::size_t>(fitting));
    return lines;
}

}  // namespace

std::vector<std::string> WrapText(std::string_view utf8, int width, int scale) {
    std::vector<std::string> lines;
    for (;;) {
        const std::size_t end = utf8.find('\n');
        WrapLine(lines, utf8.substr(0, end), width, scale);
        if (end == utf8.npos) return lines;
        utf8.remove_prefix(end + 1);
    }
}

BoxFace LayOutBox(const BoxText& text, BoxFrame frame, SIZE limit, int scale) {
    const Surroundings around = SurroundingsOf(frame, text.errorIcon);
    BoxFace face;
    face.lines = FittingLines(text.text, around, limit, scale);
    int textWidth = kButton.cx;
    for (const std::string& line : face.lines)
        textWidth = std::max(textWidth, TextWidth(line, scale));
    const int captionWidth = 2 * (around.border + kCaptionPadding) + TextWidth(text.caption, scale);
    const int textHeight = static_cast<int>(face.lines.size()) * kTextLineHeight;
    const int contentHeight = std::max(textHeight, text.errorIcon ? kIconSize : 0);
    face.size.cx = std::min(std::max(around.beside + textWidth, captionWidth),
                            std::max(limit.cx, around.beside + kButton.cx));
    face.size.cy = around.aboveAndBelow + contentHeight;

    const int right = face.size.cx - around.border;
    if (frame == BoxFrame::Own) face.caption = CaptionOf(face.size);
    const int left = around.border + kMargin;
    const int top = around.top + kMargin;
    if (text.errorIcon) face.icon = RectAt({left, top}, {kIconSize, kIconSize});
    int y = top + (contentHeight - textHeight) / 2;
    for (std::size_t i = 0; i < face.lines.size(); ++i, y += kTextLineHeight)
        face.rows.push_back({left + around.icon, y, right - kMargin, y + kTextLineHeight});
    const POINT button{(face.size.cx - kButton.cx) / 2, top + contentHeight + kMargin};
    face.button = RectAt(button, kButton);
    return face;
}

namespace {

void PaintErrorIcon(Canvas& canvas, const RECT& icon) {
    constexpr Colour kRed = 0xC8283C;
    constexpr Colour kWhite = 0xFFFFFF;
    constexpr int kInset = 10;
    canvas.Disc(icon, kDarkEdgeColour);
    canvas.Disc(Shrunk(icon, 1), kRed);
    canvas.Cross(Shrunk(icon, kInset), 4, kWhite);
}

}  // namespace

Canvas PaintBox(const BoxText& text, const BoxFace& face, ButtonLook button, int scale) {
    Canvas canvas(face.size, scale);
    const RECT all{0, 0, face.size.cx, face.size.cy};
    canvas.Fill(all, kFaceColour);
    if (!face.caption.IsEmpty()) PaintWindowFrame(canvas, text.caption);
    if (!face.icon.IsEmpty()) PaintErrorIcon(canvas, face.icon);
    for (std::size_t i = 0; i < face.lines.size(); ++i)
        canvas.Text(face.rows[i], face.lines[i], {});
    PaintButton(canvas, face.button,
                {.text = kButtonText, .look = button, .isDefault = true, .focused = true});
    return canvas;
}

}  // namespace korvane
