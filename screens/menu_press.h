#pragma once

#include <cstdint>
#include <span>

#include "screens/menu_screen.h"

namespace korvane {

/// When a press takes effect: at once, or a moment later, so that the button's pressed look is
/// seen before the screen changes.
enum class Effect : bool { AtOnce, Delayed };

/// A button of the menu, the code of a press on it and what the press does.
struct MenuPress {
    MenuButton button;
    MenuAction action;
    void (*run)();
    Effect effect = Effect::AtOnce;
};

/// The buttons of the main view in the order in which a press tests them.
std::span<const MenuPress> MainViewPresses();

/// The press with this code; null for a code that needs nothing done.
const MenuPress* FindMenuPress(std::int32_t action);

}  // namespace korvane
