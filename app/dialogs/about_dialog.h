#pragma once

#include "platform/dialogs/dialog.h"

namespace korvane {

/// The about box: version and credits, until OK.
bool AboutDlg(HDLG dialog, std::uint32_t message, WPARAM wParam, LPARAM lParam);

}  // namespace korvane
