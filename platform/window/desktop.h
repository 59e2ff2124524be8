#pragma once

#include <bitset>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/host/host.h"
#include "platform/window/menu.h"
#include "platform/window/menu_layout.h"
#include "platform/window/user.h"

namespace korvane {

// What the files of the window side share with each other; no program includes this.

// The classic desktop's measures; the real frame belongs to the window manager.
inline constexpr int kWindowFrame = 4;
inline constexpr int kWindowCaption = 19;

/// In the lParam of a key's message: it comes from the keyboard's automatic repeat.
inline constexpr LPARAM kRepeatedKey = LPARAM{1} << 30;

struct Window {
    WNDPROC procedure = nullptr;
    std::uint32_t style = 0;
    std::uint32_t exStyle = 0;
    std::string title;
    std::span<const std::uint32_t> icon;  ///< of its class
    std::unique_ptr<Menu> menu;
    bool shown = false;
    bool hiddenAgain = false;  ///< was seen as a box or dialog alone, and has not been shown since
    bool minimized = false;
    bool active = false;  ///< has the keyboard, by itself or through a box or dialog
};

struct Timer {
    WPARAM id = 0;
    std::uint32_t period = 0;
    std::uint32_t start = 0;
};

struct QueuedMessage {
    MSG message;
    std::uint8_t modifiers = 0;  ///< held when the key was pressed
};

class ModalWindow;

/// Everything that the window system of this one-window program remembers.
struct Desktop {
    std::vector<WNDCLASS> classes;
    std::unique_ptr<Window> window;
    std::deque<QueuedMessage> queue;
    std::vector<Timer> timers;
    std::optional<int> quitCode;
    std::uint8_t modifiers = 0;       ///< as of the last message taken
    std::bitset<256> heldAsPlainKey;  ///< keys whose press went out as WM_KEYDOWN
    std::optional<SIZE> fullScreen;   ///< size of the picture shown in full screen
    ModalWindow* modal = nullptr;     ///< the one that has keys and mouse now
};

Desktop& TheDesktop();

/// Adds a message for the window to the end of the queue.
void Enqueue(std::uint32_t message, WPARAM wParam, LPARAM lParam, std::uint8_t modifiers = 0);

/// Turns what has happened outside into messages and changes of the window, until a message waits
/// or nothing more has happened. One at a time, so that whoever handles a message sees menu and
/// window as they were when it came.
void TakeHostEvents();

/// The next message ends the program: no box or dialog handles it or stays for anything else.
bool EndWaits();

/// Milliseconds until the next timer is due; nothing when no timer runs.
std::optional<std::uint32_t> TimeToNextTimer();

/// The height of the window's menu bar as it is shown now; 0 without one.
int ShownMenuBarHeight();

// The menu in use (window_menu.cpp).
/// True when the event is the menu's.
bool MenuTakes(const HostEvent& event);
/// Lays the window's menu out anew: it, the client area or the way of showing has changed.
void ResetMenuBar();
/// Hands changes of the bar and the open popup to the shown picture.
void RefreshMenu();

}  // namespace korvane
