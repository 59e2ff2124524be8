#include "platform/window/modal_window.h"

#include <algorithm>
#include <utility>

#include "platform/window/desktop.h"

namespace korvane {
namespace {

/// What could not be shown is tried again after this time.
constexpr std::uint32_t kNextTryMs = 100;

/// Where a box or dialog may lie: over the game's picture.
RECT PictureArea() {
    if (const auto& fullScreen = TheDesktop().fullScreen)
        return {0, 0, fullScreen->cx, fullScreen->cy};
    const RECT client = TheHost().ClientArea();
    return {0, ShownMenuBarHeight(), client.Width(), client.Height()};
}

RECT CentredIn(const RECT& area, SIZE size) {
    const POINT corner{area.left + (area.Width() - size.cx) / 2,
                       area.top + (area.Height() - size.cy) / 2};
    return RectAt(corner, size);
}

void PlaceWindow(const RECT& area) {
    TheHost().SetClientSize(area.Size());
    TheHost().SetClientOrigin({area.left, area.top});
}

/// The program will not see the releases of the keys that are held now, so they are sent at once.
void ReleaseHeldKeys() {
    auto& held = TheDesktop().heldAsPlainKey;
    for (std::size_t key = 0; key < held.size(); ++key)
        if (held[key]) Enqueue(WM_KEYUP, key, 0);
    held.reset();
}

std::optional<std::uint32_t> Sooner(std::optional<std::uint32_t> a,
                                    std::optional<std::uint32_t> b) {
    return a && b ? std::min(a, b) : a ? a : b;
}

}  // namespace

ModalWindow::ModalWindow(Window& window, Overlay overlay)
    : window_(window), overlay_(overlay), alone_(!window.shown && !TheDesktop().fullScreen) {}

ModalWindow::~ModalWindow() {
    if (TheDesktop().modal == this) TheDesktop().modal = outer_;
}

void ModalWindow::Run() {
    if (IsEndWaiting()) return;
    Desktop& desktop = TheDesktop();
    outer_ = std::exchange(desktop.modal, this);
    if (outer_) outer_->OnInputLost();
    if (!outer_ && window_.active) SendMessage(&window_, WM_ACTIVATE, WA_INACTIVE, 0);
    ReleaseHeldKeys();
    Open();
    RunLoop();
    desktop.modal = outer_;
    TheHost().AcceptText(false);
    Leave();
    if (outer_) return outer_->UpdateTextInput();
    if (window_.active) SendMessage(&window_, WM_ACTIVATE, WA_ACTIVE, 0);
}

void ModalWindow::Open() {
    if (FillsWindow()) {
        areaBefore_ = TheHost().ClientArea();
        Arrange();
        TheHost().SetTitle(Title());
        PlaceWindow(CentredIn(TheHost().WorkArea(), size_));
    }
    ResetMenuBar();  // closes an open popup; without the game's picture there is no bar
    Arrange();
    Refresh();
    UpdateTextInput();
    if (!window_.shown && !outer_) TheHost().ShowWindow(true);
}

void ModalWindow::RunLoop() {
    while (open_) {
        Tick();
        MSG message;
        const bool waits = PeekMessage(message, PM_NOREMOVE);
        if (!open_ || IsEndWaiting()) return;
        const ShownPicture& picture = TheDesktop().picture;
        if (picture.IsBroken()) return OnNotShown();
        if (!waits) {
            std::optional<std::uint32_t> toNextTry;
            if (picture.HasUnsent()) toNextTry = kNextTryMs;
            TheHost().WaitForEvent(Sooner(Sooner(TimeToNextTimer(), TimeToTick()), toNextTry));
        } else if (PeekMessage(message, PM_REMOVE)) {
            DispatchMessage(message);
        }
    }
}

/// Nobody could answer a dialog that is not seen.
void ModalWindow::OnNotShown() {
    TheHost().Report(Title(), "This dialog cannot be shown. The program ends.");
    Enqueue(WM_CLOSE, 0, 0);
}

void ModalWindow::Leave() {
    if (!window_.shown && !outer_) TheHost().ShowWindow(false);
    if (FillsWindow()) {
        window_.hiddenAgain = true;
        TheHost().SetTitle(window_.title);
        PlaceWindow(areaBefore_);
    }
    TheDesktop().picture.RemoveOverlay(overlay_);
    if (outer_) outer_->Changed();  // it may use the same overlay
    ResetMenuBar();
    RefreshMenu();
    if (window_.shown) TheDesktop().picture.Update();
}

void ModalWindow::UpdateTextInput() {
    if (TheDesktop().modal == this) TheHost().AcceptText(open_ && WantsText());
}

bool ModalWindow::Takes(const HostEvent& event) {
    switch (event.type) {
        case HostEventType::KeyDown:
            OnKeyDown(event);
            return true;
        case HostEventType::KeyUp:
            OnKeyUp(event);
            return true;
        case HostEventType::Text:
            OnCharacter(event.character);
            return true;
        case HostEventType::MouseMove:
        case HostEventType::LeftButtonDown:
        case HostEventType::LeftButtonUp:
        case HostEventType::Wheel:
            OnPointer(event, {event.x - corner_.x, event.y - corner_.y});
            return true;
        case HostEventType::CloseRequested:
            return OnCloseBox() || !alone_;
        case HostEventType::Terminate:
        case HostEventType::SoundFound:
            return false;
        default:
            return OnWindowEvent(event);
    }
}

bool ModalWindow::OnWindowEvent(const HostEvent& event) {
    switch (event.type) {
        case HostEventType::Activated:
        case HostEventType::Deactivated:
            window_.active = window_.shown && event.type == HostEventType::Activated;
            OnInputLost();
            return true;
        case HostEventType::Resized:
        case HostEventType::Restored:
            for (ModalWindow* each = this; each; each = each->outer_)
                each->Arrange();
            TheDesktop().picture.Expose(Place());
            return alone_;
        default:
            return alone_;
    }
}

void ModalWindow::Arrange() {
    scale_ = TheDesktop().fullScreen ? 1 : TheHost().Scale();
    Changed();
    if (FillsWindow()) {
        const RECT workArea = TheHost().WorkArea();
        size_ = LayOut(/*framed=*/false, workArea.Size(), scale_);
        corner_ = {0, 0};
        return;
    }
    const RECT area = PictureArea();
    size_ = LayOut(/*framed=*/true, area.Size(), scale_);
    const RECT centred = CentredIn(area, size_);
    const bool moved = moved_;
    MoveTo(moved ? corner_ : POINT{centred.left, centred.top});
    moved_ = moved;
}

void ModalWindow::MoveTo(POINT corner) {
    if (FillsWindow()) return;
    const RECT area = PictureArea();
    // A box that is larger than the picture shows its top left part.
    const POINT nearest{std::max(area.left, std::min(corner.x, area.right - size_.cx)),
                        std::max(area.top, std::min(corner.y, area.bottom - size_.cy))};
    moved_ = true;
    if (std::exchange(corner_, nearest) != nearest) Changed();
}

void ModalWindow::Refresh() {
    // One of the same kind uses the same overlay; it is drawn again when this one closes.
    if (outer_ && outer_->overlay_ != overlay_) outer_->Refresh();
    if (std::exchange(changed_, false))
        TheDesktop().picture.SetOverlay(overlay_, Paint(scale_), corner_);
}

}  // namespace korvane
