#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "platform/headless/headless_host.h"
#include "platform/surfaces/ddraw.h"
#include "platform/window/menu_layout.h"
#include "platform/window/user.h"

namespace korvane {

inline constexpr std::uint16_t kOpen = 100;
inline constexpr std::uint16_t kClose = 101;
inline constexpr std::uint16_t kGreyed = 102;
inline constexpr std::uint16_t kUndo = 200;
inline constexpr std::uint16_t kUndoAll = 201;

/// Popups "File" and "Edit"; the last item of "File" is greyed whenever the menu asks.
extern const MENUTEMPLATE kTestMenu;

/// A program with a shown window of 640 x 480, that menu and F5 for Open, which keeps the messages
/// that it gets and draws one frame.
class MenuWindowTest : public testing::Test {
  protected:
    ~MenuWindowTest() override;

    /// Opens the window, and the display in it. Once per test.
    void Start();

    static HostEvent Key(std::uint8_t key, bool down, std::uint8_t modifiers = 0,
                         bool repeat = false);
    static HostEvent Mouse(HostEventType type, POINT at);
    void Push(std::initializer_list<HostEvent> events);

    static POINT TitleCentre(std::size_t popup);
    static POINT ItemCentre(std::size_t popup, std::size_t item);
    /// Which popup the picture shows; kNoEntry for none.
    static std::size_t ShownPopup();

    static std::vector<MSG> Received(std::uint32_t message);
    static std::size_t Count(std::uint32_t message) { return Received(message).size(); }
    /// The commands received so far, forgetting them.
    static std::vector<std::uint16_t> TakeCommands();

    HWND window_ = nullptr;
    static inline std::vector<MSG> received_;

  private:
    static LRESULT Procedure(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);
    void OpenDisplay();
    void DrawFrame();
    /// Lets the program handle all that waits.
    void Pump();

    UniqueInterface<IDirectDraw7> directDraw_;
    UniqueInterface<IDirectDrawSurface7> front_;
    UniqueInterface<IDirectDrawSurface7> back_;
};

}  // namespace korvane
