#include "platform/surfaces/dirty_region.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace korvane {
namespace {

/// Drawing up to this many unchanged pixels is cheaper than one more rectangle, because each
/// rectangle goes through the whole frame list and is sent to the window on its own.
constexpr std::int64_t kCheapWaste = 1024;

RECT Join(const RECT& a, const RECT& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

/// How many pixels the joint rectangle has beyond those of the two; negative when they share many.
std::int64_t Waste(const RECT& a, const RECT& b) {
    return Join(a, b).PixelCount() - a.PixelCount() - b.PixelCount();
}

}  // namespace

void DirtyRegion::Add(RECT rect) {
    if (rect.IsEmpty()) return;
    // A joined rectangle is larger and may be close to others, so it is added like a new one.
    for (;;) {
        std::size_t partner = 0;
        std::int64_t leastWaste = std::numeric_limits<std::int64_t>::max();
        for (std::size_t i = 0; i < count_; ++i) {
            const std::int64_t waste = Waste(rects_[i], rect);
            if (waste < leastWaste) {
                leastWaste = waste;
                partner = i;
            }
        }
        if (count_ == 0 || (leastWaste > kCheapWaste && count_ < kMaxRects)) break;
        rect = Join(rects_[partner], rect);
        rects_[partner] = rects_[--count_];
    }
    rects_[count_++] = rect;
}

void DirtyRegion::Add(const DirtyRegion& region) {
    for (const RECT& rect : region.Rects())
        Add(rect);
}

}  // namespace korvane
