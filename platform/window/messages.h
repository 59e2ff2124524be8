#pragma once

#include <cstdint>

#include "platform/base/types.h"
#include "platform/base/virtual_keys.h"

namespace korvane {

using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using WNDPROC = LRESULT (*)(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);

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
    WM_ENTERMENULOOP = 0x0211,  ///< the window menu takes the keyboard
    WM_DEVICECHANGE = 0x0219,
};

/// wParam of WM_DEVICECHANGE: there is a sound device now, after BASS_Init has found none.
inline constexpr WPARAM DBT_DEVICEARRIVAL = 0x8000;

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
/// Set in the lParam of a key's message that comes from the keyboard's automatic repeat.
inline constexpr LPARAM kRepeatedKey = LPARAM{1} << 30;

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
/// Blocks until a message or something new from outside waits.
void WaitMessage();
LRESULT DispatchMessage(const MSG& message);
/// Whether VK_SHIFT, VK_CONTROL or VK_MENU was held when the last message taken came about. False
/// for any other key.
bool GetKeyState(std::uint8_t key);
LRESULT SendMessage(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);
void PostMessage(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);
void PostQuitMessage(int exitCode);
LRESULT DefWindowProc(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);

/// Posts WM_TIMER with this id every so many milliseconds, while nothing else waits.
void SetTimer(HWND window, WPARAM id, std::uint32_t milliseconds);
void KillTimer(HWND window, WPARAM id);

}  // namespace korvane
