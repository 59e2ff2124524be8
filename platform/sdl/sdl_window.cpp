#include <SDL.h>

#include <algorithm>
#include <utility>

#include "platform/sdl/desktop_density.h"
#include "platform/sdl/sdl_host.h"

namespace korvane {
namespace {

/// Between the last change of the window's size and the moment when it counts as done.
constexpr std::uint64_t kSettleMs = 250;

/// What a window manager's frame may take, before there is one.
constexpr SIZE kLikelyFrame = {10, 36};

/// A size reduced, if it must be, until it fits into another one; its shape stays.
SIZE FittedInto(SIZE size, SIZE room) {
    if (size.cx <= room.cx && size.cy <= room.cy) return size;
    const std::int64_t narrow = std::int64_t{room.cx} * size.cy;
    const std::int64_t flat = std::int64_t{room.cy} * size.cx;
    if (narrow < flat) return {room.cx, std::max(1, static_cast<int>(narrow / size.cx))};
    return {std::max(1, static_cast<int>(flat / size.cy)), room.cy};
}

/// The place for a length from `at` on that moves least to lie within a range.
int MovedInto(int at, int length, int from, int range) {
    return std::max(from, std::min(at, from + range - length));
}

}  // namespace

SdlHost::Borders SdlHost::FrameBorders() const {
    Borders frame;
    SDL_GetWindowBordersSize(window_.get(), &frame.top, &frame.left, &frame.bottom, &frame.right);
    return frame;
}

/// True when a window manager has framed the window. Without one we must make it as large as the
/// screen ourselves, and small again.
bool SdlHost::HasFrame() const {
    const Borders frame = FrameBorders();
    return frame.top != 0 || frame.left != 0;
}

SIZE SdlHost::FullSize() const {
    return {clientSize_.cx * scale_, clientSize_.cy * scale_};
}

/// Where a client area may lie for the work area to hold its frame as well; in screen pixels.
SDL_Rect SdlHost::ClientRoom() const {
    SDL_Rect room{};
    SDL_GetDisplayUsableBounds(DisplayIndex(), &room);
    const Borders frame = FrameBorders();
    return {room.x + frame.left, room.y + frame.top, room.w - frame.left - frame.right,
            room.h - frame.top - frame.bottom};
}

SIZE SdlHost::ClientLimit() {
    // A little more than the desktop gives is shown a little smaller.
    if (insisted_) return {insisted_->cx + insisted_->cx / 10, insisted_->cy + insisted_->cy / 10};
    const SDL_Rect room = ClientRoom();
    const SIZE frame = shown_ ? SIZE{} : kLikelyFrame;
    return {room.w - frame.cx, room.h - frame.cy};
}

DesktopDensity SdlHost::Density() {
    return DensityAt(window_.get());
}

void SdlHost::SetClientSize(SIZE size) {
    clientSize_ = size;
    ResizeWindow();
}

void SdlHost::SetScale(int scale) {
    if (scale == scale_ && SizeOf(WindowArea()) == FittedSize()) return;
    scale_ = scale;
    ResizeWindow();
    if (!wasShown_) CentreWindow();
    SettleSoon();
    Push(HostEventType::Resized);
}

SIZE SdlHost::FittedSize() const {
    const SDL_Rect room = ClientRoom();
    return FittedInto(FullSize(), {room.w, room.h});
}

SDL_Rect SdlHost::MovedIntoRoom(SDL_Rect area) const {
    const SDL_Rect room = ClientRoom();
    area.x = MovedInto(area.x, area.w, room.x, room.w);
    area.y = MovedInto(area.y, area.h, room.y, room.h);
    return area;
}

/// Gives the window the size that its client area needs, unless the desktop insists on another one.
void SdlHost::ResizeWindow() {
    SDL_Rect area = PlacedArea();
    if (!fullScreen_ && insisted_ == SizeOf(area)) return;
    const SIZE size = FittedSize();
    const bool isLarger = size.cx > area.w || size.cy > area.h;
    area.w = size.cx;
    area.h = size.cy;
    MoveWindow(isLarger || size != FullSize() ? MovedIntoRoom(area) : area);
}

void SdlHost::SetClientOrigin(POINT origin) {
    const SDL_Rect before = PlacedArea();
    SDL_Rect area = before;
    area.x = origin.x * scale_;
    area.y = origin.y * scale_;
    if (origin == POINT{unframed_.x / scale_, unframed_.y / scale_}) {
        // That place was meant for the frame, of which nothing was known.
        const Borders frame = FrameBorders();
        area.x = unframed_.x + frame.left;
        area.y = unframed_.y + frame.top;
    }
    if (FittedSize() != FullSize()) area = MovedIntoRoom(area);  // there is no room to spare
    if (area.x == before.x && area.y == before.y) return;
    MoveWindow(area);
    Push(HostEventType::Moved);  // SDL only tells of moves by others
}

RECT SdlHost::ClientArea() {
    if (!fullScreen_) {
        const SDL_Rect window = PlacedArea();
        return RectAt({window.x / scale_, window.y / scale_}, clientSize_);
    }
    const SIZE screen = ScreenSize();
    return {0, 0, screen.cx, screen.cy};
}

SIZE SdlHost::ScreenSize() {
    SDL_Rect bounds{};
    SDL_GetDisplayBounds(DisplayIndex(), &bounds);
    return {bounds.w / scale_, bounds.h / scale_};
}

RECT SdlHost::WorkArea() {
    SDL_Rect bounds{};
    SDL_GetDisplayUsableBounds(DisplayIndex(), &bounds);
    return RectAt({bounds.x / scale_, bounds.y / scale_}, {bounds.w / scale_, bounds.h / scale_});
}

int SdlHost::DisplayIndex() const {
    return window_ ? std::max(0, SDL_GetWindowDisplayIndex(window_.get())) : 0;
}

SDL_Rect SdlHost::WindowArea() const {
    SDL_Rect area{};
    SDL_GetWindowPosition(window_.get(), &area.x, &area.y);
    SDL_GetWindowSize(window_.get(), &area.w, &area.h);
    return area;
}

/// Where the window is outside full screen. What SDL tells of a hidden one is wrong by the frame
/// that it had.
SDL_Rect SdlHost::PlacedArea() const {
    return fullScreen_ || !shown_ ? windowed_ : WindowArea();
}

/// To be called before the window is first shown.
void SdlHost::CentreWindow() {
    const SDL_Rect room = ClientRoom();
    SDL_Rect area = windowed_;
    area.x = room.x + (room.w - area.w) / 2;
    area.y = room.y + (room.h - area.h) / 2;
    MoveWindow(area);
    unframed_ = {area.x, area.y};
}

/// In full screen the window goes there when full screen ends.
void SdlHost::MoveWindow(const SDL_Rect& area) {
    windowed_ = area;
    if (!fullScreen_) PlaceWindow(area);
}

void SdlHost::PlaceWindow(const SDL_Rect& area) {
    const SDL_Rect now = WindowArea();
    if (now.w != area.w || now.h != area.h) SDL_SetWindowSize(window_.get(), area.w, area.h);
    if (now.x != area.x || now.y != area.y) SDL_SetWindowPosition(window_.get(), area.x, area.y);
}

void SdlHost::SettleSoon() {
    settleDue_ = SDL_GetTicks64() + kSettleMs;
}

void SdlHost::AwaitSettling() {
    isNew_ = true;
    SettleSoon();
}

/// When the window's size has rested for a moment: one that is not ours was given by somebody who
/// dragged the edge, or by the desktop.
void SdlHost::Settle() {
    if (!settleDue_ || SDL_GetTicks64() < *settleDue_) return;
    // A held button may still be dragging.
    if ((SDL_GetGlobalMouseState(nullptr, nullptr) & SDL_BUTTON_LMASK) != 0) return SettleSoon();
    settleDue_.reset();
    if (!window_ || !shown_ || fullScreen_) return;
    const SIZE size = SizeOf(WindowArea());
    const bool isNew = std::exchange(isNew_, false);
    if (size == insisted_ && size != FittedSize()) return;
    const bool insistedBefore = std::exchange(insisted_, std::nullopt).has_value();
    if (size == FittedSize()) return dragged_.reset();
    if (!insistedBefore && size == SizeOf(windowed_)) return ResizeWindow();  // a frame has come
    // Nobody drags the edge of a window that has just come or left full screen, and a size that
    // comes again in spite of ours is meant.
    const bool isMaximized = (SDL_GetWindowFlags(window_.get()) & SDL_WINDOW_MAXIMIZED) != 0;
    if (isNew || insistedBefore || isMaximized || size == dragged_) insisted_ = size;
    dragged_ = size;
    pending_.push_back({.type = HostEventType::EdgeDragged,
                        .x = size.cx,
                        .y = size.cy,
                        .amount = insisted_ ? 1 : 0});
}

/// In full screen the scale is the largest whole number that fits.
WindowSurface::Frame SdlHost::ShownFrame() const {
    const SDL_Rect window = WindowArea();
    SIZE size = FullSize();
    if (fullScreen_) {
        const SIZE picture = fullScreenPicture_;
        const int scale = std::max(1, std::min(window.w / picture.cx, window.h / picture.cy));
        size = {picture.cx * scale, picture.cy * scale};
    }
    const SIZE shown = FittedInto(size, SizeOf(window));
    const POINT corner{(window.w - shown.cx) / 2, (window.h - shown.cy) / 2};
    return {size, RectAt(corner, shown)};
}

/// Screen pixels of the shown frame for each layer pixel.
int SdlHost::ShownScale(const WindowSurface::Frame& frame) const {
    return fullScreen_ ? frame.size.cx / fullScreenPicture_.cx : scale_;
}

}  // namespace korvane
