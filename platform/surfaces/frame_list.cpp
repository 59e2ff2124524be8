#include "platform/surfaces/frame_list.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstring>
#include <optional>
#include <type_traits>

namespace korvane {
namespace {

/// How far the comparison of two lists looks ahead for the place where they agree again: further
/// than a figure (four operations) or a row of the board (ten).
constexpr std::size_t kLookAhead = 16;

/// Stands for the source point of a fill; that of a copy is never negative.
constexpr POINT kFill = {-1, -1};

/// From this many hidden pixels on, leaving them out saves more than drawing an operation in parts
/// costs.
constexpr std::int64_t kWorthHiding = OpaqueRuns::kLeastCore;

/// The parts of `outer` above, below, left and right of `inner`, which lies within it.
std::array<RECT, 4> Around(const RECT& inner, const RECT& outer) {
    return {{{outer.left, outer.top, outer.right, inner.top},
             {outer.left, inner.bottom, outer.right, outer.bottom},
             {outer.left, inner.top, inner.left, inner.bottom},
             {inner.right, inner.top, outer.right, inner.bottom}}};
}

/// The rectangle that two others make up when they share a whole side.
std::optional<RECT> Join(const RECT& a, const RECT& b) {
    const bool sameRows = a.top == b.top && a.bottom == b.bottom;
    const bool sameColumns = a.left == b.left && a.right == b.right;
    if (sameRows && a.right == b.left) return RECT{a.left, a.top, b.right, a.bottom};
    if (sameRows && b.right == a.left) return RECT{b.left, a.top, a.right, a.bottom};
    if (sameColumns && a.bottom == b.top) return RECT{a.left, a.top, a.right, b.bottom};
    if (sameColumns && b.bottom == a.top) return RECT{a.left, b.top, a.right, a.bottom};
    return std::nullopt;
}

}  // namespace

bool FrameList::Operation::operator==(const Operation& other) const {
    static_assert(std::has_unique_object_representations_v<Effect>);
    return std::memcmp(&effect, &other.effect, sizeof(effect)) == 0;
}

void FrameList::Fill(const RECT& area, std::uint32_t value) {
    if (area.IsEmpty()) return;
    frame_.push_back({{area, kFill, value}, nullptr, nullptr});
}

void FrameList::Copy(const PictureSource& source, POINT at, const RECT& part) {
    assert(source.pixels != nullptr && Covers(source.pixels->Bounds(), part));
    if (part.IsEmpty()) return;
    const RECT area = RectAt(at, {part.Width(), part.Height()});
    const std::uint64_t keyed = source.runs != nullptr ? 1 : 0;
    const Effect effect = {area, {part.left, part.top}, source.version << 1 | keyed};
    frame_.push_back({effect, source.pixels, source.runs});
}

std::span<const RECT> FrameList::Compose(PixelBuffer& target) {
    changed_.Clear();
    if (FillsAll(target)) {
        if (invalid_) {
            changed_.Add(target.Bounds());
        } else {
            changed_.Add(drawnOver_);
            AddDifferences();
        }
        if (drawn_ != 0) {
            Flush(target);
        } else {
            for (const RECT& area : changed_.Rects())
                ComposeArea(target, area);
        }
        shown_.swap(frame_);
        drawnOver_.Clear();
        invalid_ = false;
    } else {
        Flush(target);
        for (const Operation& operation : frame_)
            changed_.Add(operation.effect.area);
        if (invalid_) changed_.Add(target.Bounds());
        drawnOver_.Add(changed_);
    }
    frame_.clear();
    drawn_ = 0;
    return changed_.Rects();
}

void FrameList::Flush(PixelBuffer& target) {
    for (; drawn_ < frame_.size(); ++drawn_)
        Draw(target, frame_[drawn_], frame_[drawn_].effect.area);
}

std::vector<FrameList::Recorded> FrameList::RecordedOperations() const {
    std::vector<Recorded> recorded;
    recorded.reserve(frame_.size());
    for (const Operation& operation : frame_) {
        const Effect& effect = operation.effect;
        recorded.push_back({effect.area, operation.pixels, operation.runs, effect.from,
                            static_cast<std::uint32_t>(effect.contents)});
    }
    return recorded;
}

void FrameList::Invalidate() {
    // The operations that were flushed cannot be drawn again, as their sources may be gone. The
    // rest of the frame is drawn on whatever the buffer holds.
    frame_.erase(frame_.begin(), frame_.begin() + static_cast<std::ptrdiff_t>(drawn_));
    drawn_ = 0;
    invalid_ = true;
}

bool FrameList::FillsAll(const PixelBuffer& target) const {
    return !frame_.empty() && frame_.front().effect.from == kFill &&
           Covers(frame_.front().effect.area, target.Bounds());
}

void FrameList::AddDifferences() {
    std::span<const Operation> before = shown_;
    std::span<const Operation> now = frame_;
    while (!before.empty() && !now.empty() && before.back() == now.back()) {
        before = before.first(before.size() - 1);
        now = now.first(now.size() - 1);
    }
    while (!before.empty() && !now.empty()) {
        if (before.front() == now.front()) {
            before = before.subspan(1);
            now = now.subspan(1);
        } else {
            const Skip skip = ToNextAgreement(before, now);
            before = AddAreas(before, skip.before);
            now = AddAreas(now, skip.now);
        }
    }
    AddAreas(before, before.size());
    AddAreas(now, now.size());
}

FrameList::Skip FrameList::ToNextAgreement(std::span<const Operation> before,
                                           std::span<const Operation> now) {
    for (std::size_t ahead = 1; ahead <= kLookAhead; ++ahead) {
        const bool removed = ahead < before.size() && before[ahead] == now.front();
        if (removed) return {ahead, 0};
        const bool inserted = ahead < now.size() && before.front() == now[ahead];
        if (inserted) return {0, ahead};
        const bool replaced =
            ahead < before.size() && ahead < now.size() && before[ahead] == now[ahead];
        if (replaced) return {ahead, ahead};
    }
    return {1, 1};
}

std::span<const FrameList::Operation> FrameList::AddAreas(std::span<const Operation> operations,
                                                          std::size_t count) {
    for (const Operation& operation : operations.first(count))
        changed_.Add(operation.effect.area);
    return operations.subspan(count);
}

void FrameList::ComposeArea(PixelBuffer& target, const RECT& area) {
    // The frame begins with a fill of everything, so an operation that hides the area is found.
    covers_.clear();
    std::size_t first = frame_.size();
    for (;;) {
        --first;
        const RECT hidden = Intersect(HiddenBy(frame_[first]), area);
        if (hidden == area) break;
        if (!hidden.IsEmpty()) AddCover(hidden, first);
    }
    for (std::size_t i = first; i < frame_.size(); ++i) {
        while (!covers_.empty() && covers_.back().operation <= i)
            covers_.pop_back();
        const RECT clip = Intersect(frame_[i].effect.area, area);
        if (!clip.IsEmpty()) DrawVisible(target, frame_[i], clip, covers_);
    }
}

void FrameList::AddCover(RECT area, std::size_t operation) {
    while (!covers_.empty()) {
        const std::optional<RECT> joined = Join(covers_.back().area, area);
        if (!joined) break;
        area = *joined;
        covers_.pop_back();
    }
    covers_.push_back({area, operation});
}

RECT FrameList::HiddenBy(const Operation& operation) {
    const RECT& area = operation.effect.area;
    if (operation.runs == nullptr) return area;
    const RECT& core = operation.runs->Core();
    const POINT from = operation.effect.from;
    const POINT shift = {area.left - from.x, area.top - from.y};
    return Intersect(area, {core.left + shift.x, core.top + shift.y, core.right + shift.x,
                            core.bottom + shift.y});
}

void FrameList::DrawVisible(PixelBuffer& target, const Operation& operation, const RECT& clip,
                            std::span<const Cover> covers) {
    if (clip.PixelCount() >= kWorthHiding) {
        for (std::size_t i = 0; i < covers.size(); ++i) {
            const RECT hidden = Intersect(covers[i].area, clip);
            if (hidden.PixelCount() < kWorthHiding) continue;
            for (const RECT& rest : Around(hidden, clip))
                DrawVisible(target, operation, rest, covers.subspan(i + 1));
            return;
        }
    }
    if (!clip.IsEmpty()) Draw(target, operation, clip);
}

void FrameList::Draw(PixelBuffer& target, const Operation& operation, const RECT& clip) {
    if (operation.pixels == nullptr) {
        return FillArea(target, clip, static_cast<std::uint32_t>(operation.effect.contents));
    }
    const std::int32_t x = operation.effect.from.x + clip.left - operation.effect.area.left;
    const std::int32_t y = operation.effect.from.y + clip.top - operation.effect.area.top;
    const RECT part = RectAt({x, y}, {clip.Width(), clip.Height()});
    if (operation.runs == nullptr)
        return CopyPlain(target, {clip.left, clip.top}, *operation.pixels, part);
    CopyKeyed(target, {clip.left, clip.top}, *operation.pixels, *operation.runs, part);
}

}  // namespace korvane
