#include "platform/dialogs/dialog.h"

#include "platform/dialogs/dialog_window.h"
#include "platform/window/desktop.h"

namespace korvane {

int DialogBox(const DLGTEMPLATE& source, HWND owner, DLGPROC procedure) {
    if (!owner || owner != TheDesktop().window.get() || !procedure) return -1;
    return Dialog(*owner, source, procedure).RunToEnd();
}

void EndDialog(HDLG dialog, int result) {
    if (dialog) dialog->End(result);
}

void MessageBox(HDLG /*owner*/, const std::string& text, const std::string& caption,
                std::uint32_t flags) {
    MessageBox(TheDesktop().window.get(), text, caption, flags);
}

}  // namespace korvane
