#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/window/user.h"

namespace korvane {

/// The size of the game's frame.
inline constexpr SIZE kFrame{640, 480};

/// Everything the game's screens need to be drawn, on the headless machine and without a sound
/// device: display, pictures, font, menu and high scores. One at a time.
class Stage {
  public:
    /// Opens all of it, from the files and in the skin that are in use.
    Stage();
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// What a black frame shows after `draw`: 0x00RRGGBB, row by row. Empty when it could not be
    /// shown.
    std::vector<std::uint32_t> Show(const std::function<void()>& draw);

  private:
    HWND window_;
};

}  // namespace korvane
