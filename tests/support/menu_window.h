#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "platform/headless/headless_host.h"
#include "platform/window/menu_layout.h"
#include "platform/window/user.h"
#include "tests/support/dialog_script.h"

namespace korvane {

enum TestCommand : std::uint16_t { kOpen = 100, kClose, kGreyed, kUndo, kUndoAll };

/// A message that the window's procedure got.
struct Seen {
    std::uint32_t message;
    WPARAM wParam;
    LPARAM lParam;

    bool operator==(const Seen&) const = default;
};

/// A shown window of 640 x 480 with a menu bar, which keeps the messages that it gets. Popups are
/// "File" and "Edit"; the last item of "File" is greyed whenever the menu asks, and F5 is Open.
class MenuWindowTest : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Pushes events and lets the program handle all that waits.
    void Push(std::initializer_list<HostEvent> events);

    static POINT TitleCentre(std::size_t popup);
    static POINT ItemCentre(std::size_t popup, std::size_t item);
    /// Which popup the picture shows; kNoEntry for none.
    static std::size_t ShownPopup();

    static std::vector<Seen> Received(std::uint32_t message);
    static std::size_t Count(std::uint32_t message) { return Received(message).size(); }
    /// The commands received so far, forgetting them.
    static std::vector<std::uint16_t> TakeCommands();

    HWND window_ = nullptr;
    static inline std::vector<Seen> received_;
    /// The procedure gives the window another menu like it when a popup is to open.
    static inline bool replacesMenu_ = false;

  private:
    static LRESULT Procedure(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam);
};

}  // namespace korvane
