#include "game/rules/key_bindings.h"

#include <algorithm>
#include <string_view>

#include "app/state/data_file.h"
#include "platform/base/virtual_keys.h"

namespace korvane {
namespace {

constexpr std::array<std::uint8_t, kActionCount* 2> kDefaultKeys = {
    VK_UP,    'W',  // rotate
    VK_DOWN,  'S',  // drop
    VK_LEFT,  'A',  // left
    VK_RIGHT, 'D',  // right
    'P',      'T',  // pause
};

using Keys = std::array<std::uint8_t, kActionCount * 2>;

/// Gives one action another key. Whichever had it gets the action's old one.
void BindKey(Keys& keys, std::size_t entry, std::uint8_t key) {
    // A file edited by hand can give several actions one key; the last of them takes part.
    const auto holder = std::find(keys.rbegin(), keys.rend(), key);
    if (holder != keys.rend()) *holder = keys[entry];
    keys[entry] = key;
}

/// data\keys.dat.
struct KeysFile {
    using Record = Keys;
    static constexpr std::string_view kPath = "data\\keys.dat";
    static constexpr std::size_t kFewestBytes = 1;
    static constexpr bool kIsShared = false;

    static Record Defaults() { return kDefaultKeys; }
    static Record Unreached() { return {}; }
    /// All of the right player's keys in front of the left player's.
    static void Visit(auto& keys, auto& visit) {
        for (const Side side : {Side::Right, Side::Left}) {
            for (std::size_t action = 0; action < kActionCount; ++action)
                visit(keys[action * 2 + IndexOf(side)]);
        }
    }
    static Record Merged(Record base, const Record& added, const Record& known) {
        for (std::size_t entry = 0; entry < base.size(); ++entry)
            if (added[entry] != known[entry]) BindKey(base, entry, added[entry]);
        return base;
    }
};

}  // namespace

KeyBindings keyBindings;

void KeyBindings::ResetToDefaults() {
    keys_ = kDefaultKeys;
}

void KeyBindings::Bind(Action action, Side side, std::uint8_t key) {
    BindKey(keys_, Entry(action, side), key);
}

void KeyBindings::Load() {
    keys_ = saved_ = LoadDataFile<KeysFile>(file_).value_or(kDefaultKeys);
}

void KeyBindings::Save() {
    SaveDataFile<KeysFile>(file_, keys_);
}

bool KeyBindings::SaveSoFar() {
    if (!SaveDataFileSoFar<KeysFile>(file_, keys_)) return false;
    saved_ = keys_;
    return true;
}

}  // namespace korvane
