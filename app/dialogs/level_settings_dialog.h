#pragma once

#include "platform/dialogs/dialog.h"

namespace korvane {

/// Edits the level table, value by value. A box that holds no number from 1 to 4999 leaves its
/// value as it is.
bool LevelSettingsDlg(HDLG dialog, std::uint32_t message, WPARAM wParam, LPARAM lParam);

}  // namespace korvane
