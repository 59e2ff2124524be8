#include "game/rules/key_bindings.h"

#include <string_view>

#include "platform/base/byte_stream.h"
#include "platform/base/virtual_keys.h"
#include "platform/host/kernel.h"

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

/// The file holds all of the right player's keys in front of the left player's.
template <typename Bindings, typename Visit>
void VisitKeysInFileOrder(Bindings& bindings, Visit visit) {
    for (const Side side : {Side::Right, Side::Left}) {
        for (std::size_t action = 0; action < kActionCount; ++action)
            visit(bindings.Key(static_cast<Action>(action), side));
    }
}

}  // namespace

KeyBindings keyBindings;

void KeyBindings::ResetToDefaults() {
    keys_ = kDefaultKeys;
}

void KeyBindings::Load() {
    const auto bytes = GameFiles().Read(kKeysPath, kDataFileCap);
    if (!bytes || bytes->empty()) {
        ResetToDefaults();
        return;
    }
    keys_.fill(0);
    ByteReader reader(*bytes);
    VisitKeysInFileOrder(*this, [&reader](std::uint8_t& key) { reader.Read(key); });
}

void KeyBindings::Save() const {
    ByteWriter writer;
    VisitKeysInFileOrder(*this, [&writer](std::uint8_t key) { writer.Write(key); });
    GameFiles().Replace(kKeysPath, writer.Bytes());
}

}  // namespace korvane
