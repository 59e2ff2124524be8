#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

/// A line of UTF-8 that is being edited. Caret and selection lie between characters and are given
/// in bytes.
class EditText {
  public:
    /// How many bytes the user may type or paste.
    static constexpr std::size_t kLimit = 31;

    enum class Reach { Caret, Selection };

    const std::string& Text() const { return text_; }
    /// Moves the caret to the end; the limit does not apply here.
    void Set(std::string_view text);

    std::size_t Caret() const { return caret_; }
    std::size_t SelectionStart() const { return caret_ < anchor_ ? caret_ : anchor_; }
    std::size_t SelectionEnd() const { return caret_ < anchor_ ? anchor_ : caret_; }
    bool HasSelection() const { return caret_ != anchor_; }
    std::string_view Selected() const;
    void SelectAll();

    /// Moves the caret, or the selection's end with it.
    void MoveTo(std::size_t at, Reach reach);
    /// By one character or word; with Reach::Caret a selection shrinks to its edge on that side.
    void Step(int direction, bool byWord, Reach reach);

    /// Replaces the selection by as much of the first line of `text` as the limit allows. Control
    /// characters and broken UTF-8 are left out.
    void Insert(std::string_view text);
    void EraseSelection();
    /// The selection, or else the character before (-1) or after (1) the caret.
    void Erase(int direction);

  private:
    std::size_t Stepped(int direction, bool byWord) const;

    std::string text_;
    std::size_t caret_ = 0;
    std::size_t anchor_ = 0;
};

}  // namespace korvane
