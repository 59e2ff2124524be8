#include "platform/dialogs/edit_box.h"

#include <algorithm>

#include "platform/base/utf8.h"
#include "platform/base/virtual_keys.h"

namespace korvane {
namespace {

constexpr int kMargin = 2;

EditText::Reach ReachOf(std::uint8_t modifiers) {
    return (modifiers & kModShift) != 0 ? EditText::Reach::Selection : EditText::Reach::Caret;
}

}  // namespace

EditBox::EditBox(ControlParent& parent, const DLGITEMTEMPLATE& source) : Control(parent, source) {
    line_.Set(source.text);
}

void EditBox::SetText(std::string_view text) {
    line_.Set(text);
    line_.MoveTo(0, EditText::Reach::Caret);
    Edited();
}

bool EditBox::OnKeyDown(const HostEvent& event) {
    if ((event.modifiers & kModAlt) != 0) return false;
    return OnMove(event) || OnErase(event) || OnClipboardKey(event);
}

bool EditBox::OnMove(const HostEvent& event) {
    const EditText::Reach reach = ReachOf(event.modifiers);
    const bool byWord = (event.modifiers & kModControl) != 0;
    switch (event.key) {
        case VK_LEFT:
        case VK_UP:
            line_.Step(-1, byWord, reach);
            break;
        case VK_RIGHT:
        case VK_DOWN:
            line_.Step(1, byWord, reach);
            break;
        case VK_HOME:
            line_.MoveTo(0, reach);
            break;
        case VK_END:
            line_.MoveTo(line_.Text().size(), reach);
            break;
        default:
            return false;
    }
    Edited();
    return true;
}

bool EditBox::OnErase(const HostEvent& event) {
    if (event.key != VK_BACK && event.key != VK_DELETE) return false;
    if (event.key == VK_DELETE && event.modifiers == kModShift) {
        Cut();
    } else {
        line_.Erase(event.key == VK_BACK ? -1 : 1);
    }
    Edited();
    return true;
}

bool EditBox::OnClipboardKey(const HostEvent& event) {
    if (event.key == VK_INSERT) {
        if (event.modifiers == kModControl) Copy();
        if (event.modifiers == kModShift) Paste();
        return true;
    }
    if (event.modifiers != kModControl) return false;
    switch (event.key) {
        case 'A':
            line_.SelectAll();
            break;
        case 'C':
            Copy();
            break;
        case 'X':
            Cut();
            break;
        case 'V':
            Paste();
            break;
        default:
            return false;
    }
    Edited();
    return true;
}

void EditBox::Copy() const {
    if (line_.HasSelection()) TheHost().SetClipboardText(std::string(line_.Selected()));
}

void EditBox::Cut() {
    Copy();
    line_.EraseSelection();
}

void EditBox::Paste() {
    line_.Insert(TheHost().ClipboardText());
    Edited();
}

void EditBox::OnCharacter(char32_t character) {
    line_.Insert(InUtf8(character));
    Edited();
}

void EditBox::OnTabbedTo() {
    line_.SelectAll();
    Edited();
}

void EditBox::OnPress(POINT at, std::uint8_t modifiers) {
    line_.MoveTo(ByteAt(at.x), ReachOf(modifiers));
    Edited();
}

void EditBox::OnDrag(POINT at) {
    line_.MoveTo(ByteAt(at.x), EditText::Reach::Selection);
    Edited();
}

void EditBox::Edited() {
    ShowCaret();
    Changed();
}

/// The width of the text before a byte.
int EditBox::XOf(std::size_t byte) const {
    return TextWidth(std::string_view(Text()).substr(0, byte), Scale());
}

/// Where the character nearest to a point begins.
std::size_t EditBox::ByteAt(int x) const {
    const int wanted = x - Inside().left - kMargin + scrolled_;
    std::size_t at = 0;
    for (int left = 0; at < Text().size();) {
        const std::size_t next = NextCharacter(Text(), at);
        const int right = XOf(next);
        if (wanted < (left + right) / 2) break;
        at = next;
        left = right;
    }
    return at;
}

void EditBox::ShowCaret() {
    const int room = std::max(1, Inside().Width() - 2 * kMargin - 1);
    const int caret = XOf(line_.Caret());
    // Scrolls no further than needed, and leaves no gap behind the text's end.
    scrolled_ = std::clamp(scrolled_, caret - room, caret);
    scrolled_ = std::clamp(scrolled_, 0, std::max(0, XOf(Text().size()) - room));
}

void EditBox::Paint(Canvas& canvas, const ControlState& state) const {
    canvas.Frame(Place(), state.focused ? kFocusColour : kEdgeColour);
    const RECT inside = Inside();
    if (inside.IsEmpty()) return;
    const RECT row{kMargin - scrolled_, 0, inside.Width(), inside.Height()};
    Canvas field(inside.Size(), canvas.Scale());
    field.Fill({0, 0, inside.Width(), inside.Height()}, IsEnabled() ? kFieldColour : kFaceColour);
    TextLook look;
    if (!IsEnabled()) look.colour = kGreyedColour;
    field.Text(row, Text(), look);
    if (state.focused && line_.HasSelection()) {
        const int left = std::max(0, row.left + XOf(line_.SelectionStart()));
        const int right = std::min(row.right, row.left + XOf(line_.SelectionEnd()));
        Canvas selected({std::max(0, right - left), row.bottom}, canvas.Scale());
        selected.Fill({0, 0, right - left, row.bottom}, kSelectionColour);
        look.colour = kSelectedTextColour;
        selected.Text({row.left - left, 0, right - left, row.bottom}, Text(), look);
        field.Paste(selected, {left, 0});
    }
    if (state.focused) {
        const int caret = row.left + XOf(line_.Caret());
        field.Fill({caret, 2, caret + 1, row.bottom - 2}, kTextColour);
    }
    canvas.Paste(field, {inside.left, inside.top});
}

}  // namespace korvane
