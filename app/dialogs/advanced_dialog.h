#pragma once

#include "platform/dialogs/dialog.h"

namespace korvane {

/// The skin, the full-screen mode, the drop speed and what the boards show. While
/// `showAdvancedAtStart` is set it cannot be cancelled.
bool AdvancedDlg(HDLG dialog, std::uint32_t message, WPARAM wParam, LPARAM lParam);

}  // namespace korvane
