#include <algorithm>

#include "platform/host/kernel.h"
#include "platform/window/desktop.h"

namespace korvane {
namespace {

bool FindDueTimer(MSG& message, PeekMode mode) {
    Desktop& desktop = TheDesktop();
    const std::uint32_t now = GetTickCount();
    for (Timer& timer : desktop.timers) {
        if (now - timer.start < timer.period) continue;
        if (mode == PM_REMOVE) timer.start = now;
        message = {desktop.window.get(), WM_TIMER, timer.id, 0};
        return true;
    }
    return false;
}

bool FindMessage(MSG& message, PeekMode mode) {
    Desktop& desktop = TheDesktop();
    if (!desktop.queue.empty()) {
        message = desktop.queue.front().message;
        if (mode == PM_REMOVE) {
            desktop.modifiers = desktop.queue.front().modifiers;
            desktop.queue.pop_front();
        }
        return true;
    }
    if (desktop.quitCode) {
        message = {nullptr, WM_QUIT, static_cast<WPARAM>(*desktop.quitCode), 0};
        if (mode == PM_REMOVE) desktop.quitCode.reset();
        return true;
    }
    return FindDueTimer(message, mode);
}

}  // namespace

void Enqueue(std::uint32_t message, WPARAM wParam, LPARAM lParam, std::uint8_t modifiers) {
    Desktop& desktop = TheDesktop();
    desktop.queue.push_back({{desktop.window.get(), message, wParam, lParam}, modifiers});
}

bool IsEndWaiting() {
    // Takes no host events: they may be meant for a box or dialog that opens next.
    MSG waiting;
    if (!FindMessage(waiting, PM_NOREMOVE)) return false;
    return waiting.message == WM_QUIT || waiting.message == WM_CLOSE ||
           (waiting.message == WM_SYSCOMMAND && waiting.wParam == SC_CLOSE);
}

std::optional<std::uint32_t> TimeToNextTimer() {
    std::optional<std::uint32_t> least;
    const std::uint32_t now = GetTickCount();
    for (const Timer& timer : TheDesktop().timers) {
        const std::uint32_t passed = now - timer.start;
        const std::uint32_t left = passed < timer.period ? timer.period - passed : 0;
        if (!least || left < *least) least = left;
    }
    return least;
}

bool PeekMessage(MSG& message, PeekMode mode) {
    // The one place where host events are taken.
    if (TheDesktop().queue.empty()) TakeHostEvents();
    return FindMessage(message, mode);
}

bool GetMessage(MSG& message) {
    while (!PeekMessage(message, PM_REMOVE))
        TheHost().WaitForEvent(TimeToNextTimer());
    return message.message != WM_QUIT;
}

void WaitMessage() {
    // Takes no host events: the host would then wait for another one.
    MSG waiting;
    if (!FindMessage(waiting, PM_NOREMOVE)) TheHost().WaitForEvent(TimeToNextTimer());
}

bool GetKeyState(std::uint8_t key) {
    const std::uint8_t modifier = key == VK_SHIFT     ? kModShift
                                  : key == VK_CONTROL ? kModControl
                                  : key == VK_MENU    ? kModAlt
                                                      : 0;
    return (TheDesktop().modifiers & modifier) != 0;
}

LRESULT DispatchMessage(const MSG& message) {
    return SendMessage(message.window, message.message, message.wParam, message.lParam);
}

LRESULT SendMessage(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam) {
    if (!window || window != TheDesktop().window.get()) return 0;
    return window->procedure(window, message, wParam, lParam);
}

void PostMessage(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam) {
    if (window && window == TheDesktop().window.get()) Enqueue(message, wParam, lParam);
}

void PostQuitMessage(int exitCode) {
    TheDesktop().quitCode = exitCode;
}

LRESULT DefWindowProc(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CLOSE:
            DestroyWindow(window);
            break;
        case WM_SYSKEYDOWN:
            if (wParam == VK_F4) PostMessage(window, WM_SYSCOMMAND, SC_CLOSE, lParam);
            break;
        case WM_SYSCOMMAND:
            if (wParam == SC_CLOSE) SendMessage(window, WM_CLOSE, 0, 0);
            break;
        default:
            break;
    }
    return 0;
}

void SetTimer(HWND window, WPARAM id, std::uint32_t milliseconds) {
    if (!window) return;
    KillTimer(window, id);
    TheDesktop().timers.push_back({id, milliseconds, GetTickCount()});
}

void KillTimer(HWND /*window*/, WPARAM id) {
    std::erase_if(TheDesktop().timers, [id](const Timer& timer) { return timer.id == id; });
}

}  // namespace korvane
