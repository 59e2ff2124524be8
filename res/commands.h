#pragma once

#include <cstdint>

namespace korvane {

/// Command ids of the window menu and of accelerator keys.
enum Command : std::uint16_t {
    kCmdAbout = 1000,
    kCmdExit = 1001,
    kCmdToggleFullScreen = 1002,
    kCmdRightRestart = 40001,
    kCmdRightEasy = 40002,
    kCmdRightMedium = 40003,
    kCmdRightHard = 40004,
    kCmdRightClockwise = 40005,
    kCmdRightTimeBased = 40006,
    kCmdNewGame = 40007,
    kCmdQuakes = 40008,
    kCmdBattle = 40009,
    kCmdMusic = 40010,
    kCmdSoundEffects = 40011,
    kCmdLeftRestart = 40012,
    kCmdLeftEasy = 40013,
    kCmdLeftMedium = 40014,
    kCmdLeftHard = 40015,
    kCmdLeftClockwise = 40016,
    kCmdLeftTimeBased = 40017,
    kCmdGotoMenu = 40018,
    kCmdHighScores = 40019,
    kCmdOnePlayer = 40020,
    kCmdTwoPlayers = 40021,
    kCmdAdvancedSettings = 40024,
    kCmdShowFps = 40025,
    kCmdLevelSettings = 40026,  ///< neither the menu nor a key gives it
    kCmdSfxSettings = 40027,
    kCmdLargerWindow = 40101,  ///< these three come from keys alone
    kCmdSmallerWindow = 40102,
    kCmdUsualWindow = 40103,
};

}  // namespace korvane
