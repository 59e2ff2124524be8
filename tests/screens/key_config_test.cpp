#include <algorithm>
#include <array>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "game/rules/key_bindings.h"
#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "screens/menu_screen.h"
#include "tests/support/program_fixture.h"

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
    static Bytes Load(const Bytes& bytes, const TemporaryFolder& folder) {
        folder.Write(kFile, bytes);
        keyBindings.Load();
        keyBindings.Save();
        return folder.Read(kFile);
    }

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

TEST_F(KeyConfigTest, AFileCutAnywhereLeavesTheKeysItDoesNotReachMissing) {
    const Bytes unusual = BytesOf({1, 255, 3, 3, 0, 6, 7, 8, 9, 10});
    for (std::size_t length = 0; length <= unusual.size(); ++length) {
        Bytes want(unusual.begin(), unusual.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_EQ(Load(want, folder).size(), 10U);
        want.resize(10, std::byte{0});
        if (length == 0) want = kDefaultFile;
        EXPECT_EQ(folder.Read(kFile), want) << length;
    }
    Bytes longer = unusual;
    longer.resize(3000, std::byte{77});
    EXPECT_EQ(Load(longer, folder), unusual);
}

TEST_F(KeyConfigTest, KeysComeFromTheFileAndGoBackWhenTheWindowIsDestroyed) {
    folder.Write(kFile, BytesOf({74, 40, 37, 39, 80, 87, 83, 65, 68, 84}));
    OpenKeyConfig();
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Right), 'J');
    Arm(Action::Drop, Side::Left);
    theMenuScreen->OnKeyConfigKey('Q');
    EXPECT_EQ(folder.Read(kFile)[6], std::byte{83}) << "not before the end";
    End();
    EXPECT_EQ(folder.Read(kFile), BytesOf({74, 40, 37, 39, 80, 87, 'Q', 65, 68, 84}));
}

TEST_F(KeyConfigTest, OnlyTheseKeysCanBeBound) {
    std::set<int> bindable = {8, 13, 16, 17, 32, 45, 46, 226};
    for (const auto& [first, last] :
         {std::pair{65, 90}, {48, 57}, {96, 105}, {33, 40}, {186, 192}, {219, 222}})
        for (int key = first; key <= last; ++key)
            bindable.insert(key);
    OpenKeyConfig();
    for (int key = 0; key <= 255; ++key) {
        SCOPED_TRACE(key);
        keyBindings.ResetToDefaults();
        ASSERT_EQ(Arm(Action::Pause, Side::Left), kMenuSlotArmed);
        const KeyBindings before = keyBindings;
        theMenuScreen->OnKeyConfigKey(static_cast<std::uint8_t>(key));
        EXPECT_EQ(BackIsEnabled(), bindable.contains(key));
        if (bindable.contains(key)) {
            EXPECT_EQ(keyBindings.Key(Action::Pause, Side::Left), key);
        } else {
            EXPECT_EQ(keyBindings, before);
            theMenuScreen->OnKeyConfigKey('T');  // the slot still waits
            EXPECT_TRUE(BackIsEnabled());
        }
    }
}

TEST_F(KeyConfigTest, ASlotThatHadTheKeyTakesTheOldOne) {
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
        Load(c.file, folder);
        ASSERT_EQ(Arm(c.action, c.side), kMenuSlotArmed);
        theMenuScreen->OnKeyConfigKey(static_cast<std::uint8_t>(c.key));
        EXPECT_TRUE(BackIsEnabled());
        keyBindings.Save();
        EXPECT_EQ(folder.Read(kFile), c.want);
    }
}

TEST_F(KeyConfigTest, ASlotsBorderIsNoPartOfIt) {
    OpenKeyConfig();
    for (const auto& [x, y] : {std::pair{165, 110},
                               {165 + 65, 110},
                               {170, 105},
                               {170, 105 + 64},
                               {250, 110},
                               {164, 110}})
        EXPECT_EQ(theMenuScreen->Click(x, y), kMenuNothing) << x << ", " << y;
    EXPECT_EQ(theMenuScreen->Click(165 + 64, 105 + 63), kMenuSlotArmed);
    theMenuScreen->OnKeyConfigKey('W');
    EXPECT_EQ(theMenuScreen->Click(166, 106), kMenuSlotArmed);
}

}  // namespace
}  // namespace korvane
