#include "platform/dialogs/scroll_track.h"

#include <algorithm>
#include <cstdint>

#include "platform/window/button_face.h"

namespace korvane {
namespace {

constexpr int kShortestThumb = 8;

/// a * b / c for c > 0, rounded to the nearest.
int Scaled(std::int64_t a, std::int64_t b, std::int64_t c) {
    return static_cast<int>((a * b + c / 2) / c);
}

}  // namespace

int ScrollRange::Highest() const {
    return std::max(min, max - std::max(page - 1, 0));
}

ScrollRange ScrollRange::Within() const {
    ScrollRange within = *this;
    within.max = std::max(min, max);
    const std::int64_t count = std::int64_t{within.max} - min + 1;
    within.page = static_cast<int>(
        std::clamp<std::int64_t>(page, 0, std::min<std::int64_t>(count, INT32_MAX)));
    within.position = std::clamp(position, min, within.Highest());
    return within;
}

int ScrollTrack::ArrowLength() const {
    return std::min(kThickness, Length() / 2);
}

ScrollTrack::Span ScrollTrack::Thumb() const {
    const int start = Start() + ArrowLength();
    const int track = Length() - 2 * ArrowLength();
    if (!range_.CanMove() || track < kShortestThumb) return {start, start};
    const std::int64_t count = std::int64_t{range_.max} - range_.min + 1;
    const int wanted =
        range_.page == 0 ? kThickness : static_cast<int>(std::int64_t{track} * range_.page / count);
    const int length = std::clamp(wanted, kShortestThumb, track);
    const std::int64_t way = std::int64_t{range_.Highest()} - range_.min;
    const int offset = Scaled(track - length, std::int64_t{range_.position} - range_.min, way);
    return {start + offset, start + offset + length};
}

ScrollTrack::Span ScrollTrack::SpanOf(ScrollPart part) const {
    const int start = Start();
    const int end = start + Length();
    const int arrow = ArrowLength();
    switch (part) {
        case ScrollPart::LineBack:
            return {start, start + arrow};
        case ScrollPart::PageBack:
            return {start + arrow, Thumb().start};
        case ScrollPart::Thumb:
            return Thumb();
        case ScrollPart::PageForward:
            return {Thumb().end, end - arrow};
        case ScrollPart::LineForward:
            return {end - arrow, end};
        case ScrollPart::Nothing:
            break;
    }
    return {};
}

RECT ScrollTrack::PlaceOf(ScrollPart part) const {
    const Span span = SpanOf(part);
    if (axis_ == ScrollAxis::Horizontal) return {span.start, place_.top, span.end, place_.bottom};
    return {place_.left, span.start, place_.right, span.end};
}

ScrollPart ScrollTrack::PartAt(POINT at) const {
    using enum ScrollPart;
    if (!range_.CanMove()) return Nothing;
    for (const ScrollPart part : {LineBack, PageBack, Thumb, PageForward, LineForward})
        if (Contains(PlaceOf(part), at)) return part;
    return Nothing;
}

int ScrollTrack::PositionOf(int thumbStart) const {
    const Span thumb = Thumb();
    const int way = Length() - 2 * ArrowLength() - (thumb.end - thumb.start);
    if (way <= 0) return range_.position;
    const int offset = std::clamp(thumbStart - Start() - ArrowLength(), 0, way);
    return range_.min + Scaled(offset, std::int64_t{range_.Highest()} - range_.min, way);
}

void ScrollTrack::PaintArrow(Canvas& canvas, ScrollPart part, bool enabled, bool held) const {
    const RECT place = PlaceOf(part);
    PaintButtonGround(canvas, place, held);
    constexpr int kArrow = 4;
    const bool forward = part == ScrollPart::LineForward;
    const Colour colour = enabled ? kTextColour : kGreyedColour;
    const int x = place.left + place.Width() / 2 + (held ? 1 : 0);
    const int y = place.top + place.Height() / 2 + (held ? 1 : 0);
    // Four lines, the first (the tip) one pixel long, each next one two pixels longer.
    for (int i = 0; i < kArrow; ++i) {
        const int along = forward ? kArrow / 2 - 1 - i : i - kArrow / 2;
        if (axis_ == ScrollAxis::Horizontal) {
            canvas.Fill({x + along, y - i, x + along + 1, y + i + 1}, colour);
        } else {
            canvas.Fill({x - i, y + along, x + i + 1, y + along + 1}, colour);
        }
    }
}

void ScrollTrack::Paint(Canvas& canvas, bool enabled, ScrollPart held) const {
    const bool usable = enabled && range_.CanMove();
    canvas.Fill(place_, kTroughColour);
    for (const ScrollPart part : {ScrollPart::PageBack, ScrollPart::PageForward})
        if (part == held) canvas.Fill(PlaceOf(part), kHeldTroughColour);
    for (const ScrollPart part : {ScrollPart::LineBack, ScrollPart::LineForward})
        PaintArrow(canvas, part, usable, held == part);
    const RECT thumb = PlaceOf(ScrollPart::Thumb);
    if (!usable || thumb.IsEmpty()) return;
    PaintButtonGround(canvas, thumb, /*held=*/false);
}

}  // namespace korvane
