#include "tests/support/menu_window.h"

#include <array>
#include <utility>

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

constexpr std::array kAccelerators = {
    ACCEL{0, VK_F5, kOpen},
};

constexpr std::uint32_t kStyle = WS_CAPTION | WS_THICKFRAME;
constexpr SIZE kFrame = {640, 480};

POINT CentreOf(const RECT& area) {
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

PopupLayout LayoutOf(std::size_t popup) {
    const Menu menu(kTestMenu);
    const RECT title = LayOutTitles(menu, Headless().Scale())[popup];
    return LayOutPopup(menu.popups[popup], {title.left, kMenuBarHeight},
                       {kFrame.cx, kFrame.cy + kMenuBarHeight}, Headless().Scale());
}

}  // namespace

const MENUTEMPLATE kTestMenu = kPopups;

MenuWindowTest::~MenuWindowTest() {
    back_.reset();
    front_.reset();
    directDraw_.reset();
    DestroyWindow(window_);
}

void MenuWindowTest::Start() {
    Headless().Reset();
    RegisterClass({"menu test", Procedure, kTestMenu});
    const RECT outer = AdjustWindowRectEx({0, 0, kFrame.cx, kFrame.cy}, kStyle, true, 0);
    window_ = CreateWindowEx(0, "menu test", "Title", kStyle, {100, 100}, outer.Size());
    ASSERT_NE(window_, nullptr);
    ShowWindow(window_);
    OpenDisplay();
    Pump();
    DrawFrame();
    received_.clear();
}

void MenuWindowTest::OpenDisplay() {
    IDirectDraw7* created = nullptr;
    DirectDrawCreateEx(created);
    directDraw_.reset(created);
    directDraw_->SetCooperativeLevel(window_, DDSCL_NORMAL);
    DDSURFACEDESC2 description;
    description.flags = DDSD_CAPS;
    description.caps = DDSCAPS_PRIMARYSURFACE;
    IDirectDrawSurface7* surface = nullptr;
    directDraw_->CreateSurface(description, surface);
    front_.reset(surface);
    description.flags = DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT;
    description.width = static_cast<std::uint32_t>(kFrame.cx);
    description.height = static_cast<std::uint32_t>(kFrame.cy);
    description.caps = DDSCAPS_OFFSCREENPLAIN | DDSCAPS_3DDEVICE;
    directDraw_->CreateSurface(description, surface);
    back_.reset(surface);
    IDirectDrawClipper* clipper = nullptr;
    directDraw_->CreateClipper(0, clipper);
    front_->SetClipper(clipper);
    clipper->Release();
}

LRESULT MenuWindowTest::Procedure(HWND window, std::uint32_t message, WPARAM wParam,
                                  LPARAM lParam) {
    received_.push_back({window, message, wParam, lParam});
    if (message == WM_INITMENUPOPUP)
        EnableMenuItem(reinterpret_cast<HMENU>(wParam), kGreyed, MF_GRAYED);
    return DefWindowProc(window, message, wParam, lParam);
}

void MenuWindowTest::Pump() {
    MSG message;
    while (PeekMessage(message, PM_REMOVE))
        if (!TranslateAccelerator(window_, kAccelerators, message)) DispatchMessage(message);
}

void MenuWindowTest::DrawFrame() {
    DDBLTFX effects;
    effects.fillColor = 0x123456;
    back_->Blt(nullptr, nullptr, nullptr, DDBLT_COLORFILL, &effects);
    const RECT client = GetClientRect(window_);
    const POINT corner = ClientToScreen(window_, {0, 0});
    const RECT target{corner.x, corner.y, corner.x + client.right, corner.y + client.bottom};
    ASSERT_EQ(front_->Blt(&target, back_.get(), nullptr, DDBLT_WAIT, nullptr), S_OK);
}

HostEvent MenuWindowTest::Key(std::uint8_t key, bool down, std::uint8_t modifiers, bool repeat) {
    return {.type = down ? HostEventType::KeyDown : HostEventType::KeyUp,
            .key = key,
            .modifiers = modifiers,
            .repeat = repeat};
}

HostEvent MenuWindowTest::Mouse(HostEventType type, POINT at) {
    return {.type = type, .x = at.x, .y = at.y};
}

void MenuWindowTest::Push(std::initializer_list<HostEvent> events) {
    for (const HostEvent& event : events)
        Headless().Push(event);
    Pump();
}

POINT MenuWindowTest::TitleCentre(std::size_t popup) {
    return CentreOf(LayOutTitles(Menu(kTestMenu), Headless().Scale())[popup]);
}

POINT MenuWindowTest::ItemCentre(std::size_t popup, std::size_t item) {
    return CentreOf(LayoutOf(popup).items[item]);
}

std::size_t MenuWindowTest::ShownPopup() {
    for (std::size_t popup = 0; popup < kPopups.size(); ++popup) {
        const RECT place = LayoutOf(popup).place;
        // The dark corner of the border, which nothing else draws there.
        if (Headless().PixelAt(place.right - 1, place.bottom - 1) == kDarkColour) return popup;
    }
    return kNoEntry;
}

std::vector<MSG> MenuWindowTest::Received(std::uint32_t message) {
    std::vector<MSG> found;
    for (const MSG& received : received_)
        if (received.message == message) found.push_back(received);
    return found;
}

std::vector<std::uint16_t> MenuWindowTest::TakeCommands() {
    std::vector<std::uint16_t> commands;
    for (const MSG& message : Received(WM_COMMAND))
        commands.push_back(LOWORD(message.wParam));
    received_.clear();
    return commands;
}

}  // namespace korvane
