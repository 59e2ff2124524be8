#include "platform/window/desktop.h"

namespace korvane {

Desktop& TheDesktop() {
    static Desktop desktop;
    return desktop;
}

void Desktop::OnMenuEntered() {
    SendMessage(window.get(), WM_ENTERMENULOOP, 0, 0);
}

void Desktop::OnPopupOpening(std::size_t popup) {
    SendMessage(window.get(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(GetMenu(window.get())),
                static_cast<LPARAM>(popup));
}

void Desktop::OnCommandChosen(std::uint16_t command) {
    PostMessage(window.get(), WM_COMMAND, command, 0);
}

void SetFullScreenPicture(std::optional<SIZE> pictureSize) {
    Desktop& desktop = TheDesktop();
    desktop.fullScreen = pictureSize;
    ResetMenuBar();
    RefreshMenu();
    desktop.picture.SetFullScreen(pictureSize);
}

}  // namespace korvane
