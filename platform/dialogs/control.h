#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/dialogs/control_parent.h"
#include "platform/dialogs/dialog_items.h"
#include "platform/draw/canvas.h"
#include "platform/host/host.h"

namespace korvane {

/// What the keyboard does to a control when it is painted.
struct ControlState {
    bool focused = false;
    bool isDefault = false;  ///< Return presses it
};

/// One control. It gets input only while it is enabled. Places count from the dialog's corner.
class Control {
  public:
    Control(ControlParent& parent, const DLGITEMTEMPLATE& source);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    std::uint16_t Id() const { return id_; }
    ControlKind Kind() const { return kind_; }
    bool Has(ControlStyle style) const { return (style_ & style) != 0; }
    bool IsEnabled() const { return enabled_; }
    void Enable(bool enabled);
    const RECT& Place() const { return place_; }
    virtual void SetPlace(const RECT& place, int scale);
    virtual const std::string& Text() const { return text_; }
    virtual void SetText(std::string_view text);
    /// The capital or digit that & stands before; 0 for none.
    char Mnemonic() const { return mnemonic_; }

    virtual bool TakesKeyboard() const { return false; }
    /// True when it uses letter keys itself, so that they are no mnemonics while it has the focus.
    virtual bool UsesLetters() const { return false; }
    virtual bool TakesText() const { return false; }
    virtual void Paint(Canvas& canvas, const ControlState& state) const = 0;

    /// It has got the focus by a key, not by the mouse.
    virtual void OnTabbedTo() {}
    /// True when it has used the key.
    virtual bool OnKeyDown(const HostEvent& /*event*/) { return false; }
    virtual void OnKeyUp(const HostEvent& /*event*/) {}
    virtual void OnCharacter(char32_t /*character*/) {}
    virtual void OnMnemonic() {}
    /// The mouse button went down on it. Moves and the release follow, wherever the pointer is
    /// then.
    virtual void OnPress(POINT /*at*/, std::uint8_t /*modifiers*/) {}
    virtual void OnDrag(POINT /*at*/) {}
    virtual void OnRelease(POINT /*at*/) {}
    /// The mouse is held on, but the control gets no more moves and no release.
    virtual void OnDragLost() {}
    /// True when it can scroll.
    virtual bool OnWheel(int /*notches*/) { return false; }
    virtual std::optional<std::uint32_t> TimeToTick() const { return std::nullopt; }
    virtual void Tick() {}

  protected:
    void Changed() { parent_.Changed(); }
    ControlParent& Parent() { return parent_; }
    int Scale() const { return scale_; }
    /// The text without its &, and how it is written at this moment.
    const std::string& Label() const { return label_; }
    TextLook LabelLook() const;

  private:
    ControlParent& parent_;
    const std::uint16_t id_;
    const ControlKind kind_;
    const std::uint8_t style_;
    bool enabled_;
    RECT place_;
    int scale_ = 1;
    std::string text_;
    std::string label_;
    std::size_t underlined_ = TextLook::kNothing;
    char mnemonic_ = 0;
};

/// The icon must outlive the control.
std::unique_ptr<Control> MakeControl(ControlParent& parent, const DLGITEMTEMPLATE& source,
                                     std::span<const std::uint32_t> icon);

}  // namespace korvane
