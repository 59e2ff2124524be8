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
    MENUITEMTEMPLATE{kUndoAll, "Undo &all"},
};
constexpr std::array kPopups = {
    MENUPOPUPTEMPLATE{"&File", kFileItems},
    MENUPOPUPTEMPLATE{"&Edit", kEditItems},
};

constexpr std::array kAccelerators = {
    ACCEL{0, VK_F5, kOpen},
    ACCEL{0, 0x75, kGreyed},
    ACCEL{0, 0x76, kNotInMenu},
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

MenuWindowTest::MenuWindowTest() {
    Headless().Reset();
    received_.clear();
    onMessage_ = nullptr;
}

MenuWindowTest::~MenuWindowTest() {
    CloseDisplay();
    DestroyWindow(window_);
    onMessage_ = nullptr;
}

void MenuWindowTest::Start(int scale) {
    Headless().SetScale(scale);
    StartHidden();
    ShowWindow(window_);
    OpenDisplay();
    Pump();
    DrawFrame(kGameColour);
    received_.clear();
}

void MenuWindowTest::StartHidden() {
    RegisterClass({"menu test", Procedure, kTestMenu});
    const RECT outer = AdjustWindowRectEx({0, 0, kFrame.cx, kFrame.cy}, kStyle, true, 0);
    window_ = CreateWindowEx(0, "menu test", "Title", kStyle, {100, 100},
                             {outer.Width(), outer.Height()});
    ASSERT_NE(window_, nullptr);
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

void MenuWindowTest::OpenFullScreen() {
    CloseDisplay();
    IDirectDraw7* created = nullptr;
    DirectDrawCreateEx(created);
    directDraw_.reset(created);
    directDraw_->SetCooperativeLevel(window_, DDSCL_EXCLUSIVE | DDSCL_FULLSCREEN);
    ASSERT_EQ(directDraw_->SetDisplayMode(640, 480, 16, 0, 0), S_OK);
    DDSURFACEDESC2 description;
    description.flags = DDSD_CAPS | DDSD_BACKBUFFERCOUNT;
    description.backBufferCount = 1;
    description.caps = DDSCAPS_PRIMARYSURFACE | DDSCAPS_FLIP;
    IDirectDrawSurface7* surface = nullptr;
    directDraw_->CreateSurface(description, surface);
    front_.reset(surface);
    front_->GetAttachedSurface({DDSCAPS_BACKBUFFER}, surface);
    surface->AddRef();
    back_.reset(surface);
    SetMenu(window_, nullptr);
}

void MenuWindowTest::CloseDisplay() {
    back_.reset();
    front_.reset();
    if (directDraw_) directDraw_->SetCooperativeLevel(window_, DDSCL_NORMAL);
    directDraw_.reset();
}

LRESULT MenuWindowTest::Procedure(HWND window, std::uint32_t message, WPARAM wParam,
                                  LPARAM lParam) {
    const MSG received{window, message, wParam, lParam};
    received_.push_back(received);
    if (message == WM_INITMENUPOPUP)
        EnableMenuItem(reinterpret_cast<HMENU>(wParam), kGreyed, MF_GRAYED);
    if (onMessage_) onMessage_(received);
    return DefWindowProc(window, message, wParam, lParam);
}

void MenuWindowTest::Pump() {
    MSG message;
    while (PeekMessage(message, PM_REMOVE))
        if (!TranslateAccelerator(window_, kAccelerators, message)) DispatchMessage(message);
}

void MenuWindowTest::DrawFrame(std::uint32_t colour, const RECT& patch, std::uint32_t patchColour) {
    DDBLTFX effects;
    effects.fillColor = colour;
    back_->Blt(nullptr, nullptr, nullptr, DDBLT_COLORFILL, &effects);
    effects.fillColor = patchColour;
    if (!patch.IsEmpty()) back_->Blt(&patch, nullptr, nullptr, DDBLT_COLORFILL, &effects);
    ShowBackBuffer();
}

void MenuWindowTest::ShowBackBuffer() {
    if (Headless().IsFullScreen()) {
        ASSERT_EQ(front_->Flip(nullptr, 0), S_OK);
        return;
    }
    const RECT client = GetClientRect(window_);
    const POINT corner = ClientToScreen(window_, {0, 0});
    const RECT target{corner.x, corner.y, corner.x + client.right, corner.y + client.bottom};
    ASSERT_EQ(front_->Blt(&target, back_.get(), nullptr, DDBLT_WAIT, nullptr), S_OK);
}

HostEvent MenuWindowTest::Key(std::uint8_t key, bool down, std::uint8_t modifiers, bool repeat) {
    HostEvent event;
    event.type = down ? HostEventType::KeyDown : HostEventType::KeyUp;
    event.key = key;
    event.modifiers = modifiers;
    event.repeat = repeat;
    return event;
}

HostEvent MenuWindowTest::Mouse(HostEventType type, POINT at) {
    HostEvent event;
    event.type = type;
    event.x = at.x;
    event.y = at.y;
    return event;
}

void MenuWindowTest::Push(std::initializer_list<HostEvent> events) {
    for (const HostEvent& event : events)
        Headless().Push(event);
    Pump();
}

void MenuWindowTest::Tap(std::uint8_t key, std::uint8_t modifiers) {
    Push({Key(key, true, modifiers), Key(key, false, modifiers)});
}

void MenuWindowTest::TapAlt() {
    Push({Key(VK_MENU, true, kModAlt), Key(VK_MENU, false)});
}

void MenuWindowTest::Click(POINT at) {
    Push({Mouse(HostEventType::MouseMove, at), Mouse(HostEventType::LeftButtonDown, at),
          Mouse(HostEventType::LeftButtonUp, at)});
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
        const int scale = Headless().Scale();
        // The dark corner of the border, which nothing else draws there.
        if (Headless().PixelAt((place.right - 1) * scale, (place.bottom - 1) * scale) ==
            kDarkColour)
            return popup;
    }
    return kNoEntry;
}

std::uint32_t MenuWindowTest::GamePixel(int x, int y) {
    return Headless().PixelAt(x, y + kMenuBarHeight);
}

int MenuWindowTest::GamePixelsOtherThan(std::uint32_t colour) {
    int count = 0;
    for (int y = 0; y < 480; ++y)
        for (int x = 0; x < 640; ++x)
            count += GamePixel(x, y) != colour;
    return count;
}

HostEvent MenuWindowTest::RandomEvent(std::mt19937& random) {
    using enum HostEventType;
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    constexpr std::uint8_t kKeys[] = {VK_MENU, VK_F10,  VK_ESCAPE, VK_RETURN, VK_LEFT, VK_RIGHT,
                                      VK_UP,   VK_DOWN, 'F',       'E',       'C',     VK_F5};
    constexpr HostEventType kRare[] = {Deactivated, Activated, Resized, Minimized, Restored, Moved};
    HostEvent event;
    const int kind = below(100);
    if (kind == 0) {
        event.type = kRare[below(std::size(kRare))];
    } else if (kind < 50) {
        event.type = kind < 30 ? KeyDown : KeyUp;
        event.key = kKeys[below(std::size(kKeys))];
        event.modifiers = below(3) == 0 ? kModAlt : 0;
        event.repeat = kind < 3;
    } else {
        event.type = kind < 70 ? MouseMove : kind < 85 ? LeftButtonDown : LeftButtonUp;
        event.x = below(300) - 10;
        event.y = below(200) - 10;
    }
    return event;
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
