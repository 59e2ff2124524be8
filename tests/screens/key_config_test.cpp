#include <map>
#include <string>
#include <utility>
#include <vector>

#include "game/rules/key_bindings.h"
#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "screens/menu_screen.h"
#include "screens/skin_reload.h"
#include "tests/support/bmp_writer.h"
#include "tests/support/program_fixture.h"
#include "tests/support/test_skin.h"

namespace korvane {
namespace {

using Bytes = std::vector<std::byte>;

constexpr const char* kFile = "data/keys.dat";

Bytes BytesOf(std::initializer_list<int> values) {
    Bytes bytes;
    for (const int value : values)
        bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

const Bytes kDefaultFile = BytesOf({38, 40, 37, 39, 80, 87, 83, 65, 68, 84});

/// A pixel inside a slot's button that no glyph covers.
POINT SlotAt(Action action, Side side) {
    return {side == Side::Right ? 335 + 5 : 165 + 5, 105 + 66 * static_cast<int>(action) + 5};
}

class KeyConfigTest : public ProgramFixture {
  protected:
    void OpenKeyConfig() {
        Start();
        theMenuScreen->ToggleKeyConfigView();
    }

    static MenuAction Arm(Action action, Side side) {
        const POINT slot = SlotAt(action, side);
        return theMenuScreen->Click(slot.x, slot.y);
    }

    static bool BackIsEnabled() { return theMenuScreen->IsEnabled(MenuButton::KeyConfigBack); }
};

TEST_F(KeyConfigTest, KeysAreReadFromTheFileAndWrittenAtTheEnd) {
    Start();
    End();
    EXPECT_EQ(folder.Read(kFile), kDefaultFile);
    folder.Write(kFile, BytesOf({74, 40, 37, 39, 80, 87, 83, 65, 68, 84}));
    OpenKeyConfig();
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Right), 'J');
    Arm(Action::Drop, Side::Left);
    theMenuScreen->OnKeyConfigKey('Q');
    EXPECT_EQ(folder.Read(kFile)[6], std::byte{83}) << "not written before the end";
    End();
    EXPECT_EQ(folder.Read(kFile), BytesOf({74, 40, 37, 39, 80, 87, 'Q', 65, 68, 84}));
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
    struct Case {
        const char* what;
        Bytes file;
        Action action;
        Side side;
        int key;
        Bytes want;
    };
    const Case kCases[] = {
        {"across the players", kDefaultFile, Action::Rotate, Side::Left, 38,
         BytesOf({87, 40, 37, 39, 80, 38, 83, 65, 68, 84})},
        {"within one player", kDefaultFile, Action::Left, Side::Right, 39,
         BytesOf({38, 40, 39, 37, 80, 87, 83, 65, 68, 84})},
        {"its own key", kDefaultFile, Action::Drop, Side::Left, 83, kDefaultFile},
        {"a missing key goes over too", BytesOf({38, 0, 37, 39, 80, 87, 83, 65, 68, 84}),
         Action::Drop, Side::Right, 84, BytesOf({38, 84, 37, 39, 80, 87, 83, 65, 68, 0})},
        {"the last of equal keys", BytesOf({50, 50, 50, 39, 80, 87, 50, 65, 68, 84}), Action::Pause,
         Side::Right, 50, BytesOf({50, 50, 80, 39, 50, 87, 50, 65, 68, 84})},
    };
    OpenKeyConfig();
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.what);
        folder.Write(kFile, c.file);
        keyBindings.Load();
        ASSERT_EQ(Arm(c.action, c.side), kMenuSlotArmed);
        theMenuScreen->OnKeyConfigKey(static_cast<std::uint8_t>(c.key));
        EXPECT_TRUE(BackIsEnabled());
        keyBindings.Save();
        EXPECT_EQ(folder.Read(kFile), c.want);
    }
}

}  // namespace
}  // namespace korvane
