#include "platform/window/user.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "platform/host/host.h"
#include "platform/window/desktop.h"
#include "platform/window/window_scale.h"

namespace korvane {
namespace {

/// What frame and caption add on each side of a client area.
RECT FrameOf(std::uint32_t style) {
    RECT frame;
    if (style & WS_THICKFRAME) frame = {kWindowFrame, kWindowFrame, kWindowFrame, kWindowFrame};
    if ((style & WS_CAPTION) == WS_CAPTION) frame.top += kWindowCaption;
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

void ShowIcon(std::span<const std::uint32_t> square) {
    const int side = static_cast<int>(std::lround(std::sqrt(square.size())));
    TheHost().SetIcon({square.data(), side, side, side});
}

}  // namespace

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
    desktop.window = std::make_unique<Window>();
    const HWND window = desktop.window.get();
    window->procedure = known->procedure;
    window->style = style;
    window->exStyle = exStyle;
    window->title = title;
    window->icon = known->icon;
    if (!known->menu.empty()) window->menu = LoadMenu(known->menu);
    const SIZE outer = WithinTrackSizes(window, size);
    if (!TheHost().OpenWindow(title, ClientSizeOf(style, outer))) {
        desktop.window.reset();
        return nullptr;
    }
    ChooseWindowScale(desktop.chosenScale);
    ResetMenuBar();
    if (!known->icon.empty()) ShowIcon(known->icon);
    if (position.x != CW_USEDEFAULT) SetWindowPos(window, position, {}, SWP_NOSIZE);
    return window;
}

bool DestroyWindow(HWND window) {
    Desktop& desktop = TheDesktop();
    if (!window || window != desktop.window.get()) return false;
    if (desktop.modal) {
        // The code that opened the box or dialog still uses the window, so that must close first.
        PostMessage(window, WM_CLOSE, 0, 0);
        return true;
    }
    SendMessage(window, WM_DESTROY, 0, 0);
    desktop.queue.clear();
    desktop.timers.clear();
    desktop.window.reset();
    desktop.heldAsPlainKey.reset();
    desktop.chosenScale.reset();
    ResetMenuBar();
    desktop.picture = {};
    TheHost().CloseWindow();
    return true;
}

void ShowWindow(HWND window) {
    if (!window) return;
    TheHost().ShowWindow(true);
    window->shown = true;
    window->hiddenAgain = false;
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
    return {0, 0, client.Width(), client.Height() - ShownMenuBarHeight()};
}

POINT ClientToScreen(HWND window, POINT point) {
    if (!window) return point;
    const RECT client = TheHost().ClientArea();
    return {client.left + point.x, client.top + ShownMenuBarHeight() + point.y};
}

RECT AdjustWindowRectEx(const RECT& client, std::uint32_t style, bool menu,
                        std::uint32_t /*exStyle*/) {
    const RECT frame = FrameOf(style);
    return {client.left - frame.left, client.top - frame.top - (menu ? kMenuBarHeight : 0),
            client.right + frame.right, client.bottom + frame.bottom};
}

int GetSystemMetrics(int metric) {
    switch (metric) {
        case SM_CXSCREEN:
            return TheHost().ScreenSize().cx;
        case SM_CYSCREEN:
            return TheHost().ScreenSize().cy;
        case SM_CYCAPTION:
            return kWindowCaption;
        case SM_CYMENU:
            return kMenuBarHeight;
        case SM_CXFRAME:
        case SM_CYFRAME:
            return kWindowFrame;
        default:
            return 0;
    }
}

bool SystemParametersInfoA(std::uint32_t action, RECT& workArea) {
    if (action != SPI_GETWORKAREA) return false;
    workArea = TheHost().WorkArea();
    return true;
}

}  // namespace korvane
