#include <map>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "game/rules/key_bindings.h"
#include "platform/base/virtual_keys.h"
#include "screens/menu_screen.h"
#include "screens/skin_reload.h"
#include "tests/support/bmp_writer.h"
#include "tests/support/program_fixture.h"
#include "tests/support/test_skin.h"

namespace korvane {
namespace {

using Bytes = std::vector<std::byte>;

constexpr const char* kFile = "data/keys.dat";

Bytes BytesOf(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

/// The signs are the codes of the arrow keys: up, down, left, right.
constexpr const char* kDefaultFile = "&(%'PWSADT";

class KeyConfigTest : public ProgramFixture {
  protected:
    void OpenKeyConfig() {
        Start();
        theMenuScreen->ToggleKeyConfigView();
    }

    static MenuAction Arm(Action action, Side side) {
        return theMenuScreen->Click(side == Side::Right ? 335 + 5 : 165 + 5,
                                    105 + 66 * static_cast<int>(action) + 5);
    }

    static bool BackIsEnabled() { return theMenuScreen->IsEnabled(MenuButton::KeyConfigBack); }
};

TEST_F(KeyConfigTest, KeysAreReadFromTheFileAndWrittenAtOnceAndAtTheEnd) {
    Start();
    End();
    EXPECT_EQ(folder.Read(kFile), BytesOf(kDefaultFile));
    folder.Write(kFile, BytesOf("J(%'PWSADT"));
    OpenKeyConfig();
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Right), 'J');
    Arm(Action::Drop, Side::Left);
    theMenuScreen->OnKeyConfigKey('Q');
    for (const bool ends : {false, true}) {
        ends ? End() : Frame();
        EXPECT_EQ(folder.Read(kFile), BytesOf("J(%'PWQADT"));
    }
}

/// The keys that can be bound, with the cell that shows each: the sheets' cells from the left, 0
/// for one that no key shows.
std::map<int, std::string> CellsOfKeys() {
    const std::pair<const char*, std::vector<int>> kSheets[] = {
        {"alpha1 ", {'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 'I', 'J',
                     'K', 'L', 'M', 'N', 'O', 'P', 'Q', 'R', 'S', 'T'}},
        {"alpha2 ", {'U', 'V', 'W', 'X', 'Y', 'Z'}},
        {"keys1 ", {37, 40, 38, 39, 96, 97, 98, 99, 100, 101, 102, 103, 104, 105}},
        {"keys1 ", {0,   0,   0,   0,   '0', '1', '2', '3', '4', '5',
                    '6', '7', '8', '9', 190, 188, 226, 221, 222, 192}},
        {"keys2 ", {45, 36, 33, 46, 35, 34, 8, 220, 189, 0, 17, 16, 219, 0, 191, 186, 0, 0, 0, 13}},
        {"keys2 ", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 187}},  // the same cell as Shift
    };
    std::map<int, std::string> cells = {{VK_SPACE, "keybuttongrey 0"}};  // no glyph on the slot
    for (const auto& [sheet, keys] : kSheets)
        for (std::size_t cell = 0; cell < keys.size(); ++cell)
            if (keys[cell] != 0) cells[keys[cell]] = sheet + std::to_string(cell);
    return cells;
}

TEST_F(KeyConfigTest, OnlyTheseKeysCanBeBoundAndEachShowsItsGlyph) {
    const std::map<int, std::string> cells = CellsOfKeys();
    OpenKeyConfig();
    for (int key = 0; key <= 255; ++key) {
        SCOPED_TRACE(key);
        keyBindings.ResetToDefaults();
        ASSERT_EQ(Arm(Action::Pause, Side::Left), kMenuSlotArmed);
        const KeyBindings before = keyBindings;
        theMenuScreen->OnKeyConfigKey(static_cast<std::uint8_t>(key));
        const auto cell = cells.find(key);
        ASSERT_EQ(BackIsEnabled(), cell != cells.end());
        if (cell != cells.end()) {
            EXPECT_EQ(keyBindings.Key(Action::Pause, Side::Left), key);
            Frame();
            EXPECT_EQ(Seen(165 + 30, 369 + 30), "KeyConfig/" + cell->second);
        } else {
            EXPECT_EQ(keyBindings, before);
            theMenuScreen->OnKeyConfigKey('T');  // the slot still waits for a key
            EXPECT_TRUE(BackIsEnabled());
        }
    }
}

TEST_F(KeyConfigTest, GlyphsAreTransparentInTheThirdKeyColour) {
    folder.Write(
        "Skins/Original/KeyConfig/alpha2.bmp",  // U to Z
        MakeBmp({.width = 174, .height = 44, .pixel = [](int, int) { return kTestKeys[2]; }}));
    OpenKeyConfig();
    keyBindings.Key(Action::Pause, Side::Left) = 'Z';
    for (int reload = 0; reload < 2; ++reload) {
        Frame();
        EXPECT_EQ(Seen(165 + 30, 369 + 30), "KeyConfig/keybuttongrey 0");
        ReloadSkinGraphics();
    }
}

TEST_F(KeyConfigTest, TheSlotThatHadTheKeyGetsTheOldOne) {
    using namespace std::string_view_literals;
    const std::tuple<std::string_view, Action, Side, char, std::string_view> kCases[] = {
        {kDefaultFile, Action::Rotate, Side::Left, '&', "W(%'P&SADT"},  // across the players
        {kDefaultFile, Action::Left, Side::Right, '\'', "&('%PWSADT"},  // within one player
        {kDefaultFile, Action::Drop, Side::Left, 'S', kDefaultFile},
        {"&\0%'PWSADT"sv, Action::Drop, Side::Right, 'T',
         "&T%'PWSAD\0"sv},  // a missing key goes over too
        {"222'PW2ADT", Action::Pause, Side::Right, '2', "22P'2W2ADT"},  // the last of equal keys
    };
    OpenKeyConfig();
    for (const auto& [before, action, side, key, after] : kCases) {
        SCOPED_TRACE(after);
        folder.Write(kFile, BytesOf(before));
        keyBindings.Load();
        ASSERT_EQ(Arm(action, side), kMenuSlotArmed);
        theMenuScreen->OnKeyConfigKey(static_cast<std::uint8_t>(key));
        EXPECT_TRUE(BackIsEnabled());
        keyBindings.Save();
        EXPECT_EQ(folder.Read(kFile), BytesOf(after));
    }
}

}  // namespace
}  // namespace korvane
