#include "app/dialogs/level_settings_dialog.h"

#include <cstdlib>
#include <string>

#include "game/rules/level_table.h"
#include "platform/dialogs/dialog_items.h"
#include "res/dialog_ids.h"

namespace korvane {
namespace {

/// What stands in a box after so many characters is not read.
constexpr std::size_t kLongestNumber = 31;
/// Of every value; milliseconds, pixels per second, figures and seconds alike.
constexpr long kLargestValue = 4999;

void ShowNumber(HDLG dialog, std::uint16_t box, std::uint32_t value) {
    SetDlgItemText(dialog, box, std::to_string(value));
}

/// True when the box held an acceptable number, which then stands in `value`.
bool ReadNumber(HDLG dialog, std::uint16_t box, std::uint32_t& value) {
    const std::string text = GetDlgItemText(dialog, box, kLongestNumber);
    const long number = std::strtol(text.c_str(), nullptr, 10);
    if (number < 1 || number > kLargestValue) return false;
    value = static_cast<std::uint32_t>(number);
    return true;
}

/// Every box with its value in the table: the version, then column by column.
template <typename Visit>
void VisitBoxes(LevelTableValues& table, Visit visit) {
    visit(kItemVersion, table.version);
    for (std::size_t difficulty = 0; difficulty < kDifficultyCount; ++difficulty)
        for (std::size_t level = 0; level < kLevelCount; ++level)
            visit(kScrollingItems[difficulty].OfLevel(level),
                  table.scrollingPxPerSecond[level][difficulty]);
    for (std::size_t difficulty = 0; difficulty < kDifficultyCount; ++difficulty)
        for (std::size_t level = 0; level < kLevelCount; ++level)
            visit(kNormalItems[difficulty].OfLevel(level), table.normalMs[level][difficulty]);
    for (std::size_t level = 0; level < kLevelCount; ++level)
        visit(kFiguresItems.OfLevel(level), table.figuresForLevel[level]);
    for (std::size_t level = 0; level < kLevelCount; ++level)
        visit(kSecondsItems.OfLevel(level), table.secondsForLevel[level]);
}

}  // namespace

bool LevelSettingsDlg(HDLG dialog, std::uint32_t message, WPARAM wParam, LPARAM /*lParam*/) {
    if (message == WM_INITDIALOG) {
        VisitBoxes(theLevelTable, [dialog](std::uint16_t box, std::uint32_t value) {
            ShowNumber(dialog, box, value);
        });
        return false;  // the keyboard goes to no box until the user chooses one
    }
    if (message != WM_COMMAND) return false;
    const std::uint16_t button = LOWORD(wParam);
    if (button != IDOK && button != IDCANCEL) return false;
    if (button == IDOK) {
        VisitBoxes(theLevelTable, [dialog](std::uint16_t box, std::uint32_t& value) {
            ReadNumber(dialog, box, value);
        });
    }
    EndDialog(dialog, 1);
    return true;
}

}  // namespace korvane
