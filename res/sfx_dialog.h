#pragma once

#include <array>

#include "platform/dialogs/dialog_template.h"
#include "res/dialog_ids.h"

namespace korvane {

inline constexpr std::array kSfxDlgItems = {
    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::GroupBox, "Events", {7, 4, 127, 62}},
    DLGITEMTEMPLATE{kItemSfxMenuButtons, ControlKind::CheckBox, "Menu buttons", {14, 14, 114, 10}},
    DLGITEMTEMPLATE{kItemSfxLevelChange, ControlKind::CheckBox, "Level change", {14, 24, 114, 10}},
    DLGITEMTEMPLATE{
        kItemSfxFigureLanding, ControlKind::CheckBox, "Figure landing", {14, 34, 114, 10}},
    DLGITEMTEMPLATE{kItemSfxRowsDone, ControlKind::CheckBox, "Rows done", {14, 44, 114, 10}},
    DLGITEMTEMPLATE{kItemSfxRotate, ControlKind::CheckBox, "Rotate", {14, 54, 114, 10}},
    DLGITEMTEMPLATE{kItemSfxEnabled, ControlKind::CheckBox, "Enabled", {7, 70, 44, 10}},
    DLGITEMTEMPLATE{IDOK, ControlKind::PushButton, "OK", {58, 69, 36, 14}, kDefaultButton},
    DLGITEMTEMPLATE{IDCANCEL, ControlKind::PushButton, "Cancel", {98, 69, 36, 14}},
};

inline constexpr DLGTEMPLATE kSfxDlg = {"Sfx Settings", "MS Sans Serif", 141, 87, kSfxDlgItems};

}  // namespace korvane
