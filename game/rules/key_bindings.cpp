#include "game/rules/key_bindings.h"

#include <string_view>

#include "app/state/data_file.h"
#include "platform/base/virtual_keys.h"

namespace korvane {
namespace {

constexpr std::string_view kKeysPath = "data\\keys.dat";

constexpr std::array<std::uint8_t, kActionCount* 2> kDefaultKeys = {
    VK_UP,    'W',  // rotate
    VK_DOWN,  'S',  // drop
    VK_LEFT,  'A',  // left
    VK_RIGHT, 'D',  // right
    'P',      'T',  // pause
};

/// The layout of data\keys.dat: all of the right player's keys in front of the left player's.
constexpr auto kVisitKeys = [](auto& bindings, auto& visit) {
    for (const Side side : {Side::Right, Side::Left}) {
        for (std::size_t action = 0; action < kActionCount; ++action)
            visit(bindings.Key(static_cast<Action>(action), side));
    }
};

}  // namespace

KeyBindings keyBindings;

void KeyBindings::ResetToDefaults() {
    keys_ = kDefaultKeys;
}

void KeyBindings::Load() {
    KeyBindings none;
    none.keys_.fill(0);
    *this = ReadDataFile(kKeysPath, 1, none, kVisitKeys).value_or(KeyBindings());
}

void KeyBindings::Save() const {
    WriteDataFile(kKeysPath, *this, kVisitKeys);
}

}  // namespace korvane
