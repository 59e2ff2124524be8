#pragma once

#include "platform/base/types.h"
#include "platform/draw/canvas.h"

namespace korvane {

/// Positions from `min` to Highest(). The scrolled thing goes from `min` to `max`, and `page` of it
/// is seen at once.
struct ScrollRange {
    int min = 0;
    int max = 0;
    int page = 0;
    int position = 0;

    int Highest() const;
    /// The same with page and position limited to what is possible.
    ScrollRange Within() const;
    bool CanMove() const { return Highest() > min; }
};

enum class ScrollPart { Nothing, LineBack, PageBack, Thumb, PageForward, LineForward };

enum class ScrollAxis { Horizontal, Vertical };

/// Where the parts of a scroll bar lie, and how they look.
class ScrollTrack {
  public:
    static constexpr int kThickness = 16;

    explicit ScrollTrack(ScrollAxis axis) : axis_(axis) {}

    void SetPlace(const RECT& place) { place_ = place; }
    const RECT& Place() const { return place_; }
    const ScrollRange& Range() const { return range_; }
    void SetRange(const ScrollRange& range) { range_ = range.Within(); }

    RECT PlaceOf(ScrollPart part) const;
    ScrollPart PartAt(POINT at) const;
    /// The point's coordinate in the bar's direction.
    int Along(POINT at) const { return axis_ == ScrollAxis::Horizontal ? at.x : at.y; }
    /// The position for a thumb that begins at this coordinate.
    int PositionOf(int thumbStart) const;

    void Paint(Canvas& canvas, bool enabled, ScrollPart held) const;

  private:
    struct Span {
        int start = 0;
        int end = 0;
    };

    int Start() const { return axis_ == ScrollAxis::Horizontal ? place_.left : place_.top; }
    int Length() const {
        return axis_ == ScrollAxis::Horizontal ? place_.Width() : place_.Height();
    }
    int ArrowLength() const;
    Span Thumb() const;
    Span SpanOf(ScrollPart part) const;
    void PaintArrow(Canvas& canvas, ScrollPart part, bool enabled, bool held) const;

    const ScrollAxis axis_;
    RECT place_;
    ScrollRange range_;
};

}  // namespace korvane
