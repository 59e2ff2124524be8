#include "platform/message_box.h"

#include <algorithm>
#include <utility>

#include "platform/desktop.h"
#include "platform/shown_picture.h"

namespace korvane {
namespace {

/// Where the box may lie: the game's picture.
RECT PictureArea() {
    if (const auto& fullScreen = TheDesktop().fullScreen)
        return {0, 0, fullScreen->cx, fullScreen->cy};
    const RECT client = TheHost().ClientArea();
    return {0, ShownMenuBarHeight(), client.Width(), client.Height()};
}

/// The program will not see the releases of the keys that are held now, so it gets them at once.
void ReleaseHeldKeys() {
    auto& held = TheDesktop().heldAsPlainKey;
    for (std::size_t key = 0; key < held.size(); ++key)
        if (held[key]) Enqueue(WM_KEYUP, key, 0);
    held.reset();
}

/// True for what ends the program, and so must not be handled inside a box.
bool EndsProgram(const MSG& message) {
    return message.message == WM_QUIT || message.message == WM_CLOSE ||
           (message.message == WM_SYSCOMMAND && message.wParam == SC_CLOSE);
}

}  // namespace

MessageBoxWindow::MessageBoxWindow(Window& window, BoxText text)
    : window_(window), text_(std::move(text)), alone_(!window.shown && !TheDesktop().fullScreen) {}

void MessageBoxWindow::Run() {
    Desktop& desktop = TheDesktop();
    MessageBoxWindow* const outer = std::exchange(desktop.box, this);
    if (!outer && window_.active) SendMessage(&window_, WM_ACTIVATE, WA_INACTIVE, 0);
    ReleaseHeldKeys();
    Open();
    RunLoop();
    desktop.box = outer;
    if (desktop.window.get() != &window_) return;  // destroyed while the box was open
    Leave();
    if (outer) return outer->Show();
    if (window_.active) SendMessage(&window_, WM_ACTIVATE, WA_ACTIVE, 0);
}

void MessageBoxWindow::Open() {
    if (alone_) {
        const RECT client = TheHost().ClientArea();
        sizeBefore_ = {client.Width(), client.Height()};
        LayOut();
        TheHost().SetTitle(text_.caption);
        TheHost().SetClientSize(face_.size);
    }
    ResetMenuBar();  // closes what is open; a box that is alone has no bar
    LayOut();
    Show();
    if (!window_.shown) TheHost().ShowWindow(true);
}

void MessageBoxWindow::RunLoop() {
    while (open_) {
        MSG message;
        const bool waits = PeekMessage(message, PM_NOREMOVE);
        if (!open_ || (waits && EndsProgram(message))) return;
        if (!waits) {
            TheHost().WaitForEvent(TimeToNextTimer());
        } else if (PeekMessage(message, PM_REMOVE)) {
            DispatchMessage(message);
        }
    }
}

void MessageBoxWindow::Leave() {
    if (!window_.shown) TheHost().ShowWindow(false);
    if (alone_) {
        window_.hiddenAgain = true;
        TheHost().SetTitle(window_.title);
        TheHost().SetClientSize(sizeBefore_);
    }
    TheShownPicture().Remove(Overlay::Box);
    ResetMenuBar();
    RefreshMenu();
    if (window_.shown) TheShownPicture().Update();
}

bool MessageBoxWindow::Takes(const HostEvent& event) {
    switch (event.type) {
        case HostEventType::KeyDown:
            OnKeyDown(event);
            return true;
        case HostEventType::MouseMove:
        case HostEventType::LeftButtonDown:
        case HostEventType::LeftButtonUp:
            OnPointer(event);
            return true;
        case HostEventType::KeyUp:
        case HostEventType::Wheel:
            return true;
        case HostEventType::Activated:
        case HostEventType::Deactivated:
            window_.active = window_.shown && event.type == HostEventType::Activated;
            return true;
        case HostEventType::Resized:
        case HostEventType::Restored:
            LayOut();
            Show();
            TheShownPicture().Expose({0, 0, face_.size.cx, face_.size.cy});
            return alone_;
        case HostEventType::CloseRequested:
            // The close box of a box that is alone is its own.
            Close();
            return alone_;
        case HostEventType::Minimized:
        case HostEventType::Moved:
            return alone_;
        case HostEventType::Terminate:
            Close();
            return false;
    }
    return false;
}

void MessageBoxWindow::OnKeyDown(const HostEvent& event) {
    if (event.repeat) return;
    const bool answers = event.key == VK_RETURN || event.key == VK_SPACE ||
                         event.key == VK_ESCAPE ||
                         (event.key == VK_F4 && event.modifiers == kModAlt);
    if (answers) Close();
}

void MessageBoxWindow::OnPointer(const HostEvent& event) {
    const POINT at{event.x - corner_.x, event.y - corner_.y};
    const RECT& button = face_.button;
    const bool inside =
        at.x >= button.left && at.x < button.right && at.y >= button.top && at.y < button.bottom;
    if (event.type == HostEventType::LeftButtonDown) pressed_ = inside;
    if (event.type == HostEventType::LeftButtonUp && std::exchange(pressed_, false) && inside)
        Close();
    const ButtonLook look = pressed_ && inside ? ButtonLook::Down : ButtonLook::Up;
    if (std::exchange(button_, look) != look) Show();
}

void MessageBoxWindow::LayOut() {
    scale_ = TheDesktop().fullScreen ? 1 : TheHost().Scale();
    if (alone_) {
        const RECT workArea = TheHost().WorkArea();
        face_ = LayOutBox(text_, BoxFrame::Desktop, {workArea.Width(), workArea.Height()}, scale_);
        corner_ = {0, 0};
        return;
    }
    const RECT area = PictureArea();
    face_ = LayOutBox(text_, BoxFrame::Own, {area.Width(), area.Height()}, scale_);
    corner_ = {std::max(area.left, area.left + (area.Width() - face_.size.cx) / 2),
               std::max(area.top, area.top + (area.Height() - face_.size.cy) / 2)};
}

void MessageBoxWindow::Show() {
    TheShownPicture().Put(Overlay::Box, PaintBox(text_, face_, button_, scale_), corner_);
}

void MessageBox(HWND /*owner*/, const std::string& text, const std::string& caption,
                std::uint32_t flags) {
    Window* const window = TheDesktop().window.get();
    if (!window) return TheHost().Report(caption, text);
    MessageBoxWindow(*window, {text, caption, (flags & MB_ICONERROR) != 0}).Run();
}

}  // namespace korvane
