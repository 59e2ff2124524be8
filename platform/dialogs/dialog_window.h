#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialogs/control.h"
#include "platform/dialogs/dialog.h"
#include "platform/dialogs/push_controls.h"
#include "platform/window/modal_window.h"

namespace korvane {

/// A dialog from WM_INITDIALOG to its end.
class Dialog final : public ModalWindow, private ControlParent {
  public:
    Dialog(Window& window, const DLGTEMPLATE& source, DLGPROC procedure);

    /// Returns the result, or -1.
    int RunToEnd();
    void End(int result);
    /// The first control of this id; null for none.
    Control* Find(std::uint16_t id) const;
    /// The control that has the keyboard; null for none.
    Control* Focus() const { return focus_; }

  private:
    enum class FocusBy { Mouse, Keyboard };

    const std::string& Title() const override { return title_; }
    SIZE LayOut(bool framed, SIZE limit, int scale) override;
    Canvas Paint(int scale) const override;
    void OnKeyDown(const HostEvent& event) override;
    void OnKeyUp(const HostEvent& event) override;
    void OnCharacter(char32_t character) override;
    void OnPointer(const HostEvent& event, POINT at) override;
    void OnInputLost() override;
    bool OnCloseBox() override { return Cancel(); }
    bool WantsText() const override { return focus_ && focus_->TakesText(); }
    std::optional<std::uint32_t> TimeToTick() const override;
    void Tick() override;

    void Changed() override { ModalWindow::Changed(); }
    void Pressed(Control& button) override;
    void Chosen(Control& radio) override;
    void Scrolled(Control& bar, ScrollRequest request, int position) override;
    void Disabled(Control& control) override;

    void OnPress(POINT at, std::uint8_t modifiers);
    void OnMove(POINT at);
    void OnRelease(POINT at);
    void OnWheel(POINT at, int notches);
    Control* InputControlAt(POINT at) const;

    // In dialog_keys.cpp.
    void SetFocus(Control* control, FocusBy way);
    bool OnDialogKey(const HostEvent& event);
    bool OnMnemonic(std::uint8_t key);
    bool OnRadioArrow(std::uint8_t key);
    /// The next control that Tab stops at; null without any.
    Control* NextStop(const Control* from, int step) const;
    bool IsStop(Control& control) const;
    std::size_t IndexOf(const Control* control) const;
    /// The radio buttons of the same group, in their order; empty for other controls.
    std::vector<RadioButton*> GroupOf(const Control& radio) const;
    Control* ReturnButton() const;
    bool CanCancel() const;
    bool Cancel();

    const std::string title_;
    const SIZE clientSize_;
    std::vector<DLGRECT> places_;  ///< of the controls, in dialog units
    std::vector<std::unique_ptr<Control>> controls_;
    const DLGPROC procedure_;
    int result_ = -1;

    RECT caption_;  ///< empty when the desktop draws it
    Control* focus_ = nullptr;
    Control* held_ = nullptr;       ///< the control that the mouse holds
    std::optional<POINT> grabbed_;  ///< where the mouse holds the caption
    bool closeHeld_ = false;        ///< the mouse holds the close box
    bool closeLit_ = false;         ///< and is over it
    std::uint8_t usedKey_ = 0;      ///< the last key pressed, if it was used as a command
};

}  // namespace korvane
