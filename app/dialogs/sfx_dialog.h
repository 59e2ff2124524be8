#pragma once

#include "platform/dialogs/dialog.h"

namespace korvane {

/// Which events are heard (`sfxMask`), and whether sound effects play at all (`soundEffects`).
bool SfxDlg(HDLG dialog, std::uint32_t message, WPARAM wParam, LPARAM lParam);

}  // namespace korvane
