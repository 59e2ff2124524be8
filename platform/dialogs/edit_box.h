#pragma once

#include "platform/dialogs/control.h"
#include "platform/dialogs/edit_text.h"

namespace korvane {

/// A field with one line of text.
class EditBox final : public Control {
  public:
    EditBox(ControlParent& parent, const DLGITEMTEMPLATE& source);

    const std::string& Text() const override { return line_.Text(); }
    void SetText(std::string_view text) override;

    bool TakesKeyboard() const override { return true; }
    bool UsesLetters() const override { return true; }
    bool TakesText() const override { return true; }
    void Paint(Canvas& canvas, const ControlState& state) const override;
    void OnTabbedTo() override;
    bool OnKeyDown(const HostEvent& event) override;
    void OnCharacter(char32_t character) override;
    void OnPress(POINT at, std::uint8_t modifiers) override;
    void OnDrag(POINT at) override;

  private:
    bool OnMove(const HostEvent& event);
    bool OnErase(const HostEvent& event);
    bool OnClipboardKey(const HostEvent& event);
    void Copy() const;
    void Cut();
    void Paste();
    void Edited();

    RECT Inside() const { return Shrunk(Place(), 2); }
    int XOf(std::size_t byte) const;
    std::size_t ByteAt(int x) const;
    void ShowCaret();

    EditText line_;
    int scrolled_ = 0;  ///< width of the text that is hidden left of the field
};

}  // namespace korvane
