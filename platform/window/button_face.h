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
    bool isDefault = false;  ///< Return presses it: with a black line round it
    bool focused = false;
    bool enabled = true;
};

void PaintButton(Canvas& canvas, const RECT& place, const ButtonFace& face);

}  // namespace korvane
