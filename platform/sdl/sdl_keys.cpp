#include "platform/sdl/sdl_keys.h"

#include <algorithm>
#include <bitset>
#include <iterator>

#include "platform/base/virtual_keys.h"

namespace korvane {
namespace {

/// The codes go up to 255; the digits and letters among them are their ASCII characters.
using CodeSet = std::bitset<256>;

struct NamedKey {
    SDL_Keycode symbol;
    SDL_Scancode place;
    std::uint8_t code;
};

/// Keys that no layout moves, but that a user may have exchanged (Caps Lock with Control, say).
constexpr NamedKey kNamedKeys[] = {
    {SDLK_BACKSPACE, SDL_SCANCODE_BACKSPACE, VK_BACK},
    {SDLK_TAB, SDL_SCANCODE_TAB, VK_TAB},
    {SDLK_RETURN, SDL_SCANCODE_RETURN, VK_RETURN},
    {SDLK_KP_ENTER, SDL_SCANCODE_KP_ENTER, VK_RETURN},
    {SDLK_LSHIFT, SDL_SCANCODE_LSHIFT, VK_SHIFT},
    {SDLK_RSHIFT, SDL_SCANCODE_RSHIFT, VK_SHIFT},
    {SDLK_LCTRL, SDL_SCANCODE_LCTRL, VK_CONTROL},
    {SDLK_RCTRL, SDL_SCANCODE_RCTRL, VK_CONTROL},
    {SDLK_LALT, SDL_SCANCODE_LALT, VK_MENU},
    {SDLK_RALT, SDL_SCANCODE_RALT, VK_MENU},
    {SDLK_MODE, SDL_SCANCODE_MODE, VK_MENU},  // AltGr, where the layout tells it from Alt
    {SDLK_PAUSE, SDL_SCANCODE_PAUSE, VK_PAUSE},
    {SDLK_CAPSLOCK, SDL_SCANCODE_CAPSLOCK, VK_CAPITAL},
    {SDLK_ESCAPE, SDL_SCANCODE_ESCAPE, VK_ESCAPE},
    {SDLK_SPACE, SDL_SCANCODE_SPACE, VK_SPACE},
    {SDLK_PAGEUP, SDL_SCANCODE_PAGEUP, VK_PRIOR},
    {SDLK_PAGEDOWN, SDL_SCANCODE_PAGEDOWN, VK_NEXT},
    {SDLK_END, SDL_SCANCODE_END, VK_END},
    {SDLK_HOME, SDL_SCANCODE_HOME, VK_HOME},
    {SDLK_LEFT, SDL_SCANCODE_LEFT, VK_LEFT},
    {SDLK_UP, SDL_SCANCODE_UP, VK_UP},
    {SDLK_RIGHT, SDL_SCANCODE_RIGHT, VK_RIGHT},
    {SDLK_DOWN, SDL_SCANCODE_DOWN, VK_DOWN},
    {SDLK_INSERT, SDL_SCANCODE_INSERT, VK_INSERT},
    {SDLK_DELETE, SDL_SCANCODE_DELETE, VK_DELETE},
    {SDLK_KP_MULTIPLY, SDL_SCANCODE_KP_MULTIPLY, VK_MULTIPLY},
    {SDLK_KP_PLUS, SDL_SCANCODE_KP_PLUS, VK_ADD},
    {SDLK_KP_MINUS, SDL_SCANCODE_KP_MINUS, VK_SUBTRACT},
    {SDLK_KP_DIVIDE, SDL_SCANCODE_KP_DIVIDE, VK_DIVIDE},
    {SDLK_NUMLOCKCLEAR, SDL_SCANCODE_NUMLOCKCLEAR, VK_NUMLOCK},
    {SDLK_SCROLLLOCK, SDL_SCANCODE_SCROLLLOCK, VK_SCROLL},
};

/// The keypad with NumLock on, and below it what the same keys are with NumLock off. The middle
/// key is then none of those the game knows.
struct KeypadKey {
    SDL_Scancode place;
    std::uint8_t locked;
    std::uint8_t unlocked;
};
constexpr KeypadKey kKeypad[] = {
    {SDL_SCANCODE_KP_0, VK_NUMPAD0, VK_INSERT},     {SDL_SCANCODE_KP_1, VK_NUMPAD0 + 1, VK_END},
    {SDL_SCANCODE_KP_2, VK_NUMPAD0 + 2, VK_DOWN},   {SDL_SCANCODE_KP_3, VK_NUMPAD0 + 3, VK_NEXT},
    {SDL_SCANCODE_KP_4, VK_NUMPAD0 + 4, VK_LEFT},   {SDL_SCANCODE_KP_5, VK_NUMPAD0 + 5, 0},
    {SDL_SCANCODE_KP_6, VK_NUMPAD0 + 6, VK_RIGHT},  {SDL_SCANCODE_KP_7, VK_NUMPAD0 + 7, VK_HOME},
    {SDL_SCANCODE_KP_8, VK_NUMPAD0 + 8, VK_UP},     {SDL_SCANCODE_KP_9, VK_NUMPAD0 + 9, VK_PRIOR},
    {SDL_SCANCODE_KP_PERIOD, VK_DECIMAL, VK_DELETE}};

/// A key that types a letter or a sign, as a US keyboard has it.
struct TypingKey {
    SDL_Scancode place;
    SDL_Keycode symbol;
    std::uint8_t code;
};
constexpr TypingKey kPunctuation[] = {
    {SDL_SCANCODE_MINUS, '-', VK_OEM_MINUS},   {SDL_SCANCODE_EQUALS, '=', VK_OEM_PLUS},
    {SDL_SCANCODE_LEFTBRACKET, '[', VK_OEM_4}, {SDL_SCANCODE_RIGHTBRACKET, ']', VK_OEM_6},
    {SDL_SCANCODE_BACKSLASH, '\\', VK_OEM_5},  {SDL_SCANCODE_SEMICOLON, ';', VK_OEM_1},
    {SDL_SCANCODE_APOSTROPHE, '\'', VK_OEM_7}, {SDL_SCANCODE_GRAVE, '`', VK_OEM_3},
    {SDL_SCANCODE_COMMA, ',', VK_OEM_COMMA},   {SDL_SCANCODE_PERIOD, '.', VK_OEM_PERIOD},
    {SDL_SCANCODE_SLASH, '/', VK_OEM_2},       {SDL_SCANCODE_NONUSBACKSLASH, '<', VK_OEM_102},
};

constexpr int kLetters = 26;

/// Letters first, then signs.
constexpr auto kTypingKeys = [] {
    std::array<TypingKey, kLetters + std::size(kPunctuation)> keys{};
    for (int i = 0; i < kLetters; ++i) {
        keys[static_cast<std::size_t>(i)] = {static_cast<SDL_Scancode>(SDL_SCANCODE_A + i), 'a' + i,
                                             static_cast<std::uint8_t>('A' + i)};
    }
    std::ranges::copy(kPunctuation, keys.begin() + kLetters);
    return keys;
}();

bool IsLatinLetter(SDL_Keycode symbol) {
    return symbol >= 'a' && symbol <= 'z';
}

bool HasLatinLetters(const LayoutSymbols& symbols) {
    return std::ranges::count_if(symbols, IsLatinLetter) > kLetters / 2;
}

std::uint8_t NamedCode(SDL_Scancode place, SDL_Keycode symbol) {
    const auto* bySymbol = std::ranges::find(kNamedKeys, symbol, &NamedKey::symbol);
    if (bySymbol != std::end(kNamedKeys)) return bySymbol->code;
    const auto* byPlace = std::ranges::find(kNamedKeys, place, &NamedKey::place);
    return byPlace != std::end(kNamedKeys) ? byPlace->code : std::uint8_t{0};
}

}  // namespace

KeyTable::KeyTable(const LayoutSymbols& symbols) {
    for (std::size_t place = 0; place < codes_.size(); ++place)
        codes_[place] = NamedCode(static_cast<SDL_Scancode>(place), symbols[place]);
    for (int i = 0; i < 12; ++i)
        codes_[static_cast<std::size_t>(SDL_SCANCODE_F1 + i)] =
            static_cast<std::uint8_t>(VK_F1 + i);
    codes_[SDL_SCANCODE_0] = '0';
    for (int i = 0; i < 9; ++i)
        codes_[static_cast<std::size_t>(SDL_SCANCODE_1 + i)] = static_cast<std::uint8_t>('1' + i);
    AssignTypingKeys(symbols);
}

void KeyTable::AssignTypingKeys(const LayoutSymbols& symbols) {
    CodeSet taken;
    const auto assign = [&](SDL_Scancode place, std::uint8_t code) {
        codes_[place] = code;
        taken.set(code);
    };
    for (const TypingKey& key : kTypingKeys)
        codes_[key.place] = 0;
    if (HasLatinLetters(symbols)) {
        for (const TypingKey& key : kTypingKeys) {
            const auto sign =
                std::ranges::find(kTypingKeys, symbols[key.place], &TypingKey::symbol);
            if (sign != kTypingKeys.end() && !taken[sign->code]) assign(key.place, sign->code);
        }
    }
    for (const TypingKey& key : kTypingKeys)
        if (codes_[key.place] == 0 && !taken[key.code]) assign(key.place, key.code);
    for (const TypingKey& key : kTypingKeys) {
        if (codes_[key.place] != 0) continue;
        const auto isFree = [&](const TypingKey& other) { return !taken[other.code]; };
        assign(key.place, std::ranges::find_if(kTypingKeys, isFree)->code);
    }
}

std::uint8_t KeyTable::CodeOf(SDL_Scancode key, bool numLock) const {
    const auto* keypad = std::ranges::find(kKeypad, key, &KeypadKey::place);
    if (keypad != std::end(kKeypad)) return numLock ? keypad->locked : keypad->unlocked;
    const auto index = static_cast<std::size_t>(key);
    return index < codes_.size() ? codes_[index] : std::uint8_t{0};
}

}  // namespace korvane
