#include "tests/support/dialog_script.h"

#include <iterator>
#include <utility>

#include "platform/base/virtual_keys.h"
#include "platform/dialogs/dialog_window.h"
#include "platform/headless/headless_host.h"
#include "platform/window/desktop.h"

namespace korvane {

DialogScript::DialogScript(std::vector<std::function<void()>> steps) : steps_(std::move(steps)) {
    Headless().WhenWaiting([this] {
        if (next_ < steps_.size()) {
            steps_[next_++]();
        } else {
            missed_ = true;
            Headless().Push({.type = HostEventType::Terminate});
        }
        // A step that only looks has nothing to wake the program by.
        Headless().PushKey(0, /*down=*/false);
    });
}

DialogScript::~DialogScript() {
    Headless().WhenWaiting(nullptr);
}

HDLG ShownDialog() {
    return dynamic_cast<Dialog*>(TheDesktop().modal);
}

POINT CentreOfItem(std::uint16_t id) {
    const HDLG dialog = ShownDialog();
    const HCTL control = GetDlgItem(dialog, id);
    if (!control) return {-1, -1};
    const RECT& place = control->Place();
    return {dialog->Corner().x + (place.left + place.right) / 2,
            dialog->Corner().y + (place.top + place.bottom) / 2};
}

void ClickItem(std::uint16_t id) {
    const POINT at = CentreOfItem(id);
    for (const auto type : {HostEventType::LeftButtonDown, HostEventType::LeftButtonUp})
        Headless().Push({.type = type, .x = at.x, .y = at.y});
}

void PressKeys(std::initializer_list<std::uint8_t> keys, std::uint8_t modifiers) {
    for (const std::uint8_t key : keys) {
        Headless().PushKey(key, /*down=*/true, modifiers);
        Headless().PushKey(key, /*down=*/false, modifiers);
    }
}

HostEvent RandomDialogEvent(std::mt19937& random) {
    using enum HostEventType;
    constexpr std::uint8_t kKeys[] = {VK_TAB,  VK_TAB,    VK_UP,    VK_DOWN, VK_LEFT,   VK_RIGHT,
                                      VK_HOME, VK_END,    VK_PRIOR, VK_NEXT, VK_SPACE,  VK_BACK,
                                      'A',     'C',       'X',      'V',     'P',       'Q',
                                      'L',     VK_DELETE, VK_F4,    VK_MENU, VK_RETURN, VK_ESCAPE};
    constexpr HostEventType kTypes[] = {KeyDown,        KeyDown,      KeyDown, KeyUp, MouseMove,
                                        LeftButtonDown, LeftButtonUp, Wheel,   Text,  Deactivated,
                                        Activated,      Resized,      Moved};
    const auto below = [&](int limit) { return static_cast<int>(random() % unsigned(limit)); };
    HostEvent event;
    event.type = kTypes[below(std::size(kTypes))];
    event.key =
        below(8) == 0 ? static_cast<std::uint8_t>(below(256)) : kKeys[below(std::size(kKeys))];
    event.modifiers = static_cast<std::uint8_t>(below(4) == 0 ? below(8) : 0);
    event.repeat = below(4) == 0;
    event.x = below(640);
    event.y = below(500);
    event.amount = below(9) - 4;
    event.character = static_cast<char32_t>(below(8) == 0   ? below(0x11'0000)
                                            : below(3) == 0 ? below(0x2000)
                                                            : 'a' + below(26));
    return event;
}

}  // namespace korvane
