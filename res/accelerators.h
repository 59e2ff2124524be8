#pragma once

#include <array>

#include "platform/window/accelerators.h"
#include "res/commands.h"

namespace korvane {

/// Resource 103: the keys that give commands.
inline constexpr std::array kAccelerators = {
    ACCEL{FCONTROL | FSHIFT, 'A', kCmdAdvancedSettings},
    ACCEL{FCONTROL | FSHIFT, 'G', kCmdShowFps},
    ACCEL{FCONTROL | FSHIFT, 'H', kCmdHighScores},
    ACCEL{FCONTROL | FSHIFT, 'S', kCmdSfxSettings},
    ACCEL{0, VK_ESCAPE, kCmdGotoMenu},
    ACCEL{0, VK_F1, kCmdLeftRestart},
    ACCEL{0, VK_F11, kCmdToggleFullScreen},
    ACCEL{0, VK_F12, kCmdGotoMenu},
    ACCEL{0, VK_F2, kCmdRightRestart},
    ACCEL{0, VK_F3, kCmdNewGame},
    ACCEL{FALT, VK_RETURN, kCmdToggleFullScreen},
    ACCEL{FCONTROL | FSHIFT, 'X', kCmdExit},
};

/// The keys that change the window's size. Some layouts have the plus sign on Shift.
inline constexpr std::array kSizeKeys = {
    ACCEL{FCONTROL, VK_OEM_PLUS, kCmdLargerWindow},
    ACCEL{FCONTROL | FSHIFT, VK_OEM_PLUS, kCmdLargerWindow},
    ACCEL{FCONTROL, VK_ADD, kCmdLargerWindow},
    ACCEL{FCONTROL, VK_OEM_MINUS, kCmdSmallerWindow},
    ACCEL{FCONTROL, VK_SUBTRACT, kCmdSmallerWindow},
    ACCEL{FCONTROL, '0', kCmdUsualWindow},
    ACCEL{FCONTROL, VK_NUMPAD0, kCmdUsualWindow},
};

}  // namespace korvane
