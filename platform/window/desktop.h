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
#include "platform/window/menu_bar.h"
#include "platform/window/shown_picture.h"
#include "platform/window/user.h"

namespace korvane {

// Shared by the files of the layer; no program includes this.

// The measures that programs are told. The real frame belongs to the window manager.
inline constexpr int kWindowFrame = 4;
inline constexpr int kWindowCaption = 19;

struct Window {
    WNDPROC procedure = nullptr;
    std::uint32_t style = 0;
    std::uint32_t exStyle = 0;
    std::string title;
    std::span<const std::uint32_t> icon;  ///< of its class
    std::unique_ptr<Menu> menu;
    bool shown = false;
    bool hiddenAgain = false;  ///< only a box or dialog was seen, and has closed
    bool minimized = false;
    bool active = false;  ///< it, or a box or dialog over it, has the keyboard
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

/// The whole state of the window system, which has one window.
struct Desktop final : MenuOwner {
    void OnMenuEntered() override;
    void OnPopupOpening(std::size_t popup) override;
    void OnCommandChosen(std::uint16_t command) override;

    std::vector<WNDCLASS> classes;
    std::unique_ptr<Window> window;
    std::deque<QueuedMessage> queue;
    std::vector<Timer> timers;
    std::optional<int> quitCode;
    std::uint8_t modifiers = 0;       ///< as of the last message taken
    std::bitset<256> heldAsPlainKey;  ///< keys whose press went out as WM_KEYDOWN
    std::optional<SIZE> fullScreen;   ///< size of the picture shown in full screen
    std::optional<int> chosenScale;   ///< of the window, by the user
    ModalWindow* modal = nullptr;     ///< the box or dialog that has keys and mouse now
    MenuBar menuBar{*this};
    ShownPicture picture;
};

Desktop& TheDesktop();

/// Adds a message for the window to the end of the queue.
void Enqueue(std::uint32_t message, WPARAM wParam, LPARAM lParam, std::uint8_t modifiers = 0);

/// Turns the host's events into messages and changes of the window, until a message waits or no
/// event is left. Later events stay with the host, so that the message is handled while menu and
/// window are as they were when it came. Then shows what has changed.
void TakeHostEvents();

/// True when the next message ends the program. Boxes and dialogs then close and leave that message
/// to the program.
bool IsEndWaiting();

/// Milliseconds until the next timer is due; nothing when no timer runs.
std::optional<std::uint32_t> TimeToNextTimer();

/// The height of the window's menu bar as it is shown now; 0 without one.
int ShownMenuBarHeight();

/// Lays the menu bar out again and closes an open popup. To be called when the menu, the client
/// area or whether the bar is seen has changed.
void ResetMenuBar();
/// Paints the bar and the open popup again if they have changed.
void RefreshMenu();

/// The display side of the layer calls this when it has taken the whole screen for pictures of this
/// size, or left it (nothing). Mouse positions, the window's frame and the overlays depend on it.
void SetFullScreenPicture(std::optional<SIZE> pictureSize);

}  // namespace korvane
