#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "platform/base/types.h"

namespace korvane {

/// A few rectangles that cover everything that was added and little more. They may overlap where
/// joining them would cover much more.
class DirtyRegion {
  public:
    static constexpr std::size_t kMaxRects = 16;

    /// An empty rectangle adds nothing.
    void Add(RECT rect);
    void Add(const DirtyRegion& region);
    void Clear() { count_ = 0; }

    std::span<const RECT> Rects() const { return std::span(rects_).first(count_); }

  private:
    std::array<RECT, kMaxRects> rects_;
    std::size_t count_ = 0;
};

}  // namespace korvane
