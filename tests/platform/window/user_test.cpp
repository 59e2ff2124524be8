#include "platform/window/user.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>
#include <vector>

#include "platform/host/kernel.h"
#include "platform/window/accelerators.h"
#include "platform/window/desktop.h"
#include "tests/support/menu_window.h"

namespace korvane {
namespace {

using enum HostEventType;
using Messages = std::vector<std::uint32_t>;

class UserTest : public MenuWindowTest {
  protected:
    /// Takes what waits, without dispatching it.
    static Messages Drain() {
        Messages messages;
        for (MSG message; PeekMessage(message, PM_REMOVE);)
            messages.push_back(message.message);
        return messages;
    }
};

TEST_F(UserTest, OuterSizeFrameAndClientAgree) {
    EXPECT_EQ(GetClientRect(window_), (RECT{0, 0, 640, 480}));
    const int menu = GetSystemMetrics(SM_CYMENU);
    EXPECT_EQ(GetWindowRect(window_).Size(), (SIZE{648, 507 + menu}));
    SetWindowPos(window_, {30, 40}, {}, SWP_NOSIZE);
    EXPECT_EQ(GetWindowRect(window_), (RECT{30, 40, 678, 547 + menu}));
    EXPECT_EQ(ClientToScreen(window_, {1, 2}), (POINT{35, 65 + menu}));
    SetMenu(window_, nullptr);
    EXPECT_EQ(GetClientRect(window_), (RECT{0, 0, 640, 480}));
    EXPECT_EQ(GetWindowRect(window_), (RECT{30, 40, 678, 547}));
}

TEST_F(UserTest, OnlyOneWindowOfAKnownClass) {
    const auto create = [](const char* name) {
        return CreateWindowEx(0, name, "", 0, {0, 0}, {100, 100});
    };
    EXPECT_FALSE(create("menu test"));
    EXPECT_FALSE(RegisterClass({"", DefWindowProc}));
    DestroyWindow(window_);
    Headless().RefuseWindow(true);
    EXPECT_FALSE(create("menu test")) << "no display";
    Headless().RefuseWindow(false);
    EXPECT_FALSE(create("Unknown"));
}

TEST_F(UserTest, MessagesComeInOrderAndPeekLeavesThem) {
    SetTimer(window_, 3, 200);
    Headless().Advance(200);
    PostQuitMessage(0);
    PostMessage(window_, WM_COMMAND, 1, 0);
    Headless().PushKey('A', true);
    for (int i = 0; i < 2; ++i) {
        MSG message;
        ASSERT_TRUE(PeekMessage(message, PM_NOREMOVE));
        EXPECT_EQ(message.wParam, 1u);
    }
    EXPECT_EQ(Drain(), (Messages{WM_COMMAND, WM_KEYDOWN, WM_QUIT, WM_TIMER}));
}

TEST_F(UserTest, TimersRepeatAndEnd) {
    struct Case {
        bool sets;
        std::uint32_t passing;
        std::size_t due;
    };
    Headless().SetMilliseconds(UINT32_MAX - 300);  // the clock begins anew meanwhile
    // Setting it again lets it count from the beginning.
    for (const Case& c : {Case{true, 199, 0}, Case{false, 1, 1}, Case{false, 150, 0},
                          Case{true, 150, 0}, Case{false, 50, 1}, Case{false, 1000, 1}}) {
        if (c.sets) SetTimer(window_, 3, 200);
        Headless().Advance(c.passing);
        EXPECT_EQ(Drain().size(), c.due) << "after " << c.passing << " ms";
    }
    const std::uint32_t start = GetTickCount();
    WaitMessage();
    EXPECT_EQ(GetTickCount() - start, 200u) << "waiting ends when it is due";
    KillTimer(window_, 3);
    EXPECT_TRUE(Drain().empty());
}

TEST_F(UserTest, ActivationAndSizeAreSentWhilePeeking) {
    for (const HostEventType type : {Activated, Minimized, Deactivated, Restored, Moved})
        Headless().Push({.type = type});
    EXPECT_TRUE(Drain().empty()) << "nothing of this is posted";
    const POINT origin = ClientToScreen(window_, {0, 0});
    EXPECT_EQ(received_, (std::vector<Seen>{
                             {WM_ACTIVATE, WA_ACTIVE, 0},
                             {WM_SIZE, SIZE_MINIMIZED, 0},
                             {WM_ACTIVATE, MakeParam(WA_INACTIVE, 1), 0},
                             {WM_SIZE, SIZE_RESTORED, static_cast<LPARAM>(MakeParam(640, 480))},
                             {WM_MOVE, 0, static_cast<LPARAM>(MakeParam(origin.x, origin.y))},
                         }));
}

TEST_F(UserTest, KeysWithAltAreSystemKeysAndPressAndReleaseArePaired) {
    SetMenu(window_, nullptr);  // a menu would use F10
    const std::pair<HostEvent, std::uint32_t> cases[] = {
        {Key('A', true), WM_KEYDOWN},
        {Key('A', false, kModAlt), WM_KEYUP},  // pressed before Alt was
        {Key('A', true, kModAlt), WM_SYSKEYDOWN},
        {Key('A', false, kModAlt), WM_SYSKEYUP},
        {Key('A', true, kModAlt | kModControl), WM_KEYDOWN},  // AltGr
        {Key(VK_F10, true), WM_SYSKEYDOWN},
        {Key(VK_MENU, true, kModAlt), WM_SYSKEYDOWN},
    };
    for (const auto& [event, message] : cases) {
        Headless().Push(event);
        EXPECT_EQ(Drain(), Messages{message}) << int{event.key} << " with " << int{event.modifiers};
    }
}

TEST_F(UserTest, AcceleratorsWantExactlyTheirModifiersAndOneCommandAPress) {
    constexpr std::array kTable = {ACCEL{0, VK_F3, 1}, ACCEL{FCONTROL | FSHIFT, 'G', 2},
                                   ACCEL{FALT, VK_RETURN, 3}};
    using Commands = std::vector<std::uint16_t>;
    struct Case {
        std::uint8_t key;
        std::uint8_t modifiers;
        Commands commands;
    };
    for (const Case& c : {Case{VK_F3, 0, {1}}, Case{VK_F3, kModShift, {}}, Case{'G', 0, {}},
                          Case{'G', kModControl, {}}, Case{'G', kModControl | kModShift, {2}},
                          Case{'G', kModControl | kModShift | kModAlt, {}}, Case{VK_RETURN, 0, {}},
                          Case{VK_RETURN, kModAlt, {3}}}) {
        for (const bool repeat : {false, true}) {
            SCOPED_TRACE(testing::Message() << int{c.key} << " with " << int{c.modifiers});
            Headless().Push(Key(c.key, true, c.modifiers, repeat));
            MSG message;
            ASSERT_TRUE(GetMessage(message));
            // A later event does not change the modifiers of this one.
            Headless().PushKey(c.key, false, 0);
            MSG next;
            ASSERT_TRUE(PeekMessage(next, PM_NOREMOVE));
            EXPECT_EQ(TranslateAccelerator(window_, kTable, message), !c.commands.empty());
            EXPECT_EQ(TakeCommands(), repeat ? Commands{} : c.commands);
            Drain();
        }
    }
}

TEST_F(UserTest, MousePointsCountFromInsideTheFrameInFullScreen) {
    const auto press = [](POINT at) {
        Headless().Push(Mouse(LeftButtonDown, at));
        MSG message;
        EXPECT_TRUE(GetMessage(message));
        const auto bits = static_cast<std::uintptr_t>(message.lParam);
        return POINT{static_cast<std::int16_t>(LOWORD(bits)),
                     static_cast<std::int16_t>(HIWORD(bits))};
    };
    EXPECT_EQ(press({12, 34}), (POINT{12, 34 - kMenuBarHeight}));
    SetMenu(window_, nullptr);
    EXPECT_EQ(press({-5, -6}), (POINT{-5, -6}));
    SetFullScreenPicture(SIZE{640, 480});
    EXPECT_EQ(press({1, 2}), (POINT{1 - kWindowFrame, 2 - kWindowFrame - kMenuBarHeight}));
}

TEST_F(UserTest, EveryWayToCloseDestroysTheWindowAndAllOfIt) {
    for (const HostEvent& close : {HostEvent{.type = CloseRequested}, HostEvent{.type = Terminate},
                                   Key(VK_F4, true, kModAlt)}) {
        SetTimer(window_, 3, 10);
        const HWND gone = window_;
        Push({close});
        EXPECT_FALSE(Headless().IsOpen());
        ASSERT_FALSE(received_.empty());
        EXPECT_EQ(received_.back().message, std::uint32_t{WM_DESTROY});
        EXPECT_FALSE(DestroyWindow(gone));
        PostMessage(gone, WM_COMMAND, 1, 0);
        Headless().PushKey('A', true);
        Headless().Advance(100);
        EXPECT_TRUE(Drain().empty());
        SetUp();
    }
}

}  // namespace
}  // namespace korvane
