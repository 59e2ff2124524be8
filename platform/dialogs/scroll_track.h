#pragma once

#include "platform/base/types.h"
#include "platform/draw/canvas.h"

namespace korvane {

/// What a scroll bar scrolls: positions from `min` to Highest(), of which `page` are seen at once.
struct ScrollRange {
    int min = 0;
    int max = 0;
    int page = 0;
    int position = 0;

    int Highest() const;
    /// With a page and a position that the rest allows.
    ScrollRange Within() const;
    bool CanMove() const { return Highest() > min; }
};

enum class ScrollPart { Nothing, LineBack, PageBack, Thumb, PageForward, LineForward };

enum class ScrollAxis { Horizontal, Vertical };

/// Where a scroll bar's parts lie.
class ScrollTrack {
  public:
    static constexpr int kThickness = 16;

    explicit ScrollTrack(ScrollAxis axis) : axis_(axis) {}

    void Put(const RECT& place) { place_ = place; }
    const RECT& Place() const { return place_; }
    const ScrollRange& Range() const { return range_; }
    void SetRange(const ScrollRange& range) { range_ = range.Within(); }

    RECT PlaceOf(ScrollPart part) const;
    ScrollPart PartAt(POINT at) const;
    /// A point's way along the bar.
    int Along(POINT at) const { return axis_ == ScrollAxis::Horizontal ? at.x : at.y; }
    /// The position of a thumb that begins at a pixel along the bar.
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
