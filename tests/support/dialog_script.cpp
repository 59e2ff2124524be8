#include "tests/support/dialog_script.h"

#include <iterator>
#include <utility>

#include "platform/base/virtual_keys.h"
#include "platform/dialogs/dialog_window.h"
#include "platform/headless/headless_host.h"
#include "platform/window/desktop.h"

namespace korvane {

HostEvent Key(std::uint8_t key, bool down, std::uint8_t modifiers, bool repeat) {
    return {.type = down ? HostEventType::KeyDown : HostEventType::KeyUp,
            .key = key,
            .modifiers = modifiers,
            .repeat = repeat};
}

HostEvent Mouse(HostEventType type, POINT at) {
    return {.type = type, .x = at.x, .y = at.y};
}

void PressKeys(std::initializer_list<std::uint8_t> keys, std::uint8_t modifiers) {
    for (const std::uint8_t key : keys)
        for (const bool down : {true, false})
            Headless().PushKey(key, down, modifiers);
}

Act::Act(const char32_t* text) : do_([=] { Headless().PushText(text); }) {}

Act Alt(int key) {
    return {key, kModAlt};
}

Act Ctrl(int key) {
    return {key, kModControl};
}

Act Shift(int key) {
    return {key, kModShift};
}

Act Times(int count, int key) {
    return [=] {
        for (int i = 0; i < count; ++i)
            PressKeys({static_cast<std::uint8_t>(key)});
    };
}

MousePlace Item(std::uint16_t id) {
    return [=] {
        const RECT dialog = ShownDialog()->Place();
        const RECT& place = GetDlgItem(ShownDialog(), id)->Place();
        return POINT{dialog.left + (place.left + place.right) / 2,
                     dialog.top + (place.top + place.bottom) / 2};
    };
}

Act ClickOn(const MousePlace& at) {
    return Drag(at, at);
}

Act ClickOn(std::uint16_t id) {
    return ClickOn(Item(id));
}

Act Drag(const MousePlace& from, const MousePlace& to) {
    return [=] {
        Headless().Push(Mouse(HostEventType::LeftButtonDown, from()));
        Headless().Push(Mouse(HostEventType::MouseMove, to()));
        Headless().Push(Mouse(HostEventType::LeftButtonUp, to()));
    };
}

Act Hold(const MousePlace& at, std::uint32_t time) {
    return [=] {
        Headless().Push(Mouse(HostEventType::LeftButtonDown, at()));
        Headless().PushLater(time, Mouse(HostEventType::LeftButtonUp, at()));
    };
}

DialogScript::DialogScript(Acts acts) : acts_(std::move(acts)) {
    Headless().WhenWaiting([this] {
        if (next_ < acts_.size()) {
            acts_[next_++]();
        } else {
            missed_ = true;
            Headless().Push({.type = HostEventType::Terminate});
        }
        // An act that only looks has nothing to wake the program by.
        Headless().PushKey(0, /*down=*/false);
    });
}

DialogScript::~DialogScript() {
    Headless().WhenWaiting(nullptr);
}

HDLG ShownDialog() {
    return dynamic_cast<Dialog*>(TheDesktop().modal);
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
