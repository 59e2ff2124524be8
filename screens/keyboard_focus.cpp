#include "screens/keyboard_focus.h"

#include <array>
#include <cstdlib>
#include <limits>
#include <utility>

#include "gfx/display.h"
#include "platform/base/virtual_keys.h"

namespace korvane {

bool focusShowing = false;

namespace {

// 0x00RRGGBB.
constexpr std::uint32_t kLight = 0x00FFDC50;
constexpr std::uint32_t kDark = 0x00000000;

/// The step of an arrow key; 0, 0 for any other key.
POINT DirectionOf(std::uint8_t key) {
    switch (key) {
        case VK_LEFT:
            return {-1, 0};
        case VK_RIGHT:
            return {1, 0};
        case VK_UP:
            return {0, -1};
        case VK_DOWN:
            return {0, 1};
        default:
            return {0, 0};
    }
}

/// Pixels from one rectangle to another that lies in this direction; negative when they overlap.
int GapTo(const RECT& from, const RECT& to, POINT direction) {
    if (direction.x > 0) return to.left - from.right;
    if (direction.x < 0) return from.left - to.right;
    if (direction.y > 0) return to.top - from.bottom;
    return from.top - to.bottom;
}

/// How far a button is for an arrow key. One that lies straight ahead is nearer than one aside.
int Distance(const Button& button, const Button& other, POINT direction) {
    // Neighbours may overlap a little: pictures of a skin can be larger than their room.
    constexpr int kOverlap = 12;
    constexpr int kAsideWeight = 2;
    const RECT to = other.Place();
    if (to.IsEmpty() || GapTo(button.Place(), to, direction) < -kOverlap)
        return std::numeric_limits<int>::max();
    const int across = std::abs(other.Centre().x - button.Centre().x);
    const int down = std::abs(other.Centre().y - button.Centre().y);
    return direction.y == 0 ? across + kAsideWeight * down : down + kAsideWeight * across;
}

/// The border of an area, inside it.
void FillBorder(const RECT& area, int width, std::uint32_t rgb) {
    const auto [left, top, right, bottom] = area;
    for (const RECT& side : {RECT{left, top, right, top + width},
                             {left, bottom - width, right, bottom},
                             {left, top + width, left + width, bottom - width},
                             {right - width, top + width, right, bottom - width}})
        currentDisplay->FillBackBuffer(side, rgb);
}

}  // namespace

KeyboardFocus::KeyboardFocus(std::vector<const Button*> stops, std::size_t first)
    : stops_(std::move(stops)), first_(first), at_(first) {}

bool KeyboardFocus::Move(std::uint8_t key, bool backwards) {
    const POINT direction = DirectionOf(key);
    const bool isArrow = direction != POINT{0, 0};
    if (!isArrow && key != VK_TAB) return false;
    if (!std::exchange(focusShowing, true)) {
        Restart();
    } else {
        at_ = isArrow ? NearestTowards(direction) : NextInRing(backwards);
    }
    return true;
}

/// A button without a picture cannot be seen or pressed: it is passed over.
std::size_t KeyboardFocus::NextInRing(bool backwards) const {
    const std::size_t step = backwards ? stops_.size() - 1 : 1;
    std::size_t next = at_;
    do {
        next = (next + step) % stops_.size();
    } while (next != at_ && stops_[next]->Place().IsEmpty());
    return next;
}

std::size_t KeyboardFocus::NearestTowards(POINT direction) const {
    std::size_t nearest = at_;
    int least = std::numeric_limits<int>::max();
    for (std::size_t i = 0; i < stops_.size(); ++i) {
        if (i == at_) continue;
        const int distance = Distance(*stops_[at_], *stops_[i], direction);
        if (distance >= least) continue;
        least = distance;
        nearest = i;
    }
    return nearest;
}

void KeyboardFocus::Draw() const {
    if (!focusShowing) return;
    const RECT outer = Shrunk(stops_[at_]->Place(), -2);
    FillBorder(outer, 4, kDark);
    FillBorder(Shrunk(outer, 1), 2, kLight);
}

}  // namespace korvane
