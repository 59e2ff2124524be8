#pragma once

#include <SDL_keycode.h>
#include <SDL_scancode.h>

#include <array>
#include <cstdint>

namespace korvane {

/// What the keyboard's layout makes of each key pressed alone, by scan code.
using LayoutSymbols = std::array<SDL_Keycode, SDL_NUM_SCANCODES>;

/// The virtual-key code of each physical key under one keyboard layout.
///
/// A key goes by what its layout writes on it: the key that types "a" is 'A', wherever it lies.
/// The digit row is the digits, also where they need Shift. Keys whose sign has no code of its own
/// (umlauts, dead accents) take the code that a US keyboard has in their place, or, when another
/// key has that one already, a code that is left over. So every one of the letters, digits and
/// punctuation keys has a code of its own. A layout without Latin letters goes by place alone.
class KeyTable {
  public:
    explicit KeyTable(const LayoutSymbols& symbols);

    /// A code of platform/base/virtual_keys.h (which lists only the keys that the game names), 0
    /// for keys that have none. With NumLock off the keypad's digits are the keys that are printed
    /// below them.
    std::uint8_t CodeOf(SDL_Scancode key, bool numLock) const;

  private:
    void AssignTypingKeys(const LayoutSymbols& symbols);

    std::array<std::uint8_t, SDL_NUM_SCANCODES> codes_{};
};

}  // namespace korvane
