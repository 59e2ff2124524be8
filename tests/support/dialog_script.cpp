#include "tests/support/dialog_script.h"

#include <utility>

#include "platform/desktop.h"
#include "platform/dialog_window.h"
#include "platform/headless/headless_host.h"

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

}  // namespace korvane
