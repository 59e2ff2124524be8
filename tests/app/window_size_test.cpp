#include <gtest/gtest.h>

#include <cstring>

#include "app/state/process_state.h"
#include "game/rules/key_bindings.h"
#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "platform/host/kernel.h"
#include "platform/window/window_scale.h"
#include "res/commands.h"
#include "tests/support/program_fixture.h"

namespace korvane {
namespace {

constexpr const char* kFile = "data/window.dat";

std::vector<std::byte> Bytes(std::string_view text) {
    const auto* first = reinterpret_cast<const std::byte*>(text.data());
    return {first, first + text.size()};
}

class WindowSizeTest : public ProgramFixture {
  protected:
    void SetUp() override {
        ProgramFixture::SetUp();
        Headless().SetClientLimit({2600, 2000});
    }
    std::optional<std::vector<std::byte>> Kept() const { return GameFiles().Read(kFile, 1000); }
};

TEST_F(WindowSizeTest, AChosenSizeIsRememberedAndAStrangeFileIsNone) {
    using namespace std::string_view_literals;
    const std::pair<std::string_view, int> kCases[] = {
        {"KWIN\3\0\0\0"sv, 3},
        {"KWIN\0\0\0\0"sv, 2},
        {"KWIN\x10\0\0\0"sv, 4},
        {"KWIN\x11\0\0\0"sv, 2},
        {"KWIN\xff\xff\xff\xff"sv, 2},
        {"KWIN\3\0\0"sv, 2},
        {"NIWK\3\0\0\0"sv, 2},
        {""sv, 2},
        {"some text of another program"sv, 2},
    };
    Headless().SetDensity({2, {}, {}});
    for (const auto& [content, scale] : kCases) {
        folder.Write(kFile, Bytes(content));
        Start();
        EXPECT_EQ(Headless().Scale(), scale) << testing::PrintToString(content);
        EXPECT_EQ(Kept(), Bytes(content)) << "nobody has chosen anything";
        End();
    }
}

TEST_F(WindowSizeTest, KeysAndEdgesChangeItAtOnceAndForTheNextStart) {
    using namespace std::string_view_literals;
    const std::tuple<std::uint8_t, std::uint8_t, int> kCases[] = {
        {VK_OEM_PLUS, kModControl, 2},      {VK_OEM_PLUS, kModControl | kModShift, 3},
        {VK_OEM_MINUS, kModControl, 2},     {VK_ADD, kModControl, 3},
        {VK_SUBTRACT, kModControl, 2},      {VK_OEM_PLUS, 0, 2},
        {VK_ADD, kModControl | kModAlt, 2}, {'0', kModControl, 1},
        {VK_ADD, kModControl, 2},           {VK_NUMPAD0, kModControl, 1},
    };
    Start();
    for (const auto& [key, modifiers, scale] : kCases) {
        Press(key, modifiers);
        Frame();
        EXPECT_EQ(Headless().Scale(), scale) << int{key};
    }
    EXPECT_EQ(Kept(), Bytes("KWIN\0\0\0\0"sv)) << "the desktop's";
    Headless().Push({.type = HostEventType::EdgeDragged, .x = 1900, .y = 1500});
    Frame();
    EXPECT_EQ(Kept(), Bytes("KWIN\3\0\0\0"sv));
    Headless().Push({.type = HostEventType::EdgeDragged, .x = 1300, .y = 1000, .amount = 1});
    Frame();
    EXPECT_EQ(Kept(), Bytes("KWIN\3\0\0\0"sv)) << "a tile is nobody's choice";
    Start();
    EXPECT_EQ(Headless().Scale(), 3);
}

TEST_F(WindowSizeTest, KeysThatSomebodyPlaysWithStayWithTheGame) {
    // The key that the right player turns with, and the scale after Ctrl+Plus in a game.
    const std::pair<std::uint8_t, int> kCases[] = {
        {VK_UP, 2}, {VK_ADD, 1}, {VK_CONTROL, 1}, {VK_SUBTRACT, 2}};
    for (const auto& [turn, scale] : kCases) {
        Start();
        Command(kCmdUsualWindow);
        keyBindings.Key(Action::Rotate, Side::Right) = turn;
        Command(kCmdNewGame);
        Press(VK_ADD, kModControl);
        EXPECT_EQ(Headless().Scale(), scale) << int{turn};
        Command(kCmdUsualWindow);
        Command(kCmdGotoMenu);
        Press(VK_ADD, kModControl);
        EXPECT_EQ(Headless().Scale(), 2) << "nobody plays";
    }
}

}  // namespace
}  // namespace korvane
