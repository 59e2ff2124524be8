#include "app/dialogs/about_dialog.h"

namespace korvane {

bool AboutDlg(HDLG dialog, std::uint32_t message, WPARAM wParam, LPARAM /*lParam*/) {
    if (message == WM_INITDIALOG) return true;
    if (message != WM_COMMAND || LOWORD(wParam) != IDOK) return false;
    EndDialog(dialog, 1);
    return true;
}

}  // namespace korvane
