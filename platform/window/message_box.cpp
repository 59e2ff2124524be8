#include "platform/window/message_box.h"

#include <utility>

#include "platform/window/box_face.h"
#include "platform/window/desktop.h"
#include "platform/window/modal_window.h"

namespace korvane {
namespace {

/// A message box, from Run to the answer.
class MessageBoxWindow final : public ModalWindow {
  public:
    MessageBoxWindow(Window& window, BoxText text)
        : ModalWindow(window, Overlay::Box), text_(std::move(text)) {}

  protected:
    const std::string& Title() const override { return text_.caption; }
    SIZE LayOut(bool framed, SIZE limit, int scale) override;
    Canvas Paint(int scale) const override { return PaintBox(text_, face_, button_, scale); }
    void OnKeyDown(const HostEvent& event) override;
    void OnPointer(const HostEvent& event, POINT at) override;
    void OnInputLost() override;
    bool OnCloseBox() override;
    void OnNotShown() override { TheHost().Report(text_.caption, text_.text); }

  private:
    void SetButton(ButtonLook look);

    BoxText text_;
    BoxFace face_;
    ButtonLook button_ = ButtonLook::Up;
    bool pressed_ = false;  ///< the mouse button went down on the box's button and is held
};

SIZE MessageBoxWindow::LayOut(bool framed, SIZE limit, int scale) {
    face_ = LayOutBox(text_, framed ? BoxFrame::Own : BoxFrame::Desktop, limit, scale);
    return face_.size;
}

void MessageBoxWindow::OnKeyDown(const HostEvent& event) {
    if (event.repeat) return;
    const bool answers = event.key == VK_RETURN || event.key == VK_SPACE ||
                         event.key == VK_ESCAPE ||
                         (event.key == VK_F4 && event.modifiers == kModAlt);
    if (answers) Close();
}

void MessageBoxWindow::OnPointer(const HostEvent& event, POINT at) {
    if (event.type == HostEventType::Wheel) return;
    const bool inside = Contains(face_.button, at);
    if (event.type == HostEventType::LeftButtonDown) pressed_ = inside;
    if (event.type == HostEventType::LeftButtonUp && std::exchange(pressed_, false) && inside)
        Close();
    SetButton(pressed_ && inside ? ButtonLook::Down : ButtonLook::Up);
}

void MessageBoxWindow::OnInputLost() {
    pressed_ = false;
    SetButton(ButtonLook::Up);
}

bool MessageBoxWindow::OnCloseBox() {
    Close();
    return true;
}

void MessageBoxWindow::SetButton(ButtonLook look) {
    if (std::exchange(button_, look) != look) Changed();
}

}  // namespace

void MessageBox(HWND /*owner*/, const std::string& text, const std::string& caption,
                std::uint32_t flags) {
    Window* const window = TheDesktop().window.get();
    if (!window) return TheHost().Report(caption, text);
    MessageBoxWindow(*window, {text, caption, (flags & MB_ICONERROR) != 0}).Run();
}

}  // namespace korvane
