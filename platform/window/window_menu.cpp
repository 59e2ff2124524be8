#include <utility>

#include "platform/window/desktop.h"
#include "platform/window/modal_window.h"

namespace korvane {

int ShownMenuBarHeight() {
    const Desktop& desktop = TheDesktop();
    const bool hasMenu = desktop.window && desktop.window->menu;
    const bool hidden = desktop.fullScreen || (desktop.modal && desktop.modal->IsAlone());
    return hasMenu && !hidden ? kMenuBarHeight : 0;
}

void ResetMenuBar() {
    Desktop& desktop = TheDesktop();
    const Menu* shown = ShownMenuBarHeight() != 0 ? desktop.window->menu.get() : nullptr;
    desktop.menuBar.Attach(shown, TheHost().ClientArea().Size(), TheHost().Scale());
}

void RefreshMenu() {
    MenuBar& bar = TheDesktop().menuBar;
    ShownPicture& picture = TheDesktop().picture;
    if (bar.TakeBarChange()) {
        if (bar.Attached()) {
            picture.SetOverlay(Overlay::Bar, bar.PaintBar(), {0, 0});
        } else {
            picture.RemoveOverlay(Overlay::Bar);
        }
    }
    if (!bar.TakePopupChange()) return;
    if (!bar.IsPopupOpen()) return picture.RemoveOverlay(Overlay::Popup);
    picture.SetOverlay(Overlay::Popup, bar.PaintOpenPopup(),
                       {bar.PopupPlace().left, bar.PopupPlace().top});
}

void SetMenu(HWND window, std::unique_ptr<Menu> menu) {
    if (!window) return;
    const int before = ShownMenuBarHeight();
    TheDesktop().menuBar.Attach(nullptr, {}, 1);
    window->menu = std::move(menu);
    const RECT client = TheHost().ClientArea();
    const int grown = ShownMenuBarHeight() - before;
    if (grown != 0) TheHost().SetClientSize({client.Width(), client.Height() + grown});
    ResetMenuBar();
}

HMENU GetMenu(HWND window) {
    return window ? window->menu.get() : nullptr;
}

}  // namespace korvane
