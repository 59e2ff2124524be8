#pragma once

#include <cstddef>
#include <string_view>

#include "platform/base/types.h"
#include "platform/draw/canvas.h"

namespace korvane {

enum class ButtonLook { Up, Down };

/// What a push button shows.
struct ButtonFace {
    std::string_view text;
    std::size_t underlined = TextLook::kNothing;
    ButtonLook look = ButtonLook::Up;
    bool isDefault = false;  ///< Return presses it: with a bright line round it
    bool focused = false;
    bool enabled = true;
};

/// The ground and the edges of anything that can be pressed.
void PaintButtonGround(Canvas& canvas, const RECT& place, bool held);

void PaintButton(Canvas& canvas, const RECT& place, const ButtonFace& face);

}  // namespace korvane
