#include "bench/recorded_frame.h"

#include <cstring>

namespace korvane::bench {
namespace {

constexpr std::uint32_t kColourBits = 0x00FFFFFF;

/// How many pixels the operation writes in its row `row`.
std::size_t PixelsWritten(const Operation& operation, int row) {
    const RECT part = operation.Part();
    if (!operation.keyed) return static_cast<std::size_t>(part.Width());
    std::size_t count = 0;
    for (int x = part.left; x < part.right; ++x) {
        if (operation.picture->pixels.Pixel({x, part.top + row}) != operation.picture->key) ++count;
    }
    return count;
}

}  // namespace

void DirectDrawer::Draw() {
    for (const Operation& operation : frame_) {
        const POINT at = {operation.area.left, operation.area.top};
        if (operation.picture == nullptr) {
            FillArea(target_, operation.area, operation.fill);
        } else if (operation.keyed) {
            CopyKeyed(target_, at, operation.picture->pixels, operation.picture->runs,
                      operation.Part());
        } else {
            CopyPlain(target_, at, operation.picture->pixels, operation.Part());
        }
    }
}

std::uint32_t DirectDrawer::Pixel(POINT point) const {
    return target_.Pixel(point) & kColourBits;
}

void Record(FrameList& list, const RecordedFrame& frame) {
    for (const Operation& operation : frame) {
        if (operation.picture == nullptr) {
            list.Fill(operation.area, operation.fill);
            continue;
        }
        const KeyedPicture& picture = *operation.picture;
        list.Copy({&picture.pixels, operation.keyed ? &picture.runs : nullptr,
                   reinterpret_cast<std::uintptr_t>(&picture)},
                  {operation.area.left, operation.area.top}, operation.Part());
    }
}

void ListDrawer::Draw() {
    list_.Invalidate();
    Record(list_, frame_);
    list_.Compose(target_);
}

std::uint32_t ListDrawer::Pixel(POINT point) const {
    return target_.Pixel(point) & kColourBits;
}

MemcpyFloor::MemcpyFloor(SIZE size, const RecordedFrame& frame) : target_(size, 4) {
    for (const Operation& operation : frame) {
        for (int y = 0; y < operation.area.Height(); ++y) {
            AddRow(operation, y, 4 * PixelsWritten(operation, y));
        }
    }
}

void MemcpyFloor::AddRow(const Operation& operation, int y, std::size_t bytes) {
    if (bytes == 0) return;
    std::byte* const to = target_.At({operation.area.left, operation.area.top + y});
    if (operation.picture != nullptr) {
        const POINT from = {operation.from.x, operation.from.y + y};
        moves_.push_back({to, operation.picture->pixels.At(from), bytes});
    } else if (y > 0 && moves_.back().to + moves_.back().bytes == to) {
        moves_.back().bytes += bytes;
    } else {
        moves_.push_back({to, nullptr, bytes});
    }
}

void MemcpyFloor::Draw() {
    for (const Move& move : moves_) {
        if (move.from == nullptr) {
            std::memset(move.to, 0, move.bytes);
        } else {
            std::memcpy(move.to, move.from, move.bytes);
        }
    }
}

}  // namespace korvane::bench
