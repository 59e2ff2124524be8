#include "platform/sdl/sdl_keys.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>

#include "platform/base/virtual_keys.h"

namespace korvane {
namespace {

/// The typing keys in rows from the digits down, the extra key beside left Shift last.
// clang-format off
constexpr SDL_Scancode kRows[] = {
    SDL_SCANCODE_GRAVE, SDL_SCANCODE_1, SDL_SCANCODE_2, SDL_SCANCODE_3, SDL_SCANCODE_4,
    SDL_SCANCODE_5, SDL_SCANCODE_6, SDL_SCANCODE_7, SDL_SCANCODE_8, SDL_SCANCODE_9,
    SDL_SCANCODE_0, SDL_SCANCODE_MINUS, SDL_SCANCODE_EQUALS, SDL_SCANCODE_Q, SDL_SCANCODE_W,
    SDL_SCANCODE_E, SDL_SCANCODE_R, SDL_SCANCODE_T, SDL_SCANCODE_Y, SDL_SCANCODE_U,
    SDL_SCANCODE_I, SDL_SCANCODE_O, SDL_SCANCODE_P, SDL_SCANCODE_LEFTBRACKET,
    SDL_SCANCODE_RIGHTBRACKET, SDL_SCANCODE_BACKSLASH, SDL_SCANCODE_A, SDL_SCANCODE_S,
    SDL_SCANCODE_D, SDL_SCANCODE_F, SDL_SCANCODE_G, SDL_SCANCODE_H, SDL_SCANCODE_J,
    SDL_SCANCODE_K, SDL_SCANCODE_L, SDL_SCANCODE_SEMICOLON, SDL_SCANCODE_APOSTROPHE,
    SDL_SCANCODE_Z, SDL_SCANCODE_X, SDL_SCANCODE_C, SDL_SCANCODE_V, SDL_SCANCODE_B,
    SDL_SCANCODE_N, SDL_SCANCODE_M, SDL_SCANCODE_COMMA, SDL_SCANCODE_PERIOD,
    SDL_SCANCODE_SLASH, SDL_SCANCODE_NONUSBACKSLASH};
// clang-format on

// What the layouts write on those keys, unshifted.
constexpr std::u32string_view kAmerican = U"`1234567890-=qwertyuiop[]\\asdfghjkl;'zxcvbnm,./<";
constexpr std::u32string_view kGerman = U"^1234567890ß´qwertzuiopü+#asdfghjklöäyxcvbnm,.-<";
constexpr std::u32string_view kFrench = U"²&é\"'(-è_çà)=azertyuiop^$*qsdfghjklmùwxcvbn,;:!<";
constexpr std::u32string_view kDvorak = U"`1234567890[]',.pyfgcrl/=\\aoeuidhtns-;qjkxbmwvz<";
constexpr std::u32string_view kRussian = U"ё1234567890-=йцукенгшщзхъ\\фывапролджэячсмитьбю./";

/// The layout's signs; every other key as SDL has it on all layouts.
LayoutSymbols Symbols(std::u32string_view rows) {
    LayoutSymbols symbols{};
    for (std::size_t place = 0; place < symbols.size(); ++place)
        symbols[place] = SDL_SCANCODE_TO_KEYCODE(static_cast<int>(place));
    symbols[SDL_SCANCODE_RETURN] = SDLK_RETURN;
    symbols[SDL_SCANCODE_ESCAPE] = SDLK_ESCAPE;
    symbols[SDL_SCANCODE_BACKSPACE] = SDLK_BACKSPACE;
    symbols[SDL_SCANCODE_TAB] = SDLK_TAB;
    symbols[SDL_SCANCODE_SPACE] = SDLK_SPACE;
    symbols[SDL_SCANCODE_DELETE] = SDLK_DELETE;
    for (std::size_t i = 0; i < std::size(kRows); ++i)
        symbols[kRows[i]] = static_cast<SDL_Keycode>(rows[i]);
    return symbols;
}

TEST(KeyTableTest, LettersAndSignsGoByWhatTheLayoutWritesOnTheKey) {
    const struct {
        std::string_view layout;
        std::u32string_view rows;
        SDL_Scancode key;
        std::uint8_t code;
    } kCases[] = {
        {"American", kAmerican, SDL_SCANCODE_Q, 'Q'},
        {"American", kAmerican, SDL_SCANCODE_SEMICOLON, VK_OEM_1},
        {"American", kAmerican, SDL_SCANCODE_NONUSBACKSLASH, VK_OEM_102},
        {"German", kGerman, SDL_SCANCODE_Y, 'Z'},
        {"German", kGerman, SDL_SCANCODE_Z, 'Y'},
        {"German", kGerman, SDL_SCANCODE_SEMICOLON, VK_OEM_1},  // ö
        {"German", kGerman, SDL_SCANCODE_SLASH, VK_OEM_MINUS},  // -
        {"German", kGerman, SDL_SCANCODE_MINUS, VK_OEM_2},      // ß: the code that is left
        {"French", kFrench, SDL_SCANCODE_Q, 'A'},
        {"French", kFrench, SDL_SCANCODE_SEMICOLON, 'M'},
        {"French", kFrench, SDL_SCANCODE_M, VK_OEM_COMMA},      // ,
        {"French", kFrench, SDL_SCANCODE_1, '1'},               // &
        {"French", kFrench, SDL_SCANCODE_6, '6'},               // -
        {"French", kFrench, SDL_SCANCODE_MINUS, VK_OEM_MINUS},  // )
        {"Dvorak", kDvorak, SDL_SCANCODE_Q, VK_OEM_7},
        {"Russian", kRussian, SDL_SCANCODE_Q, 'Q'},               // й
        {"Russian", kRussian, SDL_SCANCODE_SEMICOLON, VK_OEM_1},  // ж
        {"Russian", kRussian, SDL_SCANCODE_SLASH, VK_OEM_2},      // .
    };
    for (const auto& [layout, rows, key, code] : kCases)
        EXPECT_EQ(KeyTable(Symbols(rows)).CodeOf(key, true), code) << layout << " key " << key;
}

TEST(KeyTableTest, EveryTypingKeyHasACodeOfItsOwnOnEveryLayout) {
    const std::u32string allAlike(std::size(kRows), U'x');
    for (const std::u32string_view rows :
         {kAmerican, kGerman, kFrench, kDvorak, kRussian, std::u32string_view(allAlike)}) {
        const KeyTable table(Symbols(rows));
        std::map<int, SDL_Scancode> keys;
        for (const SDL_Scancode key : kRows)
            keys[table.CodeOf(key, false)] = key;
        EXPECT_EQ(keys.size(), std::size(kRows));
        EXPECT_FALSE(keys.contains(0));
    }
}

TEST(KeyTableTest, OtherKeysGoByTheirNameOrTheirPlace) {
    LayoutSymbols symbols = Symbols(kAmerican);
    symbols[SDL_SCANCODE_CAPSLOCK] = SDLK_LCTRL;  // exchanged by the user
    symbols[SDL_SCANCODE_LCTRL] = SDLK_CAPSLOCK;
    symbols[SDL_SCANCODE_RALT] = SDLK_MODE;
    symbols[SDL_SCANCODE_PAUSE] = SDLK_UNKNOWN;
    const KeyTable table(symbols);
    const struct {
        SDL_Scancode key;
        std::uint8_t locked;
        std::uint8_t unlocked;
    } kCases[] = {
        {SDL_SCANCODE_KP_PERIOD, VK_DECIMAL, VK_DELETE},
        {SDL_SCANCODE_KP_ENTER, VK_RETURN, VK_RETURN},
        {SDL_SCANCODE_KP_DIVIDE, VK_DIVIDE, VK_DIVIDE},
        {SDL_SCANCODE_LEFT, VK_LEFT, VK_LEFT},
        {SDL_SCANCODE_RSHIFT, VK_SHIFT, VK_SHIFT},
        {SDL_SCANCODE_CAPSLOCK, VK_CONTROL, VK_CONTROL},
        {SDL_SCANCODE_LCTRL, VK_CAPITAL, VK_CAPITAL},
        {SDL_SCANCODE_RALT, VK_MENU, VK_MENU},
        {SDL_SCANCODE_PAUSE, VK_PAUSE, VK_PAUSE},
        {SDL_SCANCODE_F12, VK_F12, VK_F12},
        {SDL_SCANCODE_UNKNOWN, 0, 0},
        {static_cast<SDL_Scancode>(SDL_NUM_SCANCODES), 0, 0},
    };
    for (const auto& [key, locked, unlocked] : kCases) {
        EXPECT_EQ(table.CodeOf(key, true), locked) << key;
        EXPECT_EQ(table.CodeOf(key, false), unlocked) << key;
    }
    // From 1 on; SDL's places of the keypad end with 0.
    constexpr std::uint8_t kUnlocked[] = {VK_END,   VK_DOWN, VK_NEXT, VK_LEFT,  0,
                                          VK_RIGHT, VK_HOME, VK_UP,   VK_PRIOR, VK_INSERT};
    for (int i = 0; i < 10; ++i) {
        const auto key = static_cast<SDL_Scancode>(SDL_SCANCODE_KP_1 + i);
        EXPECT_EQ(table.CodeOf(key, true), VK_NUMPAD0 + (i + 1) % 10);
        EXPECT_EQ(table.CodeOf(key, false), kUnlocked[i]) << "keypad " << (i + 1) % 10;
    }
}

}  // namespace
}  // namespace korvane
