#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "platform/dialogs/dialog_template.h"
#include "res/dialog_ids.h"

namespace korvane {

inline constexpr std::size_t kLevelRows = 10;

/// One column of ten edit boxes under its label.
struct LevelColumn {
    std::string_view label;
    LevelItems items;
    std::int16_t x;
    std::int16_t width;
    bool hasLevel0 = true;  ///< otherwise level 0's box is disabled
};

inline constexpr std::array kLevelColumns = {
    LevelColumn{"Easy", kScrollingItems[0], 33, 32},
    LevelColumn{"Medium", kScrollingItems[1], 67, 32},
    LevelColumn{"Hard", kScrollingItems[2], 101, 32},
    LevelColumn{"Easy", kNormalItems[0], 144, 32},
    LevelColumn{"Medium", kNormalItems[1], 178, 32},
    LevelColumn{"Hard", kNormalItems[2], 212, 32},
    LevelColumn{"Figures", kFiguresItems, 255, 42, false},
    LevelColumn{"Time(s)", kSecondsItems, 299, 42, false},
};

inline constexpr std::array kLevelDlgFrame = {
    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::Text, "Level", {4, 16, 24, 9}, kAlignCentre},
    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::GroupBox, "Scrolling (Pixels/s)", {29, 4, 108, 167}},
    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::GroupBox, "Normal (millisec)", {140, 4, 108, 167}},
    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::GroupBox, "Levelchange", {251, 4, 95, 167}},
};

inline constexpr std::array kLevelDlgFoot = {
    DLGITEMTEMPLATE{IDC_STATIC, ControlKind::Text, "Version", {7, 178, 34, 9}},
    DLGITEMTEMPLATE{kItemVersion, ControlKind::Edit, {}, {43, 176, 34, 13}},
    DLGITEMTEMPLATE{IDOK, ControlKind::PushButton, "OK", {230, 176, 56, 15}, kDefaultButton},
    DLGITEMTEMPLATE{IDCANCEL, ControlKind::PushButton, "Cancel", {290, 176, 56, 15}},
};

/// Frame, level numbers, columns with their labels, foot.
inline constexpr auto kLevelSettingsDlgItems = [] {
    constexpr std::string_view kDigits = "0123456789";
    constexpr std::int16_t kFirstRow = 26, kRowHeight = 14;
    std::array<DLGITEMTEMPLATE, kLevelDlgFrame.size() + kLevelRows +
                                    kLevelColumns.size() * (1 + kLevelRows) + kLevelDlgFoot.size()>
        items{};
    auto next = std::ranges::copy(kLevelDlgFrame, items.begin()).out;
    const auto rowOf = [](std::size_t level) {
        return static_cast<std::int16_t>(kFirstRow + static_cast<int>(level) * kRowHeight);
    };
    for (std::size_t level = 0; level < kLevelRows; ++level)
        *next++ = {IDC_STATIC,
                   ControlKind::Text,
                   kDigits.substr(level, 1),
                   {4, static_cast<std::int16_t>(rowOf(level) + 2), 24, 9},
                   kAlignCentre};
    for (const LevelColumn& column : kLevelColumns) {
        *next++ = {IDC_STATIC,
                   ControlKind::Text,
                   column.label,
                   {column.x, 16, column.width, 9},
                   kAlignCentre};
        for (std::size_t level = 0; level < kLevelRows; ++level)
            *next++ = {column.items.OfLevel(level),
                       ControlKind::Edit,
                       {},
                       {column.x, rowOf(level), column.width, 13},
                       level > 0 || column.hasLevel0 ? kPlain : kDisabled};
    }
    std::ranges::copy(kLevelDlgFoot, next);
    return items;
}();

inline constexpr DLGTEMPLATE kLevelSettingsDlg = {"Level Settings", "MS Sans Serif", 353, 196,
                                                  kLevelSettingsDlgItems};

}  // namespace korvane
