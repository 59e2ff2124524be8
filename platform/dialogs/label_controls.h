#pragma once

#include <span>

#include "platform/dialogs/control.h"

namespace korvane {

// Controls that take no input.

class StaticText final : public Control {
  public:
    using Control::Control;
    void Paint(Canvas& canvas, const ControlState& state) const override;
};

class GroupBox final : public Control {
  public:
    using Control::Control;
    void Paint(Canvas& canvas, const ControlState& state) const override;
};

class StaticIcon final : public Control {
  public:
    /// A square of 0xAARRGGBB pixels, or none.
    StaticIcon(ControlParent& parent, const DLGITEMTEMPLATE& source,
               std::span<const std::uint32_t> square)
        : Control(parent, source), square_(square) {}
    void Paint(Canvas& canvas, const ControlState& state) const override;

  private:
    std::span<const std::uint32_t> square_;
};

}  // namespace korvane
