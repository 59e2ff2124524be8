#include <utility>

#include "platform/window/desktop.h"
#include "platform/window/menu_bar.h"
#include "platform/window/modal_window.h"
#include "platform/window/shown_picture.h"

namespace korvane {
namespace {

/// Tells the window's program what its menu does.
class WindowAsOwner final : public MenuOwner {
  public:
    void BeforePopup(std::size_t popup) override {
        const HWND window = TheDesktop().window.get();
        SendMessage(window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(GetMenu(window)),
                    static_cast<LPARAM>(popup));
    }
    void Chosen(std::uint16_t command) override {
        PostMessage(TheDesktop().window.get(), WM_COMMAND, command, 0);
    }
};

MenuBar& TheMenuBar() {
    static WindowAsOwner owner;
    static MenuBar bar(owner);
    return bar;
}

/// True when the window's menu greys the command at this moment.
bool IsGreyedInMenu(HWND window, std::uint16_t command) {
    if (!window->menu || !window->menu->Find(command)) return false;
    WindowAsOwner().BeforePopup(window->menu->PopupOf(command));
    const MenuItem* item = window->menu ? window->menu->Find(command) : nullptr;
    return item && item->greyed;
}

}  // namespace

int ShownMenuBarHeight() {
    const Desktop& desktop = TheDesktop();
    const bool hasMenu = desktop.window && desktop.window->menu;
    const bool hidden = desktop.fullScreen || (desktop.modal && desktop.modal->IsAlone());
    return hasMenu && !hidden ? kMenuBarHeight : 0;
}

bool MenuTakes(const HostEvent& event) {
    return TheMenuBar().Takes(event);
}

void ResetMenuBar() {
    const RECT client = TheHost().ClientArea();
    const Menu* shown = ShownMenuBarHeight() != 0 ? TheDesktop().window->menu.get() : nullptr;
    TheMenuBar().Attach(shown, client.Size(), TheHost().Scale());
}

void RefreshMenu() {
    MenuBar& bar = TheMenuBar();
    ShownPicture& picture = TheShownPicture();
    if (bar.TakeBarChange()) {
        if (bar.Attached()) {
            picture.Put(Overlay::Bar, bar.PaintBar(), {0, 0});
        } else {
            picture.Remove(Overlay::Bar);
        }
    }
    if (!bar.TakePopupChange()) return;
    if (!bar.IsPopupOpen()) return picture.Remove(Overlay::Popup);
    picture.Put(Overlay::Popup, bar.PaintOpenPopup(),
                {bar.PopupPlace().left, bar.PopupPlace().top});
}

// Menus of the window. ---------------------------------------------------------------------------

void SetMenu(HWND window, std::unique_ptr<Menu> menu) {
    if (!window) return;
    const int before = ShownMenuBarHeight();
    TheMenuBar().Attach(nullptr, {}, 1);
    window->menu = std::move(menu);
    const RECT client = TheHost().ClientArea();
    const int grown = ShownMenuBarHeight() - before;
    if (grown != 0) TheHost().SetClientSize({client.Width(), client.Height() + grown});
    ResetMenuBar();
}

HMENU GetMenu(HWND window) {
    return window ? window->menu.get() : nullptr;
}

// Accelerators. ----------------------------------------------------------------------------------

bool TranslateAccelerator(HWND window, std::span<const ACCEL> table, const MSG& message) {
    static_assert(FSHIFT == int{kModShift} && FCONTROL == int{kModControl} && FALT == int{kModAlt});
    if (!window || (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN))
        return false;
    const std::uint8_t held = TheDesktop().modifiers;
    for (const ACCEL& entry : table) {
        if (entry.key != message.wParam || entry.modifiers != held) continue;
        // Held a moment too long, it would undo what it did, or do it again to what it led to.
        const bool repeated = (message.lParam & kRepeatedKey) != 0;
        if (!repeated && !IsGreyedInMenu(window, entry.command))
            SendMessage(window, WM_COMMAND, MakeParam(entry.command, 1), 0);
        return true;
    }
    return false;
}

}  // namespace korvane
