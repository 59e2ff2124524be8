#pragma once

#include <cstdint>

namespace korvane {

/// Command ids of accelerator keys.
enum Command : std::uint16_t {
    kCmdExit = 1001,
    kCmdToggleFullScreen = 1002,
    kCmdRightRestart = 40001,
    kCmdNewGame = 40007,
    kCmdLeftRestart = 40012,
    kCmdGotoMenu = 40018,
    kCmdHighScores = 40019,
    kCmdShowFps = 40025,
};

}  // namespace korvane
