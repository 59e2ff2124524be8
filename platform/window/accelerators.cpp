#include "platform/window/accelerators.h"

#include "platform/window/desktop.h"

namespace korvane {
namespace {

/// True when the window's menu greys the command at this moment.
bool IsGreyedInMenu(HWND window, std::uint16_t command) {
    if (!window->menu || !window->menu->Find(command)) return false;
    TheDesktop().OnPopupOpening(window->menu->PopupOf(command));
    // The program may have replaced the menu.
    const MenuItem* item = window->menu ? window->menu->Find(command) : nullptr;
    return item && item->greyed;
}

}  // namespace

bool TranslateAccelerator(HWND window, std::span<const ACCEL> table, const MSG& message) {
    static_assert(FSHIFT == int{kModShift} && FCONTROL == int{kModControl} && FALT == int{kModAlt});
    if (!window || (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN))
        return false;
    const std::uint8_t held = TheDesktop().modifiers;
    for (const ACCEL& entry : table) {
        if (entry.key != message.wParam || entry.modifiers != held) continue;
        // A key held a moment too long would undo what its press did.
        const bool repeated = (message.lParam & kRepeatedKey) != 0;
        if (!repeated && !IsGreyedInMenu(window, entry.command))
            SendMessage(window, WM_COMMAND, MakeParam(entry.command, 1), 0);
        return true;
    }
    return false;
}

}  // namespace korvane
