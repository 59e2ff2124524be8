#pragma once

#include <cstdint>

namespace korvane {

/// Virtual-key codes of the keys that the game knows. Letters and digits of the main keyboard are
/// their ASCII capitals and digits; the numeric keypad's digits count up from VK_NUMPAD0.
enum VirtualKey : std::uint8_t {
    VK_BACK = 0x08,
    VK_TAB = 0x09,
    VK_RETURN = 0x0D,
    VK_SHIFT = 0x10,
    VK_CONTROL = 0x11,
    VK_MENU = 0x12,  ///< either Alt key
    VK_PAUSE = 0x13,
    VK_CAPITAL = 0x14,
    VK_ESCAPE = 0x1B,
    VK_SPACE = 0x20,
    VK_PRIOR = 0x21,
    VK_NEXT = 0x22,
    VK_END = 0x23,
    VK_HOME = 0x24,
    VK_LEFT = 0x25,
    VK_UP = 0x26,
    VK_RIGHT = 0x27,
    VK_DOWN = 0x28,
    VK_INSERT = 0x2D,
    VK_DELETE = 0x2E,
    VK_NUMPAD0 = 0x60,
    VK_NUMPAD9 = 0x69,
    VK_MULTIPLY = 0x6A,
    VK_ADD = 0x6B,
    VK_SUBTRACT = 0x6D,
    VK_DECIMAL = 0x6E,
    VK_DIVIDE = 0x6F,
    VK_F1 = 0x70,
    VK_F2 = 0x71,
    VK_F3 = 0x72,
    VK_F4 = 0x73,
    VK_F5 = 0x74,
    VK_F9 = 0x78,
    VK_F10 = 0x79,
    VK_F11 = 0x7A,
    VK_F12 = 0x7B,
    VK_NUMLOCK = 0x90,
    VK_SCROLL = 0x91,
    VK_OEM_1 = 0xBA,       ///< ; on a US keyboard
    VK_OEM_PLUS = 0xBB,    ///< = and +
    VK_OEM_COMMA = 0xBC,   ///< ,
    VK_OEM_MINUS = 0xBD,   ///< -
    VK_OEM_PERIOD = 0xBE,  ///< .
    VK_OEM_2 = 0xBF,       ///< / on a US keyboard
    VK_OEM_3 = 0xC0,       ///< ` on a US keyboard
    VK_OEM_4 = 0xDB,       ///< [ on a US keyboard
    VK_OEM_5 = 0xDC,       ///< \ on a US keyboard
    VK_OEM_6 = 0xDD,       ///< ] on a US keyboard
    VK_OEM_7 = 0xDE,       ///< ' on a US keyboard
    VK_OEM_102 = 0xE2,     ///< the extra key beside left Shift on 102-key keyboards
};

}  // namespace korvane
