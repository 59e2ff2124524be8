#pragma once

#include <string>

#include "platform/window/box_face.h"
#include "platform/window/modal_window.h"

namespace korvane {

/// A message box, from Run to the answer.
class MessageBoxWindow final : public ModalWindow {
  public:
    MessageBoxWindow(Window& window, BoxText text);

  protected:
    const std::string& Title() const override { return text_.caption; }
    SIZE LayOut(bool framed, SIZE limit, int scale) override;
    Canvas Paint(int scale) const override;
    void OnKeyDown(const HostEvent& event) override;
    void OnPointer(const HostEvent& event, POINT at) override;
    void OnInputLost() override;
    bool OnCloseBox() override;

  private:
    void Look(ButtonLook look);

    BoxText text_;
    BoxFace face_;
    ButtonLook button_ = ButtonLook::Up;
    bool pressed_ = false;  ///< the button went down on the box's button and is held
};

}  // namespace korvane
