#include "platform/window/message_box.h"

#include <utility>

#include "platform/window/desktop.h"

namespace korvane {

MessageBoxWindow::MessageBoxWindow(Window& window, BoxText text)
    : ModalWindow(window, Overlay::Box), text_(std::move(text)) {}

SIZE MessageBoxWindow::LayOut(bool framed, SIZE limit, int scale) {
    face_ = LayOutBox(text_, framed ? BoxFrame::Own : BoxFrame::Desktop, limit, scale);
    return face_.size;
}

Canvas MessageBoxWindow::Paint(int scale) const {
    return PaintBox(text_, face_, button_, scale);
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
    Look(pressed_ && inside ? ButtonLook::Down : ButtonLook::Up);
}

void MessageBoxWindow::OnInputLost() {
    pressed_ = false;
    Look(ButtonLook::Up);
}

bool MessageBoxWindow::OnCloseBox() {
    Close();
    return true;
}

void MessageBoxWindow::Look(ButtonLook look) {
    if (std::exchange(button_, look) != look) Changed();
}

void MessageBox(HWND /*owner*/, const std::string& text, const std::string& caption,
                std::uint32_t flags) {
    Window* const window = TheDesktop().window.get();
    if (!window) return TheHost().Report(caption, text);
    MessageBoxWindow(*window, {text, caption, (flags & MB_ICONERROR) != 0}).Run();
}

}  // namespace korvane
