#include "tests/support/menu_window.h"

#include <array>

#include "platform/window/accelerators.h"
#include "platform/window/desktop.h"

namespace korvane {
namespace {

constexpr std::array kFileItems = {
    MENUITEMTEMPLATE{kOpen, "&Open\tF5"},
    kMenuSeparator,
    MENUITEMTEMPLATE{kClose, "&Close"},
    MENUITEMTEMPLATE{kGreyed, "&Greyed\tF6"},
};
constexpr std::array kEditItems = {
    MENUITEMTEMPLATE{kUndo, "&Undo"},
    MENUITEMTEMPLATE{kUndoAll, "&Undo all"},
};
constexpr std::array kPopups = {
    MENUPOPUPTEMPLATE{"&File", kFileItems},
    MENUPOPUPTEMPLATE{"&Edit", kEditItems},
};
constexpr std::array kAccelerators = {ACCEL{0, VK_F5, kOpen}};

constexpr SIZE kFrame = {640, 480};

POINT CentreOf(const RECT& area) {
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

PopupLayout LayoutOf(std::size_t popup) {
    const Menu menu(kPopups);
    const RECT title = LayOutTitles(menu, 1)[popup];
    return LayOutPopup(menu.popups[popup], {title.left, kMenuBarHeight},
                       {kFrame.cx, kFrame.cy + kMenuBarHeight}, 1);
}

void ShowGamePicture() {
    static const std::vector<std::uint32_t> pixels(std::size_t{640} * 480, 0x123456);
    const RECT all = RectAt({}, kFrame);
    TheDesktop().picture.ShowGame({pixels.data(), kFrame.cx, kFrame.cy, kFrame.cx},
                                  RectAt({0, kMenuBarHeight}, kFrame), std::span(&all, 1));
}

}  // namespace

void MenuWindowTest::SetUp() {
    constexpr std::uint32_t kStyle = WS_CAPTION | WS_THICKFRAME;
    Headless().Reset();
    RegisterClass({"menu test", Procedure, kPopups});
    const RECT outer = AdjustWindowRectEx(RectAt({}, kFrame), kStyle, true, 0);
    window_ = CreateWindowEx(0, "menu test", "Title", kStyle, {100, 100}, outer.Size());
    ASSERT_NE(window_, nullptr);
    ShowWindow(window_);
    Push({});
    ShowGamePicture();
    received_.clear();
}

void MenuWindowTest::TearDown() {
    DestroyWindow(window_);
    TheDesktop().quitCode.reset();
    SetFullScreenPicture(std::nullopt);
}

LRESULT MenuWindowTest::Procedure(HWND window, std::uint32_t message, WPARAM wParam,
                                  LPARAM lParam) {
    if (message != WM_GETMINMAXINFO) received_.push_back({message, wParam, lParam});
    if (message == WM_INITMENUPOPUP) {
        EnableMenuItem(reinterpret_cast<HMENU>(wParam), kGreyed, MF_GRAYED);
        if (replacesMenu_) SetMenu(window, LoadMenu(kPopups));
    }
    return DefWindowProc(window, message, wParam, lParam);
}

void MenuWindowTest::Push(std::initializer_list<HostEvent> events) {
    for (const HostEvent& event : events)
        Headless().Push(event);
    for (MSG message; PeekMessage(message, PM_REMOVE);)
        if (!TranslateAccelerator(window_, kAccelerators, message)) DispatchMessage(message);
}

POINT MenuWindowTest::TitleCentre(std::size_t popup) {
    return CentreOf(LayOutTitles(Menu(kPopups), 1)[popup]);
}

POINT MenuWindowTest::ItemCentre(std::size_t popup, std::size_t item) {
    return CentreOf(LayoutOf(popup).items[item]);
}

std::size_t MenuWindowTest::ShownPopup() {
    for (std::size_t popup = 0; popup < kPopups.size(); ++popup) {
        const RECT place = LayoutOf(popup).place;
        // The corner of the border, which nothing else draws there.
        if (Headless().PixelAt(place.right - 1, place.bottom - 1) == kEdgeColour) return popup;
    }
    return kNoEntry;
}

std::vector<Seen> MenuWindowTest::Received(std::uint32_t message) {
    std::vector<Seen> found = received_;
    std::erase_if(found, [=](const Seen& each) { return each.message != message; });
    return found;
}

std::vector<std::uint16_t> MenuWindowTest::TakeCommands() {
    std::vector<std::uint16_t> commands;
    for (const Seen& message : Received(WM_COMMAND))
        commands.push_back(LOWORD(message.wParam));
    received_.clear();
    return commands;
}

}  // namespace korvane
