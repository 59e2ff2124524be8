#include "platform/window/desktop.h"
#include "platform/window/modal_window.h"
#include "platform/window/window_scale.h"

namespace korvane {
namespace {

bool IsSystemKey(const HostEvent& event) {
    const bool altAlone = (event.modifiers & (kModAlt | kModControl)) == kModAlt;
    return altAlone || event.key == VK_MENU || event.key == VK_F10;
}

void OnKey(const HostEvent& event) {
    auto& heldAsPlainKey = TheDesktop().heldAsPlainKey;
    if (event.type == HostEventType::KeyDown) {
        const bool system = IsSystemKey(event);
        heldAsPlainKey[event.key] = !system;
        Enqueue(system ? WM_SYSKEYDOWN : WM_KEYDOWN, event.key, event.repeat ? kRepeatedKey : 0,
                event.modifiers);
        return;
    }
    // A press and its release are of one kind. Otherwise a key that is released while Alt happens
    // to be down would stay held for a program that follows WM_KEYUP.
    const bool system = !heldAsPlainKey[event.key] && IsSystemKey(event);
    heldAsPlainKey[event.key] = false;
    Enqueue(system ? WM_SYSKEYUP : WM_KEYUP, event.key, 0, event.modifiers);
}

void OnLeftButtonDown(const HostEvent& event) {
    POINT at{event.x, event.y - ShownMenuBarHeight()};
    // In full screen the client area still counts from inside a frame and below a menu bar.
    if (TheDesktop().fullScreen)
        at = {event.x - kWindowFrame, event.y - kWindowFrame - kMenuBarHeight};
    Enqueue(WM_LBUTTONDOWN, 0, static_cast<LPARAM>(MakeParam(at.x, at.y)));
}

void OnActivation(Window& window, bool active) {
    // The box or dialog that was alone in the window got or lost the keyboard, not the window.
    if (window.hiddenAgain) return;
    window.active = active;
    const int low = static_cast<int>(active ? WA_ACTIVE : WA_INACTIVE);
    SendMessage(&window, WM_ACTIVATE, MakeParam(low, !active && window.minimized), 0);
}

void OnResized(Window& window) {
    ResetMenuBar();
    const RECT client = GetClientRect(&window);
    TheDesktop().picture.Expose({0, 0, client.right, client.bottom + ShownMenuBarHeight()});
    SendMessage(&window, WM_SIZE, SIZE_RESTORED,
                static_cast<LPARAM>(MakeParam(client.right, client.bottom)));
}

void OnMoved(Window& window) {
    const POINT origin = ClientToScreen(&window, {0, 0});
    SendMessage(&window, WM_MOVE, 0, static_cast<LPARAM>(MakeParam(origin.x, origin.y)));
}

void OnHostEvent(Window& window, const HostEvent& event) {
    switch (event.type) {
        case HostEventType::KeyDown:
        case HostEventType::KeyUp:
            return OnKey(event);
        case HostEventType::LeftButtonDown:
            return OnLeftButtonDown(event);
        case HostEventType::Activated:
        case HostEventType::Deactivated:
            return OnActivation(window, event.type == HostEventType::Activated);
        case HostEventType::Minimized:
            window.minimized = true;
            SendMessage(&window, WM_SIZE, SIZE_MINIMIZED, 0);
            return;
        case HostEventType::Restored:
            window.minimized = false;
            return OnResized(window);
        case HostEventType::Resized:
            // A size that is reported late must not restore a minimized window.
            if (!window.minimized) OnResized(window);
            return;
        case HostEventType::Moved:
            return OnMoved(window);
        case HostEventType::EdgeDragged:
            return OnEdgeDragged(event);
        case HostEventType::CloseRequested:
            return Enqueue(WM_SYSCOMMAND, SC_CLOSE, 0);
        case HostEventType::Terminate:
            return Enqueue(WM_CLOSE, 0, 0);
        case HostEventType::SoundFound:
            return Enqueue(WM_DEVICECHANGE, DBT_DEVICEARRIVAL, 0);
        case HostEventType::MouseMove:
        case HostEventType::LeftButtonUp:
        case HostEventType::Wheel:
        case HostEventType::Text:
            return;
    }
}

}  // namespace

void TakeHostEvents() {
    Desktop& desktop = TheDesktop();
    HostEvent event;
    // Events after a dialog's end are not meant for the dialog.
    const auto mayTake = [&] {
        return desktop.queue.empty() && (!desktop.modal || desktop.modal->IsOpen());
    };
    while (mayTake() && TheHost().NextEvent(event)) {
        if (!desktop.window) continue;
        const bool taken =
            desktop.modal ? desktop.modal->Takes(event) : desktop.menuBar.Takes(event);
        if (!taken) OnHostEvent(*desktop.window, event);
    }
    if (!desktop.window) return;
    RefreshMenu();
    if (desktop.modal) desktop.modal->Refresh();
    if (desktop.window->shown || desktop.modal) desktop.picture.Update();
}

}  // namespace korvane
