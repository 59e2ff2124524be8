#pragma once

#include <cstdint>
#include <span>

#include "platform/window/messages.h"

namespace korvane {

enum AcceleratorModifier : std::uint8_t { FSHIFT = 1, FCONTROL = 2, FALT = 4 };

/// One accelerator key: these modifiers (no other ones) and this virtual key give this command.
struct ACCEL {
    std::uint8_t modifiers;
    std::uint8_t key;
    std::uint16_t command;
};

/// Sends WM_COMMAND for a key press that the table lists; true when the table lists it. The
/// modifiers are those held when the message's key was pressed. For a command of the window's menu
/// WM_INITMENUPOPUP is sent first, and a command that is greyed then is not delivered.
bool TranslateAccelerator(HWND window, std::span<const ACCEL> table, const MSG& message);

}  // namespace korvane
