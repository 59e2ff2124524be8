#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/base/types.h"
#include "platform/base/virtual_keys.h"
#include "platform/window/menu.h"

namespace korvane {

// Windows. ---------------------------------------------------------------------------------------

using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using WNDPROC = LRESULT (*)(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);

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

/// Makes the one main window, hidden: outer position (CW_USEDEFAULT: the desktop chooses) and outer
/// size with frame, caption and menu bar, in pixels. Null when the class is unknown, a window
/// exists already or the machine has no display.
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

// Metrics. ---------------------------------------------------------------------------------------

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

// Messages. --------------------------------------------------------------------------------------

enum WindowMessage : std::uint32_t {
    WM_DESTROY = 0x0002,
    WM_MOVE = 0x0003,
    WM_SIZE = 0x0005,
    WM_ACTIVATE = 0x0006,
    WM_CLOSE = 0x0010,
    WM_QUIT = 0x0012,
    WM_GETMINMAXINFO = 0x0024,
    WM_KEYDOWN = 0x0100,
    WM_KEYUP = 0x0101,
    WM_SYSKEYDOWN = 0x0104,
    WM_SYSKEYUP = 0x0105,
    WM_COMMAND = 0x0111,
    WM_SYSCOMMAND = 0x0112,
    WM_TIMER = 0x0113,
    WM_INITMENUPOPUP = 0x0117,  ///< the menu in wParam, the popup's index in lParam
    WM_LBUTTONDOWN = 0x0201,
};

inline constexpr WPARAM SIZE_RESTORED = 0;
inline constexpr WPARAM SIZE_MINIMIZED = 1;
inline constexpr WPARAM SIZE_MAXHIDE = 4;

inline constexpr WPARAM WA_INACTIVE = 0;
inline constexpr WPARAM WA_ACTIVE = 1;

inline constexpr WPARAM SC_SIZE = 0xF000;
inline constexpr WPARAM SC_MOVE = 0xF010;
inline constexpr WPARAM SC_MAXIMIZE = 0xF030;
inline constexpr WPARAM SC_CLOSE = 0xF060;
inline constexpr WPARAM SC_MONITORPOWER = 0xF170;

/// What WM_GETMINMAXINFO's lParam points to: limits of the outer window's size.
struct MINMAXINFO {
    SIZE minTrackSize;
    SIZE maxTrackSize;
};

struct MSG {
    HWND window = nullptr;
    std::uint32_t message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

constexpr std::uint16_t LOWORD(std::uintptr_t value) {
    return static_cast<std::uint16_t>(value & 0xFFFF);
}
constexpr std::uint16_t HIWORD(std::uintptr_t value) {
    return static_cast<std::uint16_t>((value >> 16) & 0xFFFF);
}
/// Two 16-bit halves in one parameter.
constexpr std::uintptr_t MakeParam(int low, int high) {
    return static_cast<std::uintptr_t>(static_cast<std::uint16_t>(low)) |
           static_cast<std::uintptr_t>(static_cast<std::uint16_t>(high)) << 16;
}

enum PeekMode : std::uint32_t { PM_NOREMOVE = 0, PM_REMOVE = 1 };

/// Looks for a waiting message, without waiting. Sent messages (activation, size, move) reach the
/// window procedure inside this call. Order: posted messages and input as they came, then WM_QUIT,
/// then timers.
bool PeekMessage(MSG& message, PeekMode mode);
/// Takes the next message, waiting for it; false for WM_QUIT.
bool GetMessage(MSG& message);
/// Returns when something new has come in; uses no processor time until then.
void WaitMessage();
LRESULT DispatchMessage(const MSG& message);
LRESULT SendMessage(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);
void PostMessage(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);
void PostQuitMessage(int exitCode);
LRESULT DefWindowProc(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);

/// Posts WM_TIMER with this id every so many milliseconds, while nothing else waits.
void SetTimer(HWND window, WPARAM id, std::uint32_t milliseconds);
void KillTimer(HWND window, WPARAM id);

// Accelerators. ----------------------------------------------------------------------------------

enum AcceleratorModifier : std::uint8_t { FSHIFT = 1, FCONTROL = 2, FALT = 4 };

/// One accelerator key: these modifiers (no other ones) and this virtual key give this command.
struct ACCEL {
    std::uint8_t modifiers;
    std::uint8_t key;
    std::uint16_t command;
};

/// Sends WM_COMMAND for a key press that the table lists; true when the table lists it. The
/// modifiers are those held when the message's key was pressed. A command that stands in the
/// window's menu goes by the menu: WM_INITMENUPOPUP is sent first, and a command that is greyed
/// then is not delivered.
bool TranslateAccelerator(HWND window, std::span<const ACCEL> table, const MSG& message);

// Message boxes. ---------------------------------------------------------------------------------

inline constexpr std::uint32_t MB_OK = 0x00;
inline constexpr std::uint32_t MB_ICONERROR = 0x10;

/// Tells the user something over the window's picture and returns when it has been read. The owner
/// is deactivated meanwhile. Messages go on to the window, keys and mouse do not; whoever asks the
/// program to end ends the box, too. A window that was never shown is shown as the box alone.
void MessageBox(HWND owner, const std::string& text, const std::string& caption,
                std::uint32_t flags);

}  // namespace korvane
