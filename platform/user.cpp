#include "platform/user.h"

#include <algorithm>
#include <bitset>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "platform/full_screen.h"
#include "platform/host.h"
#include "platform/kernel.h"

namespace korvane {

struct Window {
    WNDPROC procedure = nullptr;
    std::uint32_t style = 0;
    std::uint32_t exStyle = 0;
    bool minimized = false;
};

namespace {

// The classic desktop's measures; the real frame belongs to the window manager.
constexpr int kFrame = 4;
constexpr int kCaption = 19;
constexpr int kMenuBar = 19;

struct Timer {
    WPARAM id = 0;
    std::uint32_t period = 0;
    std::uint32_t start = 0;
};

struct QueuedMessage {
    MSG message;
    std::uint8_t modifiers = 0;  ///< held when the key was pressed
};

/// Everything that the window system of this one-window program remembers.
struct Desktop {
    std::vector<WNDCLASS> classes;
    std::unique_ptr<Window> window;
    std::deque<QueuedMessage> queue;
    std::vector<Timer> timers;
    std::optional<int> quitCode;
    std::uint8_t modifiers = 0;       ///< as of the last message taken
    std::bitset<256> heldAsPlainKey;  ///< keys whose press went out as WM_KEYDOWN
    bool fullScreen = false;
};

Desktop& TheDesktop() {
    static Desktop desktop;
    return desktop;
}

void Enqueue(std::uint32_t message, WPARAM wParam, LPARAM lParam, std::uint8_t modifiers = 0) {
    Desktop& desktop = TheDesktop();
    desktop.queue.push_back({{desktop.window.get(), message, wParam, lParam}, modifiers});
}

// What comes in from the host. -------------------------------------------------------------------

bool IsSystemKey(const HostEvent& event) {
    const bool altAlone = (event.modifiers & (kModAlt | kModControl)) == kModAlt;
    return altAlone || event.key == VK_MENU || event.key == VK_F10;
}

void OnKey(const HostEvent& event) {
    constexpr LPARAM kRepeated = LPARAM{1} << 30;
    auto& heldAsPlainKey = TheDesktop().heldAsPlainKey;
    if (event.type == HostEventType::KeyDown) {
        const bool system = IsSystemKey(event);
        heldAsPlainKey[event.key] = !system;
        Enqueue(system ? WM_SYSKEYDOWN : WM_KEYDOWN, event.key, event.repeat ? kRepeated : 0,
                event.modifiers);
        return;
    }
    // A press and its release go out as a pair: a key let go while Alt happens to be down would
    // otherwise stay held for a program that follows WM_KEYUP.
    const bool system = !heldAsPlainKey[event.key] && IsSystemKey(event);
    heldAsPlainKey[event.key] = false;
    Enqueue(system ? WM_SYSKEYUP : WM_KEYUP, event.key, 0, event.modifiers);
}

void OnLeftButtonDown(const HostEvent& event) {
    POINT at{event.x, event.y};
    // In full screen the client area still counts from inside a frame and below a menu bar.
    if (TheDesktop().fullScreen) at = {at.x - kFrame, at.y - kFrame - kMenuBar};
    Enqueue(WM_LBUTTONDOWN, 0, static_cast<LPARAM>(MakeParam(at.x, at.y)));
}

void OnHostEvent(const HostEvent& event) {
    const HWND window = TheDesktop().window.get();
    if (!window) return;
    switch (event.type) {
        case HostEventType::KeyDown:
        case HostEventType::KeyUp:
            OnKey(event);
            break;
        case HostEventType::LeftButtonDown:
            OnLeftButtonDown(event);
            break;
        case HostEventType::Activated:
            SendMessage(window, WM_ACTIVATE, WA_ACTIVE, 0);
            break;
        case HostEventType::Deactivated:
            SendMessage(window, WM_ACTIVATE, MakeParam(WA_INACTIVE, window->minimized), 0);
            break;
        case HostEventType::Minimized:
            window->minimized = true;
            SendMessage(window, WM_SIZE, SIZE_MINIMIZED, 0);
            break;
        case HostEventType::Restored:
            window->minimized = false;
            [[fallthrough]];
        case HostEventType::Resized: {
            const RECT client = GetClientRect(window);
            SendMessage(window, WM_SIZE, SIZE_RESTORED,
                        static_cast<LPARAM>(MakeParam(client.right, client.bottom)));
            break;
        }
        case HostEventType::Moved: {
            const POINT origin = ClientToScreen(window, {0, 0});
            SendMessage(window, WM_MOVE, 0, static_cast<LPARAM>(MakeParam(origin.x, origin.y)));
            break;
        }
        case HostEventType::CloseRequested:
            Enqueue(WM_SYSCOMMAND, SC_CLOSE, 0);
            break;
        case HostEventType::Terminate:
            Enqueue(WM_CLOSE, 0, 0);
            break;
        case HostEventType::MouseMove:
        case HostEventType::LeftButtonUp:
        case HostEventType::Wheel:
            break;
    }
}

void TakeHostEvents() {
    HostEvent event;
    while (TheHost().NextEvent(event))
        OnHostEvent(event);
}

// The queue. -------------------------------------------------------------------------------------

/// Milliseconds until the next timer is due; nothing when no timer runs.
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

// Sizes. -----------------------------------------------------------------------------------------

/// What frame and caption add on each side of a client area.
RECT FrameOf(std::uint32_t style) {
    RECT frame;
    if (style & WS_THICKFRAME) frame = {kFrame, kFrame, kFrame, kFrame};
    if ((style & WS_CAPTION) == WS_CAPTION) frame.top += kCaption;
    return frame;
}

SIZE ClientSizeOf(std::uint32_t style, SIZE outer) {
    const RECT frame = FrameOf(style);
    return {std::max(1, outer.cx - frame.left - frame.right),
            std::max(1, outer.cy - frame.top - frame.bottom)};
}

SIZE WithinTrackSizes(HWND window, SIZE outer) {
    MINMAXINFO limits{{1, 1}, {INT16_MAX, INT16_MAX}};
    SendMessage(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    return {std::clamp(outer.cx, limits.minTrackSize.cx, limits.maxTrackSize.cx),
            std::clamp(outer.cy, limits.minTrackSize.cy, limits.maxTrackSize.cy)};
}

}  // namespace

void NoteFullScreen(bool fullScreen) {
    TheDesktop().fullScreen = fullScreen;
}

// Windows. ---------------------------------------------------------------------------------------

bool RegisterClass(const WNDCLASS& windowClass) {
    if (windowClass.className.empty() || !windowClass.procedure) return false;
    TheDesktop().classes.push_back(windowClass);
    return true;
}

HWND CreateWindowEx(std::uint32_t exStyle, const std::string& className, const std::string& title,
                    std::uint32_t style, POINT position, SIZE size) {
    Desktop& desktop = TheDesktop();
    const auto known = std::find_if(desktop.classes.begin(), desktop.classes.end(),
                                    [&](const WNDCLASS& c) { return c.className == className; });
    if (known == desktop.classes.end() || desktop.window) return nullptr;
    desktop.window = std::make_unique<Window>(Window{known->procedure, style, exStyle});
    const HWND window = desktop.window.get();
    const SIZE outer = WithinTrackSizes(window, size);
    if (!TheHost().OpenWindow(title, ClientSizeOf(style, outer))) {
        desktop.window.reset();
        return nullptr;
    }
    if (position.x != CW_USEDEFAULT) SetWindowPos(window, position, {}, SWP_NOSIZE);
    return window;
}

bool DestroyWindow(HWND window) {
    Desktop& desktop = TheDesktop();
    if (!window || window != desktop.window.get()) return false;
    SendMessage(window, WM_DESTROY, 0, 0);
    desktop.queue.clear();
    desktop.timers.clear();
    desktop.window.reset();
    TheHost().CloseWindow();
    return true;
}

void ShowWindow(HWND window) {
    if (!window) return;
    TheHost().ShowWindow(true);
    const RECT client = GetClientRect(window);
    SendMessage(window, WM_SIZE, SIZE_RESTORED,
                static_cast<LPARAM>(MakeParam(client.right, client.bottom)));
}

std::uint32_t GetWindowLong(HWND window, int index) {
    if (!window) return 0;
    return index == GWL_STYLE ? window->style : index == GWL_EXSTYLE ? window->exStyle : 0;
}

void SetWindowLong(HWND window, int index, std::uint32_t value) {
    if (!window) return;
    if (index == GWL_STYLE) window->style = value;
    if (index == GWL_EXSTYLE) window->exStyle = value;
}

void SetWindowPos(HWND window, POINT position, SIZE size, std::uint32_t flags) {
    if (!window) return;
    const RECT frame = FrameOf(window->style);
    if (!(flags & SWP_NOSIZE)) TheHost().SetClientSize(ClientSizeOf(window->style, size));
    if (!(flags & SWP_NOMOVE))
        TheHost().SetClientOrigin({position.x + frame.left, position.y + frame.top});
}

RECT GetWindowRect(HWND window) {
    if (!window) return {};
    const RECT client = TheHost().ClientArea();
    const RECT frame = FrameOf(window->style);
    return {client.left - frame.left, client.top - frame.top, client.right + frame.right,
            client.bottom + frame.bottom};
}

RECT GetClientRect(HWND window) {
    if (!window) return {};
    const RECT client = TheHost().ClientArea();
    return {0, 0, client.Width(), client.Height()};
}

POINT ClientToScreen(HWND window, POINT point) {
    if (!window) return point;
    const RECT client = TheHost().ClientArea();
    return {client.left + point.x, client.top + point.y};
}

RECT AdjustWindowRectEx(const RECT& client, std::uint32_t style, bool menu,
                        std::uint32_t /*exStyle*/) {
    const RECT frame = FrameOf(style);
    return {client.left - frame.left, client.top - frame.top - (menu ? kMenuBar : 0),
            client.right + frame.right, client.bottom + frame.bottom};
}

int GetSystemMetrics(int metric) {
    switch (metric) {
        case SM_CXSCREEN:
            return TheHost().ScreenSize().cx;
        case SM_CYSCREEN:
            return TheHost().ScreenSize().cy;
        case SM_CYCAPTION:
            return kCaption;
        case SM_CYMENU:
            return kMenuBar;
        case SM_CXFRAME:
        case SM_CYFRAME:
            return kFrame;
        default:
            return 0;
    }
}

bool SystemParametersInfoA(std::uint32_t action, RECT& workArea) {
    if (action != SPI_GETWORKAREA) return false;
    workArea = TheHost().WorkArea();
    return true;
}

// Messages. --------------------------------------------------------------------------------------

bool PeekMessage(MSG& message, PeekMode mode) {
    TakeHostEvents();
    return FindMessage(message, mode);
}

bool GetMessage(MSG& message) {
    while (!PeekMessage(message, PM_REMOVE))
        TheHost().WaitForEvent(TimeToNextTimer());
    return message.message != WM_QUIT;
}

void WaitMessage() {
    MSG waiting;
    if (!PeekMessage(waiting, PM_NOREMOVE)) TheHost().WaitForEvent(TimeToNextTimer());
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
            if (wParam == SC_MINIMIZE) TheHost().MinimizeWindow();
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

// Accelerators. ----------------------------------------------------------------------------------

bool TranslateAccelerator(HWND window, std::span<const ACCEL> table, const MSG& message) {
    static_assert(FSHIFT == int{kModShift} && FCONTROL == int{kModControl} && FALT == int{kModAlt});
    if (!window || (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN))
        return false;
    const std::uint8_t held = TheDesktop().modifiers;
    for (const ACCEL& entry : table) {
        if (entry.key != message.wParam || entry.modifiers != held) continue;
        SendMessage(window, WM_COMMAND, MakeParam(entry.command, 1), 0);
        return true;
    }
    return false;
}

// Message boxes. ---------------------------------------------------------------------------------

void MessageBox(HWND /*owner*/, const std::string& text, const std::string& caption,
                std::uint32_t /*flags*/) {
    TheHost().Report(caption, text);
}

}  // namespace korvane
