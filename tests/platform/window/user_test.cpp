#include "platform/window/user.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "platform/headless/headless_host.h"
#include "platform/host/kernel.h"
#include "platform/window/full_screen.h"

namespace korvane {
namespace {

struct Seen {
    std::uint32_t message;
    WPARAM wParam;
    LPARAM lParam;

    bool operator==(const Seen&) const = default;
};

std::vector<Seen> seen;

LRESULT RecordingProc(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_GETMINMAXINFO) seen.push_back({message, wParam, lParam});
    return DefWindowProc(window, message, wParam, lParam);
}

class UserTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        RegisterClass({"Recording", RecordingProc});
        window = CreateWindowEx(0, "Recording", "A window", WS_CAPTION | WS_THICKFRAME,
                                {CW_USEDEFAULT, CW_USEDEFAULT}, {648, 507});
        ASSERT_TRUE(window);
        seen.clear();
    }

    void TearDown() override {
        DestroyWindow(window);
        MSG rest;
        while (PeekMessage(rest, PM_REMOVE)) {
        }
        NoteFullScreen(std::nullopt);
    }

    /// Takes what waits, without dispatching it.
    static std::vector<std::uint32_t> Drain() {
        std::vector<std::uint32_t> messages;
        MSG message;
        while (PeekMessage(message, PM_REMOVE))
            messages.push_back(message.message);
        return messages;
    }

    HWND window = nullptr;
};

TEST_F(UserTest, OuterSizeFrameAndClientAgree) {
    EXPECT_EQ(GetClientRect(window), (RECT{0, 0, 640, 480}));
    const RECT outer = GetWindowRect(window);
    EXPECT_EQ(outer.Size(), (SIZE{648, 507}));
    const RECT grown = AdjustWindowRectEx({0, 0, 640, 480}, WS_CAPTION | WS_THICKFRAME, true, 0);
    EXPECT_EQ(grown.Size(), (SIZE{648, 507 + GetSystemMetrics(SM_CYMENU)}));
    SetWindowPos(window, {30, 40}, {}, SWP_NOSIZE);
    EXPECT_EQ(GetWindowRect(window), (RECT{30, 40, 678, 547}));
    EXPECT_EQ(ClientToScreen(window, {1, 2}), (POINT{35, 65}));
}

TEST_F(UserTest, OnlyOneWindowOfAKnownClass) {
    EXPECT_FALSE(CreateWindowEx(0, "Recording", "", 0, {0, 0}, {100, 100}));
    EXPECT_FALSE(RegisterClass({"", RecordingProc}));
    DestroyWindow(window);
    Headless().RefuseWindow(true);
    EXPECT_FALSE(CreateWindowEx(0, "Recording", "", 0, {0, 0}, {100, 100})) << "no display";
    Headless().RefuseWindow(false);
    EXPECT_FALSE(CreateWindowEx(0, "Unknown", "", 0, {0, 0}, {100, 100}));
}

TEST_F(UserTest, PeekLeavesWhatGetTakes) {
    PostMessage(window, WM_COMMAND, 1, 0);
    MSG message;
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(PeekMessage(message, PM_NOREMOVE));
        EXPECT_EQ(message.wParam, 1u);
    }
    EXPECT_TRUE(GetMessage(message));
    EXPECT_FALSE(PeekMessage(message, PM_NOREMOVE));
}

TEST_F(UserTest, QuitComesLastAndTimersOnlyWhenNothingWaits) {
    SetTimer(window, 3, 200);
    Headless().Advance(200);
    PostQuitMessage(0);
    PostMessage(window, WM_COMMAND, 1, 0);
    Headless().PushKey('A', true);
    EXPECT_EQ(Drain(), (std::vector<std::uint32_t>{WM_COMMAND, WM_KEYDOWN, WM_QUIT, WM_TIMER}));
}

TEST_F(UserTest, TimersRepeatAndEnd) {
    SetTimer(window, 3, 200);
    Headless().Advance(199);
    EXPECT_TRUE(Drain().empty());
    Headless().Advance(1);
    EXPECT_EQ(Drain().size(), 1u);
    Headless().Advance(150);
    SetTimer(window, 3, 200);  // set again: counts anew
    Headless().Advance(150);
    EXPECT_TRUE(Drain().empty());
    Headless().Advance(50);
    EXPECT_EQ(Drain().size(), 1u);
    KillTimer(window, 3);
    Headless().Advance(1000);
    EXPECT_TRUE(Drain().empty());
}

TEST_F(UserTest, WaitingEndsWhenTheTimerIsDue) {
    SetTimer(window, 3, 200);
    const std::uint32_t start = GetTickCount();
    WaitMessage();
    EXPECT_EQ(GetTickCount() - start, 200u);
    MSG message;
    ASSERT_TRUE(GetMessage(message));
    EXPECT_EQ(message.message, std::uint32_t{WM_TIMER});
}

TEST_F(UserTest, ActivationAndSizeAreSentWhilePeeking) {
    Headless().Push({.type = HostEventType::Activated});
    Headless().Push({.type = HostEventType::Minimized});
    Headless().Push({.type = HostEventType::Deactivated});
    Headless().Push({.type = HostEventType::Restored});
    Headless().Push({.type = HostEventType::Moved});
    MSG message;
    EXPECT_FALSE(PeekMessage(message, PM_NOREMOVE)) << "nothing of this is posted";
    const auto size = static_cast<LPARAM>(MakeParam(640, 480));
    const POINT origin = ClientToScreen(window, {0, 0});
    EXPECT_EQ(seen, (std::vector<Seen>{
                        {WM_ACTIVATE, WA_ACTIVE, 0},
                        {WM_SIZE, SIZE_MINIMIZED, 0},
                        {WM_ACTIVATE, MakeParam(WA_INACTIVE, 1), 0},
                        {WM_SIZE, SIZE_RESTORED, size},
                        {WM_MOVE, 0, static_cast<LPARAM>(MakeParam(origin.x, origin.y))},
                    }));
}

TEST_F(UserTest, KeysWithAltAreSystemKeysAndPressAndReleaseArePaired) {
    const auto messageOf = [](std::uint8_t key, bool down, std::uint8_t modifiers) {
        Headless().PushKey(key, down, modifiers);
        const auto messages = Drain();
        return messages.size() == 1 ? messages[0] : 0;
    };
    EXPECT_EQ(messageOf('A', true, 0), std::uint32_t{WM_KEYDOWN});
    EXPECT_EQ(messageOf('A', false, kModAlt), std::uint32_t{WM_KEYUP}) << "pressed before Alt was";
    EXPECT_EQ(messageOf('A', true, kModAlt), std::uint32_t{WM_SYSKEYDOWN});
    EXPECT_EQ(messageOf('A', false, kModAlt), std::uint32_t{WM_SYSKEYUP});
    EXPECT_EQ(messageOf('A', true, kModAlt | kModControl), std::uint32_t{WM_KEYDOWN}) << "AltGr";
    EXPECT_EQ(messageOf(VK_F10, true, 0), std::uint32_t{WM_SYSKEYDOWN});
    EXPECT_EQ(messageOf(VK_MENU, true, kModAlt), std::uint32_t{WM_SYSKEYDOWN});
}

TEST_F(UserTest, AcceleratorsWantExactlyTheirModifiers) {
    constexpr std::array kTable = {ACCEL{0, VK_F3, 1}, ACCEL{FCONTROL | FSHIFT, 'G', 2},
                                   ACCEL{FALT, VK_RETURN, 3}};
    struct Case {
        std::uint8_t key;
        std::uint8_t modifiers;
        int command;  ///< 0: none
    };
    for (const Case& c :
         {Case{VK_F3, 0, 1}, Case{VK_F3, kModShift, 0}, Case{'G', 0, 0}, Case{'G', kModControl, 0},
          Case{'G', kModControl | kModShift, 2}, Case{'G', kModControl | kModShift | kModAlt, 0},
          Case{VK_RETURN, 0, 0}, Case{VK_RETURN, kModAlt, 3}}) {
        SCOPED_TRACE(testing::Message() << int{c.key} << " with " << int{c.modifiers});
        seen.clear();
        Headless().PushKey(c.key, true, c.modifiers);
        MSG message;
        ASSERT_TRUE(GetMessage(message));
        // What comes in behind it does not change what was held with it.
        Headless().PushKey(c.key, false, 0);
        MSG next;
        ASSERT_TRUE(PeekMessage(next, PM_NOREMOVE));
        EXPECT_EQ(TranslateAccelerator(window, kTable, message), c.command != 0);
        const std::vector<Seen> commands = {{WM_COMMAND, MakeParam(c.command, 1), 0}};
        EXPECT_EQ(seen, c.command ? commands : std::vector<Seen>{});
        Drain();
        seen.clear();
        Headless().Push({.type = HostEventType::KeyDown,
                         .key = c.key,
                         .modifiers = c.modifiers,
                         .repeat = true});
        ASSERT_TRUE(GetMessage(message));
        EXPECT_EQ(TranslateAccelerator(window, kTable, message), c.command != 0);
        EXPECT_TRUE(seen.empty()) << "once for each press";
    }
}

TEST_F(UserTest, MousePointsCountFromInsideTheFrameInFullScreen) {
    const auto press = [](int x, int y) {
        Headless().Push({.type = HostEventType::LeftButtonDown, .x = x, .y = y});
        MSG message;
        EXPECT_TRUE(GetMessage(message));
        const auto bits = static_cast<std::uintptr_t>(message.lParam);
        return POINT{static_cast<std::int16_t>(LOWORD(bits)),
                     static_cast<std::int16_t>(HIWORD(bits))};
    };
    EXPECT_EQ(press(12, 34), (POINT{12, 34}));
    EXPECT_EQ(press(-5, -6), (POINT{-5, -6}));
    NoteFullScreen(SIZE{640, 480});
    const POINT shifted = press(1, 2);
    EXPECT_EQ(shifted.x + GetSystemMetrics(SM_CXFRAME), 1);
    EXPECT_EQ(shifted.y + GetSystemMetrics(SM_CYFRAME) + GetSystemMetrics(SM_CYMENU), 2);
}

TEST_F(UserTest, EveryWayToCloseDestroysTheWindow) {
    const auto ways = {
        +[] { Headless().Push({.type = HostEventType::CloseRequested}); },
        +[] { Headless().Push({.type = HostEventType::Terminate}); },
        +[] { Headless().PushKey(VK_F4, true, kModAlt); },
    };
    for (const auto close : ways) {
        close();
        MSG message;
        while (PeekMessage(message, PM_REMOVE))
            DispatchMessage(message);
        EXPECT_FALSE(Headless().IsOpen());
        ASSERT_FALSE(seen.empty());
        EXPECT_EQ(seen.back().message, std::uint32_t{WM_DESTROY});
        EXPECT_FALSE(DestroyWindow(window)) << "a window that is gone";
        SetUp();
    }
}

TEST_F(UserTest, NothingOfADestroyedWindowIsLeft) {
    SetTimer(window, 3, 10);
    PostMessage(window, WM_COMMAND, 1, 0);
    const HWND gone = window;
    DestroyWindow(window);
    PostMessage(gone, WM_COMMAND, 1, 0);
    Headless().PushKey('A', true);
    Headless().Advance(100);
    EXPECT_TRUE(Drain().empty());
}

}  // namespace
}  // namespace korvane
