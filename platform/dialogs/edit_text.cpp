#include "platform/dialogs/edit_text.h"

#include <algorithm>

#include "platform/base/utf8.h"

namespace korvane {
namespace {

/// False for control characters (those of ASCII and of Latin-1) and for bytes that are no UTF-8.
bool IsText(char32_t character) {
    const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
    return !isControl && character != kReplacement;
}

}  // namespace

void EditText::Set(std::string_view text) {
    text_ = text;
    caret_ = anchor_ = text_.size();
}

std::string_view EditText::Selected() const {
    return std::string_view(text_).substr(SelectionStart(), SelectionEnd() - SelectionStart());
}

void EditText::SelectAll() {
    anchor_ = 0;
    caret_ = text_.size();
}

void EditText::MoveTo(std::size_t at, Reach reach) {
    caret_ = std::min(at, text_.size());
    if (reach == Reach::Caret) anchor_ = caret_;
}

void EditText::Step(int direction, bool byWord, Reach reach) {
    if (HasSelection() && reach == Reach::Caret && !byWord)
        return MoveTo(direction < 0 ? SelectionStart() : SelectionEnd(), reach);
    MoveTo(Stepped(direction, byWord), reach);
}

std::size_t EditText::Stepped(int direction, bool byWord) const {
    const auto isBlank = [this](std::size_t at) { return text_[at] == ' '; };
    std::size_t at = caret_;
    if (direction > 0) {
        if (!byWord) return NextCharacter(text_, at);
        while (at < text_.size() && !isBlank(at))
            ++at;
        while (at < text_.size() && isBlank(at))
            ++at;
        return at;
    }
    if (!byWord) return PreviousCharacter(text_, at);
    while (at > 0 && isBlank(at - 1))
        --at;
    while (at > 0 && !isBlank(at - 1))
        --at;
    return at;
}

void EditText::Insert(std::string_view text) {
    std::string fitting;
    const std::size_t kept = text_.size() - Selected().size();
    const std::size_t room = kLimit > kept ? kLimit - kept : 0;
    while (!text.empty() && text.front() != '\n' && text.front() != '\r') {
        const char32_t character = TakeCharacter(text);
        if (!IsText(character)) continue;
        const std::string bytes = InUtf8(character);
        if (fitting.size() + bytes.size() > room) break;
        fitting += bytes;
    }
    if (fitting.empty()) return;
    EraseSelection();
    text_.insert(caret_, fitting);
    MoveTo(caret_ + fitting.size(), Reach::Caret);
}

void EditText::EraseSelection() {
    const std::size_t start = SelectionStart();
    text_.erase(start, SelectionEnd() - start);
    MoveTo(start, Reach::Caret);
}

void EditText::Erase(int direction) {
    if (!HasSelection()) Step(direction, /*byWord=*/false, Reach::Selection);
    EraseSelection();
}

}  // namespace korvane
