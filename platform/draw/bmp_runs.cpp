#include "platform/draw/bmp_runs.h"

#include <algorithm>

#include "platform/draw/bmp_bytes.h"

namespace korvane {
namespace {

enum class Kind { Repeat, Copy, Move, EndOfRow, EndOfPicture };

/// One step of the code.
struct Step {
    Kind kind;
    std::size_t count = 0;   ///< of pixels; of a move the columns
    std::size_t rows = 0;    ///< of a move
    std::size_t pixels = 0;  ///< where the pixels' bytes stand
    std::size_t next = 0;    ///< where the next step begins
};

/// The step at a place of the code; no value when it is not all there.
std::optional<Step> StepAt(std::span<const std::byte> code, std::size_t at, unsigned bits) {
    const std::size_t left = code.size() - at;
    if (left < 2) return std::nullopt;
    const std::size_t count = ByteAt(code, at);
    const std::size_t command = ByteAt(code, at + 1);
    if (count != 0) return Step{Kind::Repeat, count, 0, at + 1, at + 2};
    if (command == 0) return Step{.kind = Kind::EndOfRow, .next = at + 2};
    if (command == 1) return Step{.kind = Kind::EndOfPicture, .next = at + 2};
    if (command == 2) {
        if (left < 4) return std::nullopt;
        return Step{Kind::Move, ByteAt(code, at + 2), ByteAt(code, at + 3), 0, at + 4};
    }
    const std::size_t bytes = ((command * bits + 7) / 8 + 1) / 2 * 2;
    if (left - 2 < bytes) return std::nullopt;
    return Step{Kind::Copy, command, 0, at + 2, at + 2 + bytes};
}

/// Pixel i of a step. A repeated byte holds one pixel, or with 4 bits two that take turns.
std::uint8_t PixelOf(std::span<const std::byte> code, const Step& step, std::size_t i,
                     unsigned bits) {
    const bool copied = step.kind == Kind::Copy;
    if (bits == 8) return static_cast<std::uint8_t>(ByteAt(code, step.pixels + (copied ? i : 0)));
    const std::uint32_t pair = ByteAt(code, step.pixels + (copied ? i / 2 : 0));
    return static_cast<std::uint8_t>(i % 2 == 0 ? pair >> 4 : pair & 15);
}

}  // namespace

std::optional<BmpRuns> BmpRuns::Find(std::span<const std::byte> code, const BmpLayout& layout) {
    BmpRuns runs(layout);
    std::size_t at = 0;
    std::size_t x = 0;
    for (std::size_t row = 0; row < runs.rows_.size();) {
        if (!runs.rows_[row].coded) runs.rows_[row] = {at, x, true};
        const std::optional<Step> step = StepAt(code, at, runs.bits_);
        if (!step) return std::nullopt;
        if (step->kind == Kind::EndOfPicture) break;
        at = step->next;
        x += step->count;
        row += step->rows;
        if (step->kind != Kind::EndOfRow) continue;
        x = 0;
        ++row;
        if (row == runs.rows_.size()) break;  // the end of the picture may be left out
    }
    return runs;
}

void BmpRuns::ReadRow(std::span<const std::byte> code, std::size_t row,
                      std::span<std::uint8_t> indices) const {
    std::ranges::fill(indices, std::uint8_t{0});
    if (!rows_[row].coded) return;
    std::size_t x = rows_[row].x;
    for (std::size_t at = rows_[row].at;;) {
        const std::optional<Step> step = StepAt(code, at, bits_);
        const bool ends = !step || step->kind == Kind::EndOfRow ||
                          step->kind == Kind::EndOfPicture || step->rows != 0;
        if (ends) return;
        if (step->kind != Kind::Move)
            for (std::size_t i = 0; i < step->count && x + i < indices.size(); ++i)
                indices[x + i] = PixelOf(code, *step, i, bits_);
        x += step->count;
        at = step->next;
    }
}

}  // namespace korvane
