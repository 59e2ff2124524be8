#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

/// A line of UTF-8 in the making: caret and selection lie between characters and count in bytes.
class EditText {
  public:
    enum class Reach { Caret, Selection };

    const std::string& Text() const { return text_; }
    /// Puts the caret to the end; the limit does not count here.
    void Set(std::string_view text);
    /// How many bytes the user may make of it.
    void Limit(std::size_t bytes) { limit_ = bytes; }

    std::size_t Caret() const { return caret_; }
    std::size_t SelectionStart() const { return caret_ < anchor_ ? caret_ : anchor_; }
    std::size_t SelectionEnd() const { return caret_ < anchor_ ? anchor_ : caret_; }
    bool HasSelection() const { return caret_ != anchor_; }
    std::string_view Selected() const;
    void SelectAll();

    /// Moves the caret, or the selection's end with it.
    void MoveTo(std::size_t at, Reach reach);
    /// By one character or word; without reach a selection shrinks to its end on that side.
    void Step(int direction, bool byWord, Reach reach);

    /// In place of the selection, as much of it as the limit allows: whole characters up to the
    /// first line's end, none that are no text.
    void Insert(std::string_view text);
    void EraseSelection();
    /// The selection, or else the character before (-1) or after (1) the caret.
    void Erase(int direction);

  private:
    std::size_t Stepped(int direction, bool byWord) const;

    std::string text_;
    std::size_t caret_ = 0;
    std::size_t anchor_ = 0;
    std::size_t limit_ = 31;  // what a number or a name takes
};

}  // namespace korvane
