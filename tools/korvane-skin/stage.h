#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/window/user.h"

namespace korvane {

/// The size of the game's frame.
inline constexpr SIZE kFrame{640, 480};

/// A window with an open display for the game's screens, on the headless machine. One at a time.
class StageWindow {
  public:
    StageWindow();
    ~StageWindow();
    StageWindow(const StageWindow&) = delete;
    StageWindow& operator=(const StageWindow&) = delete;

  private:
    HWND window_;
};

/// The same with everything that is shown and played, loaded from the files and in the skin that
/// are in use, without a sound device.
class Stage {
  public:
    Stage();
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// What a black frame shows after `draw`: 0x00RRGGBB, row by row. Empty when it could not be
    /// shown.
    std::vector<std::uint32_t> Show(const std::function<void()>& draw);

  private:
    StageWindow window_;
};

}  // namespace korvane
