#pragma once

#include <array>

#include "platform/dialogs/dialog_template.h"
#include "res/dialog_ids.h"

namespace korvane {

inline constexpr std::array kAboutDlgItems = {
    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::GroupBox, "Credits", {7, 4, 100, 105}},
    DLGITEMTEMPLATE{IDC_STATIC,
                    ControlKind::Text,
                    "Programming\nMorlax\n\nGraphics\nMorlax, Tibren\n\nMusic\nOskive",
                    {14, 14, 88, 68}},
    DLGITEMTEMPLATE{
        IDC_STATIC, ControlKind::Text, "Audio system used\nBASS 1.5a", {14, 88, 88, 18}},
    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::Icon, {}, {163, 7, 21, 20}},
    DLGITEMTEMPLATE{kItemProductText,
                    ControlKind::Text,
                    "Korvane version 1.53\n\nMay 11th, 2002\n\nkorvane.example",
                    {114, 37, 119, 44},
                    kAlignCentre},
    DLGITEMTEMPLATE{IDOK, ControlKind::PushButton, "&OK", {148, 93, 52, 15}, kDefaultButton},
};

inline constexpr DLGTEMPLATE kAboutDlg = {"About Korvane v1.5", "MS Shell Dlg", 240, 114,
                                          kAboutDlgItems};

}  // namespace korvane
