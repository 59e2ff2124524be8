#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <random>
#include <vector>

#include "platform/ddraw.h"
#include "platform/headless/headless_host.h"
#include "platform/menu_layout.h"
#include "platform/user.h"

namespace korvane {

inline constexpr std::uint16_t kOpen = 100;
inline constexpr std::uint16_t kClose = 101;
inline constexpr std::uint16_t kGreyed = 102;
inline constexpr std::uint16_t kUndo = 200;
inline constexpr std::uint16_t kUndoAll = 201;
inline constexpr std::uint16_t kNotInMenu = 300;

/// Popups "File" and "Edit"; the last item of "File" is greyed whenever the menu asks.
extern const MENUTEMPLATE kTestMenu;

/// A program with a shown window of 640 x 480, that menu and accelerators (F5 Open, F6 Greyed, F7
/// for a command that is not in the menu), which keeps the messages that it gets and draws
/// one-coloured frames.
class MenuWindowTest : public testing::Test {
  protected:
    static constexpr std::uint32_t kGameColour = 0x123456;

    MenuWindowTest();
    ~MenuWindowTest() override;

    /// Opens the window, and the display in it. Once per test.
    void Start(int scale = 1);
    void StartHidden();
    void OpenDisplay();
    void CloseDisplay();
    void OpenFullScreen();

    /// Lets the program handle all that waits.
    void Pump();
    void DrawFrame(std::uint32_t colour, const RECT& patch = {}, std::uint32_t patchColour = 0);

    static HostEvent Key(std::uint8_t key, bool down, std::uint8_t modifiers = 0,
                         bool repeat = false);
    static HostEvent Mouse(HostEventType type, POINT at);
    void Push(std::initializer_list<HostEvent> events);
    /// Presses and releases.
    void Tap(std::uint8_t key, std::uint8_t modifiers = 0);
    void TapAlt();
    void Click(POINT at);

    static POINT TitleCentre(std::size_t popup);
    static POINT ItemCentre(std::size_t popup, std::size_t item);
    /// Which popup the picture shows; kNoEntry for none.
    static std::size_t ShownPopup();

    /// What the window shows where the game's pixel (x, y) lies.
    static std::uint32_t GamePixel(int x, int y);
    /// How many of the game's pixels show another colour.
    static int GamePixelsOtherThan(std::uint32_t colour);
    /// Any event at any time, mostly near the menu.
    static HostEvent RandomEvent(std::mt19937& random);

    static std::vector<MSG> Received(std::uint32_t message);
    static std::size_t Count(std::uint32_t message) { return Received(message).size(); }
    /// The commands received so far, forgetting them.
    static std::vector<std::uint16_t> TakeCommands();

    static HeadlessHost& Screen() { return Headless(); }

    HWND window_ = nullptr;
    static inline std::vector<MSG> received_;
    static inline std::function<void(const MSG&)> onMessage_;

  private:
    static LRESULT Procedure(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);
    void ShowBackBuffer();

    UniqueInterface<IDirectDraw7> directDraw_;
    UniqueInterface<IDirectDrawSurface7> front_;
    UniqueInterface<IDirectDrawSurface7> back_;
};

}  // namespace korvane
