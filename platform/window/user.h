#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/base/types.h"
#include "platform/window/menu.h"
#include "platform/window/messages.h"

namespace korvane {

inline constexpr std::uint32_t WS_POPUP = 0x80000000;
inline constexpr std::uint32_t WS_CAPTION = 0x00C00000;
inline constexpr std::uint32_t WS_SYSMENU = 0x00080000;
inline constexpr std::uint32_t WS_THICKFRAME = 0x00040000;
inline constexpr std::uint32_t WS_MINIMIZEBOX = 0x00020000;

inline constexpr int GWL_STYLE = -16;
inline constexpr int GWL_EXSTYLE = -20;

inline constexpr std::int32_t CW_USEDEFAULT = INT32_MIN;
inline constexpr std::uint32_t SWP_NOSIZE = 0x0001;
inline constexpr std::uint32_t SWP_NOMOVE = 0x0002;
inline constexpr std::uint32_t SWP_NOZORDER = 0x0004;
inline constexpr std::uint32_t SWP_NOACTIVATE = 0x0010;

/// What a window class gives the windows made of it.
struct WNDCLASS {
    std::string className;
    WNDPROC procedure = nullptr;
    MENUTEMPLATE menu = {};                    ///< empty: none
    std::span<const std::uint32_t> icon = {};  ///< a square of 0xAARRGGBB pixels; empty: none
};

/// Makes a class known by its name; false without a name or a procedure.
bool RegisterClass(const WNDCLASS& windowClass);

/// Makes the one main window, hidden. `position` (CW_USEDEFAULT: the desktop chooses) and `size`
/// are those of the outer window with frame, caption and menu bar, in pixels. Null when the class
/// is unknown, a window exists already or there is no display.
HWND CreateWindowEx(std::uint32_t exStyle, const std::string& className, const std::string& title,
                    std::uint32_t style, POINT position, SIZE size);
/// Sends WM_DESTROY, then closes the window and drops its timers and waiting messages.
bool DestroyWindow(HWND window);
/// Shows the window and tells it its size (WM_SIZE).
void ShowWindow(HWND window);

std::uint32_t GetWindowLong(HWND window, int index);
void SetWindowLong(HWND window, int index, std::uint32_t value);
/// Places and sizes the outer window, as far as the SWP_ flags let it.
void SetWindowPos(HWND window, POINT position, SIZE size, std::uint32_t flags);
RECT GetWindowRect(HWND window);
/// The client area below the menu bar, with its corner at 0, 0.
RECT GetClientRect(HWND window);
POINT ClientToScreen(HWND window, POINT point);
/// The outer rectangle of a window of this style with this client rectangle.
RECT AdjustWindowRectEx(const RECT& client, std::uint32_t style, bool menu, std::uint32_t exStyle);

enum SystemMetric : int {
    SM_CXSCREEN = 0,
    SM_CYSCREEN = 1,
    SM_CYCAPTION = 4,
    SM_CYMENU = 15,
    SM_CXFRAME = 32,
    SM_CYFRAME = 33,
};

/// A size of the desktop in pixels; 0 for an unknown metric.
int GetSystemMetrics(int metric);

inline constexpr std::uint32_t SPI_GETWORKAREA = 48;

/// The screen without panels; false for anything but SPI_GETWORKAREA.
bool SystemParametersInfoA(std::uint32_t action, RECT& workArea);

}  // namespace korvane
