#pragma once

#include <array>

#include "platform/dialogs/dialog_template.h"
#include "res/dialog_ids.h"

namespace korvane {

inline constexpr std::array kAdvancedDlgItems = {
    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::GroupBox, "Skins", {7, 4, 94, 76}},
    DLGITEMTEMPLATE{kItemSkins, ControlKind::ListBox, {}, {13, 15, 82, 60}, kSorted},
    DLGITEMTEMPLATE{
        IDC_STATIC, ControlKind::GroupBox, "Fullscreen display mode", {107, 4, 132, 76}},
    DLGITEMTEMPLATE{kItemDisplayModes, ControlKind::ListBox, {}, {113, 15, 120, 60}},

    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::GroupBox, "Drop speed", {7, 83, 126, 58}},
    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::Text, "Delay between down (ms)", {13, 93, 116, 9}},
    DLGITEMTEMPLATE{kItemDropDelay, ControlKind::HorizontalScrollBar, {}, {13, 104, 88, 10}},
    DLGITEMTEMPLATE{kItemDropDelayText, ControlKind::Edit, {}, {105, 102, 22, 13}, kDisabled},
    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::Text, "Magnitude (pixels)", {13, 118, 116, 9}},
    DLGITEMTEMPLATE{
        kItemMagnitude2, ControlKind::RadioButton, "x 2", {13, 128, 27, 10}, kFirstOfGroup},
    DLGITEMTEMPLATE{kItemMagnitude4, ControlKind::RadioButton, "x 4", {42, 128, 27, 10}},
    DLGITEMTEMPLATE{kItemMagnitude8, ControlKind::RadioButton, "x 8", {71, 128, 27, 10}},
    DLGITEMTEMPLATE{kItemMagnitude16, ControlKind::RadioButton, "x 16", {99, 128, 32, 10}},

    DLGITEMTEMPLATE{
        kItemLeftPreview, ControlKind::CheckBox, "Left preview", {140, 84, 82, 10}, kFirstOfGroup},
    DLGITEMTEMPLATE{kItemRightPreview, ControlKind::CheckBox, "Right preview", {140, 100, 82, 10}},
    DLGITEMTEMPLATE{
        kItemLeftStatistics, ControlKind::CheckBox, "Left statistics", {140, 116, 82, 10}},
    DLGITEMTEMPLATE{
        kItemRightStatistics, ControlKind::CheckBox, "Right statistics", {140, 132, 82, 10}},
    DLGITEMTEMPLATE{
        kItemIndividualQuakes, ControlKind::CheckBox, "Individual quakes", {224, 84, 90, 10}},
    DLGITEMTEMPLATE{
        kItemCountUpScore, ControlKind::CheckBox, "Counting up score", {224, 100, 90, 10}},
    DLGITEMTEMPLATE{
        kItemScrollingPieces, ControlKind::CheckBox, "Scrolling pieces", {224, 116, 90, 10}},

    DLGITEMTEMPLATE{IDOK, ControlKind::PushButton, "OK", {247, 8, 64, 15}, kDefaultButton},
    DLGITEMTEMPLATE{IDCANCEL, ControlKind::PushButton, "Cancel", {247, 28, 64, 15}},
};

inline constexpr DLGTEMPLATE kAdvancedDlg = {"Advanced settings", "MS Sans Serif", 318, 146,
                                             kAdvancedDlgItems};

}  // namespace korvane
