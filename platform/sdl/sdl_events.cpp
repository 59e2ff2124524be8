#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <thread>
#include <utility>

#include "platform/base/floor_divide.h"
#include "platform/base/utf8.h"
#include "platform/sdl/heap.h"
#include "platform/sdl/sdl_host.h"

namespace korvane {
namespace {

using Clock = std::chrono::steady_clock;

std::uint8_t ModifiersOf(unsigned state) {
    unsigned modifiers = 0;
    if ((state & KMOD_SHIFT) != 0) modifiers |= kModShift;
    if ((state & KMOD_CTRL) != 0) modifiers |= kModControl;
    if ((state & KMOD_ALT) != 0) modifiers |= kModAlt;
    return static_cast<std::uint8_t>(modifiers);
}

/// Milliseconds until `end` as SDL takes them: -1 without an end, rounded up so that a wait is
/// never cut into several of no length.
int MillisecondsUntil(std::optional<Clock::time_point> end) {
    if (!end) return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*end - Clock::now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, std::numeric_limits<int>::max()));
}

}  // namespace

bool SdlHost::NextEvent(HostEvent& event) {
    if (pending_.empty()) {
        const DisplayCall call(*this);
        PumpEvents();
    }
    if (pending_.empty()) return false;
    event = pending_.front();
    pending_.pop_front();
    return true;
}

void SdlHost::WaitForEvent(std::optional<std::uint32_t> milliseconds) {
    std::optional<Clock::time_point> end;
    if (milliseconds) end = Clock::now() + std::chrono::milliseconds(*milliseconds);
    const DisplayCall call(*this);
    // SDL also returns for events that mean nothing to us.
    for (PumpEvents(); pending_.empty(); PumpEvents()) {
        const int left = MillisecondsUntil(end);
        SDL_Event event;
        if (left == 0) return;
        if (SDL_WaitEventTimeout(&event, SoonerToSettle(left)) != 0) Translate(event);
    }
}

/// The shorter one of a wait (-1: without end) and that for the window to settle.
int SdlHost::SoonerToSettle(int milliseconds) const {
    if (!settleDue_) return milliseconds;
    const std::uint64_t now = SDL_GetTicks64();
    const int toSettle = *settleDue_ > now ? static_cast<int>(*settleDue_ - now) : 1;
    return milliseconds < 0 ? toSettle : std::min(milliseconds, toSettle);
}

void SdlHost::PumpEvents() {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0)
        Translate(event);
    Settle();
    if (trimDue_ && SDL_GetTicks64() >= *trimDue_) {
        trimDue_.reset();
        TrimHeap();
    }
    if (std::exchange(exposed_, false) && window_) {
        surface_.SendAll();
        surface_.Send(window_.get());
    }
}

void SdlHost::Translate(const SDL_Event& event) {
    switch (event.type) {
        case SDL_WINDOWEVENT:
            return OnWindowEvent(event.window);
        case SDL_KEYDOWN:
        case SDL_KEYUP:
            return OnKey(event.key);
        case SDL_TEXTINPUT:
            return OnText(event.text.text);
        case SDL_KEYMAPCHANGED:
            return ReadKeyboardLayout();
        case SDL_MOUSEMOTION:
            return PushMouse(HostEventType::MouseMove, event.motion.x, event.motion.y);
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            if (event.button.button != SDL_BUTTON_LEFT) return;
            return PushMouse(event.type == SDL_MOUSEBUTTONDOWN ? HostEventType::LeftButtonDown
                                                               : HostEventType::LeftButtonUp,
                             event.button.x, event.button.y);
        case SDL_MOUSEWHEEL:
            return PushMouse(HostEventType::Wheel, event.wheel.mouseX, event.wheel.mouseY,
                             event.wheel.y);
        case SDL_AUDIODEVICEADDED:
        case SDL_AUDIODEVICEREMOVED:
            return sound_.OnEvent(event.adevice);
        case SDL_QUIT:
            return Push(HostEventType::CloseRequested);
        case kTerminateEvent:
            return Push(HostEventType::Terminate);
        case kSoundFoundEvent:
            return Push(HostEventType::SoundFound);
        default:
            return;
    }
}

void SdlHost::OnWindowEvent(const SDL_WindowEvent& event) {
    switch (event.event) {
        case SDL_WINDOWEVENT_EXPOSED:
            exposed_ = true;
            return;
        case SDL_WINDOWEVENT_SIZE_CHANGED:
            SettleSoon();
            return Push(HostEventType::Resized);
        case SDL_WINDOWEVENT_MOVED:
            return Push(HostEventType::Moved);
        case SDL_WINDOWEVENT_FOCUS_GAINED:
            missingSince_.reset();
            return Push(HostEventType::Activated);
        case SDL_WINDOWEVENT_FOCUS_LOST:
            return Push(HostEventType::Deactivated);
        case SDL_WINDOWEVENT_MINIMIZED:
            return Push(HostEventType::Minimized);
        case SDL_WINDOWEVENT_RESTORED:
            return Push(HostEventType::Restored);
        case SDL_WINDOWEVENT_CLOSE:
            return Push(HostEventType::CloseRequested);
        default:
            return;
    }
}

void SdlHost::OnKey(const SDL_KeyboardEvent& event) {
    const SDL_Keysym& key = event.keysym;
    const bool isDown = event.type == SDL_KEYDOWN;
    std::uint8_t& held = held_[key.scancode];
    if (held == 0) held = keys_.CodeOf(key.scancode, (key.mod & KMOD_NUM) != 0);
    const std::uint8_t code = isDown ? held : std::exchange(held, std::uint8_t{0});
    if (code == 0) return;
    pending_.push_back({.type = isDown ? HostEventType::KeyDown : HostEventType::KeyUp,
                        .key = code,
                        .modifiers = ModifiersOf(key.mod),
                        .repeat = event.repeat != 0});
}

void SdlHost::OnText(std::string_view utf8) {
    while (!utf8.empty())
        pending_.push_back({.type = HostEventType::Text, .character = TakeCharacter(utf8)});
}

void SdlHost::PushMouse(HostEventType type, int x, int y, int amount) {
    const WindowSurface::Frame frame = ShownFrame();
    const RECT& place = frame.place;
    const SIZE unit{place.Width() * ShownScale(frame), place.Height() * ShownScale(frame)};
    // Rounded down, so that points left of and above the picture stay outside of it.
    pending_.push_back({.type = type,
                        .modifiers = ModifiersOf(static_cast<unsigned>(SDL_GetModState())),
                        .x = FloorDivide((x - place.left) * frame.size.cx, unit.cx),
                        .y = FloorDivide((y - place.top) * frame.size.cy, unit.cy),
                        .amount = amount});
}

void SdlHost::ReadKeyboardLayout() {
    LayoutSymbols symbols{};
    for (int place = 0; place < SDL_NUM_SCANCODES; ++place)
        symbols[static_cast<std::size_t>(place)] =
            SDL_GetKeyFromScancode(static_cast<SDL_Scancode>(place));
    keys_ = KeyTable(symbols);
}

}  // namespace korvane
