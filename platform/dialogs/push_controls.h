#pragma once

#include "platform/dialogs/control.h"

namespace korvane {

/// A control that is pressed by Space, its mnemonic or the mouse, which presses when it is released
/// on the control.
class PushControl : public Control {
  public:
    using Control::Control;
    bool TakesKeyboard() const final { return true; }
    bool OnKeyDown(const HostEvent& event) final;
    void OnMnemonic() final { Press(); }
    void OnPress(POINT at, std::uint8_t modifiers) final;
    void OnDrag(POINT at) final;
    void OnRelease(POINT at) final;
    void OnDragLost() final { ShowHeld(false); }
    virtual void Press() = 0;

  protected:
    /// True while the mouse holds it down.
    bool IsHeld() const { return held_; }

  private:
    void ShowHeld(bool held);

    bool held_ = false;
};

class PushButton final : public PushControl {
  public:
    using PushControl::PushControl;
    void Paint(Canvas& canvas, const ControlState& state) const override;
    void Press() override { Parent().Pressed(*this); }
};

/// A check box or radio button.
class CheckControl : public PushControl {
  public:
    using PushControl::PushControl;
    bool IsChecked() const { return checked_; }
    void Check(bool checked);
    void Paint(Canvas& canvas, const ControlState& state) const final;

  private:
    /// The box before the text, a square of 13 pixels.
    virtual void PaintMark(Canvas& canvas, const RECT& square) const = 0;

    bool checked_ = false;
};

class CheckBox final : public CheckControl {
  public:
    using CheckControl::CheckControl;
    void Press() override { Check(!IsChecked()); }

  private:
    void PaintMark(Canvas& canvas, const RECT& square) const override;
};

class RadioButton final : public CheckControl {
  public:
    using CheckControl::CheckControl;
    void Press() override { Parent().Chosen(*this); }

  private:
    void PaintMark(Canvas& canvas, const RECT& square) const override;
};

}  // namespace korvane
