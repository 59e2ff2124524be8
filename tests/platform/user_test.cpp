#include "platform/user.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "platform/headless/headless_host.h"

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
        RegisterClass({"Test", RecordingProc});
        window = CreateWindowEx(0, "Test", "A window", WS_CAPTION | WS_THICKFRAME,
                                {CW_USEDEFAULT, CW_USEDEFAULT}, {648, 507});
        ASSERT_TRUE(window);
        seen.clear();
    }

    void TearDown() override {
        DestroyWindow(window);
        MSG rest;
        while (PeekMessage(rest, PM_REMOVE)) {
        }
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

TEST_F(UserTest, KeysWithAltAreSystemKeysAndPressAndReleaseArePaired) {
    const auto messageOf = [this](std::uint8_t key, bool down, std::uint8_t modifiers) {
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
    }
}

}  // namespace
}  // namespace korvane
