#pragma once

#include <array>

#include "platform/window/menu.h"
#include "res/commands.h"

namespace korvane {

inline constexpr std::array kMainMenuItems = {
    MENUITEMTEMPLATE{kCmdNewGame, "&New Game\tF3"},
    kMenuSeparator,
    MENUITEMTEMPLATE{kCmdOnePlayer, "1 &Player"},
    MENUITEMTEMPLATE{kCmdTwoPlayers, "2 P&layers"},
    kMenuSeparator,
    MENUITEMTEMPLATE{kCmdQuakes, "&Quakes"},
    MENUITEMTEMPLATE{kCmdBattle, "&Battle"},
    kMenuSeparator,
    MENUITEMTEMPLATE{kCmdMusic, "&Music"},
    MENUITEMTEMPLATE{kCmdSoundEffects, "&Sound Effects"},
    kMenuSeparator,
    MENUITEMTEMPLATE{kCmdShowFps, "S&how Fps\tCtrl+Shift+G"},
    MENUITEMTEMPLATE{kCmdToggleFullScreen, "Toggle &Full-Screen\tAlt+Enter"},
    kMenuSeparator,
    MENUITEMTEMPLATE{kCmdHighScores, "&High scores\tCtrl+Shift+H"},
    MENUITEMTEMPLATE{kCmdGotoMenu, "&Goto menu\tESC"},
    MENUITEMTEMPLATE{kCmdExit, "E&xit\tCtrl+Shift+X"},
};

inline constexpr std::array kLeftMenuItems = {
    MENUITEMTEMPLATE{kCmdLeftRestart, "&Restart game\tF1"},
    kMenuSeparator,
    MENUITEMTEMPLATE{kCmdLeftEasy, "&Easy"},
    MENUITEMTEMPLATE{kCmdLeftMedium, "&Medium"},
    MENUITEMTEMPLATE{kCmdLeftHard, "&Hard"},
    kMenuSeparator,
    MENUITEMTEMPLATE{kCmdLeftClockwise, "Clockwise"},
    MENUITEMTEMPLATE{kCmdLeftTimeBased, "Time based"},
};

inline constexpr std::array kRightMenuItems = {
    MENUITEMTEMPLATE{kCmdRightRestart, "&Restart game\tF2"},
    kMenuSeparator,
    MENUITEMTEMPLATE{kCmdRightEasy, "&Easy"},
    MENUITEMTEMPLATE{kCmdRightMedium, "&Medium"},
    MENUITEMTEMPLATE{kCmdRightHard, "&Hard"},
    kMenuSeparator,
    MENUITEMTEMPLATE{kCmdRightClockwise, "Clockwise"},
    MENUITEMTEMPLATE{kCmdRightTimeBased, "Time based"},
};

inline constexpr std::array kSettingsMenuItems = {
    MENUITEMTEMPLATE{kCmdAdvancedSettings, "A&dvanced Settings\tCtrl+Shift+A"},
    MENUITEMTEMPLATE{kCmdSfxSettings, "Sfx s&ettings\tCtrl+Shift+S"},
};

inline constexpr std::array kHelpMenuItems = {
    MENUITEMTEMPLATE{kCmdAbout, "&About Korvane v1.5"},
};

/// Resource 102: the window menu.
inline constexpr std::array kWindowMenu = {
    MENUPOPUPTEMPLATE{"&Main", kMainMenuItems},          //
    MENUPOPUPTEMPLATE{"&Left", kLeftMenuItems},          //
    MENUPOPUPTEMPLATE{"&Right", kRightMenuItems},        //
    MENUPOPUPTEMPLATE{"&Settings", kSettingsMenuItems},  //
    MENUPOPUPTEMPLATE{"&Help", kHelpMenuItems},          //
};

}  // namespace korvane
