#include "game/key_bindings.h"

#include "platform/virtual_keys.h"

namespace korvane {
namespace {

constexpr std::array<std::uint8_t, kActionCount* 2> kDefaultKeys = {
    VK_UP,    'W',  // rotate
    VK_DOWN,  'S',  // drop
    VK_LEFT,  'A',  // left
    VK_RIGHT, 'D',  // right
    'P',      'T',  // pause
};

}  // namespace

KeyBindings keyBindings;

void KeyBindings::ResetToDefaults() {
    keys_ = kDefaultKeys;
}

}  // namespace korvane
