#include "bench/sample_frame.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace korvane::bench {
namespace {

constexpr int kCell = 16;

/// A colour that is not the key, different from pixel to pixel: a multiplicative hash (2^32 divided
/// by the golden ratio) spreads the coordinates over all bits.
std::uint32_t Shade(int x, int y) {
    return (static_cast<std::uint32_t>(x * 7 + y * 13) * 0x9E3779B1u >> 8 & 0x00FFFFFF) | 0x010101;
}

template <class IsOpaque>
KeyedPicture Shape(SIZE size, const IsOpaque& isOpaque) {
    PixelBuffer picture(size, 4);
    for (int y = 0; y < size.cy; ++y) {
        for (int x = 0; x < size.cx; ++x) {
            if (isOpaque(x, y)) picture.SetPixel({x, y}, Shade(x, y));
        }
    }
    return KeyedPicture(std::move(picture), 0);
}

/// Inside a rectangle from 0, 0 whose corners are quarter circles.
bool InRounded(int x, int y, SIZE size, int radius) {
    if (x < 0 || y < 0 || x >= size.cx || y >= size.cy) return false;
    const int dx = std::max({radius - x, x - (size.cx - 1 - radius), 0});
    const int dy = std::max({radius - y, y - (size.cy - 1 - radius), 0});
    return dx * dx + dy * dy <= radius * radius + radius / 2;
}

/// A rounded frame, `border` pixels thick all around.
KeyedPicture Frame(SIZE size, int border) {
    const SIZE inner = {size.cx - 2 * border, size.cy - 2 * border};
    return Shape(size, [=](int x, int y) {
        return InRounded(x, y, size, 8) && !InRounded(x - border, y - border, inner, 5);
    });
}

/// The frame around a board of 10 x 22 cells, open where the board is.
KeyedPicture BoardFrame() {
    return Shape({218, 372}, [](int x, int y) {
        const bool onBoard = x >= 29 && x < 29 + 10 * kCell && y < 22 * kCell;
        return InRounded(x, y, {218, 372}, 12) && !onBoard;
    });
}

/// One stroke, 3 pixels thick, within a cell: from left to right or from top to bottom along a
/// line, or on a slope.
struct Stroke {
    int x0, y0, x1, y1;

    bool Holds(int x, int y) const {
        const int length = std::max({std::abs(x1 - x0), std::abs(y1 - y0), 1});
        for (int step = 0; step <= length; ++step) {
            const int px = x0 + (x1 - x0) * step / length;
            const int py = y0 + (y1 - y0) * step / length;
            if (std::abs(x - px) <= 1 && std::abs(y - py) <= 1) return true;
        }
        return false;
    }
};

/// A strip of letter-like signs: each cell has two to five of these strokes.
KeyedPicture Signs(int count) {
    static constexpr std::array<Stroke, 10> kStrokes = {{{2, 2, 2, 13},
                                                         {11, 2, 11, 13},
                                                         {2, 2, 11, 2},
                                                         {2, 8, 11, 8},
                                                         {2, 13, 11, 13},
                                                         {2, 2, 11, 13},
                                                         {11, 2, 2, 13},
                                                         {6, 2, 6, 13},
                                                         {2, 2, 6, 8},
                                                         {6, 8, 11, 13}}};
    return Shape({count * kCell, kCell}, [](int x, int y) {
        const auto sign = static_cast<std::size_t>(x / kCell);
        for (std::size_t i = 0; i < 2 + sign % 4; ++i) {
            if (kStrokes[(sign * 3 + i * (1 + sign % 3)) % kStrokes.size()].Holds(x % kCell, y)) {
                return true;
            }
        }
        return false;
    });
}

KeyedPicture Tiles() {
    return Shape({8 * kCell, kCell}, [](int x, int y) {
        return InRounded(x % kCell, y, {kCell, kCell}, 2 + x / kCell % 3);
    });
}

KeyedPicture Bars() {
    return Shape({56, 20}, [](int x, int) { return x % 8 != 0 && x % 8 != 7; });
}

/// A rounded plate with words cut into it.
KeyedPicture Plate() {
    return Shape({90, 48}, [](int x, int y) {
        const bool word = y >= 16 && y < 32 && x >= 10 && x < 80 && (x / 3 + y / 5) % 3 == 0;
        return InRounded(x, y, {90, 48}, 10) && !word;
    });
}

/// Draws one half of the screen into a frame.
class HalfScreen {
  public:
    /// `side` 0: right, 1: left.
    HalfScreen(RecordedFrame& frame, const SampleSkin& skin, int side)
        : frame_(frame), skin_(skin), x_(320 - 320 * side), boardX_(365 - 320 * side) {}

    void Draw(int figureHeight) {
        Tile(skin_.background, {x_, kTop, x_ + 320, kTop + 372});
        Whole(skin_.board, {x_ + 16, kTop});
        Whole(skin_.preview, {x_ + 234, kTop + 2});
        Whole(skin_.statistics, {x_ + 234, kTop + 63});
        Text("LEVEL", {x_ + 234, kTop + 133}, 16);
        Text("LINES", {x_ + 234, kTop + 181}, 16);
        Text("SCORE", {x_ + 234, kTop + 336}, 16);
        BoardCells();
        Figure({boardX_ + 4 * kCell, kTop + figureHeight}, 3);
        Figure({boardX_ + 198, kTop + kCell}, 5);
        Whole(skin_.pause, {boardX_ + 40, kTop + 144});
        Text("TIME", {x_ + 234, kTop + 229}, 16);
        Text("12:34", {x_ + 237, kTop + 248}, 14);
        Text("7", {boardX_ + 193, kTop + 152}, 14);
        Text("68", {boardX_ + 193, kTop + 200}, 14);
        for (int i = 0; i < 7; ++i)
            Bar(i, 5 + 2 * i);
        Text("185", {boardX_ + 193, kTop + 107}, 14);
        Text("48210", {boardX_ + 193, kTop + 355}, 14);
    }

  private:
    static constexpr int kTop = 50;

    void Copy(const KeyedPicture& picture, POINT at, const RECT& part, bool keyed) {
        frame_.push_back({.area = RectAt(at, {part.Width(), part.Height()}),
                          .picture = &picture,
                          .from = {part.left, part.top},
                          .keyed = keyed});
    }

    void Whole(const KeyedPicture& picture, POINT at) {
        Copy(picture, at, picture.pixels.Bounds(), true);
    }

    void CellOf(const KeyedPicture& strip, int cell, POINT at) {
        Copy(strip, at, {cell * kCell, 0, (cell + 1) * kCell, kCell}, true);
    }

    void Tile(const KeyedPicture& picture, const RECT& area) {
        const SIZE size = picture.pixels.Size();
        for (int y = area.top; y < area.bottom; y += size.cy) {
            for (int x = area.left; x < area.right; x += size.cx) {
                Copy(picture, {x, y},
                     {0, 0, std::min(size.cx, area.right - x), std::min(size.cy, area.bottom - y)},
                     false);
            }
        }
    }

    void Text(std::string_view text, POINT at, int advance) {
        for (const char sign : text) {
            if (sign >= 'A') CellOf(skin_.letters, sign - 'A', at);
            if (sign < 'A') CellOf(skin_.numbers, sign - '0', at);
            at.x += advance;
        }
    }

    /// Ten lower rows with one hole each.
    void BoardCells() {
        for (int row = 12; row < 22; ++row) {
            for (int column = 0; column < 10; ++column) {
                if (column == row * 7 % 10) continue;
                CellOf(skin_.blocks, (row * 5 + column * 3) % 8,
                       {boardX_ + column * kCell, kTop + row * kCell});
            }
        }
    }

    void Figure(POINT at, int type) {
        for (const POINT cell : {POINT{0, 0}, POINT{1, 0}, POINT{2, 0}, POINT{1, 1}}) {
            CellOf(skin_.blocks, type, {at.x + cell.x * kCell, at.y + cell.y * kCell});
        }
    }

    void Bar(int type, int height) {
        Copy(skin_.bars, {boardX_ + 203 + 8 * type, kTop + 95 - height},
             {8 * type, 20 - height, 8 * type + 8, 20}, true);
    }

    RecordedFrame& frame_;
    const SampleSkin& skin_;
    int x_;
    int boardX_;
};

}  // namespace

SampleSkin::SampleSkin(SIZE backgroundSize)
    : background(Shape(backgroundSize, [](int, int) { return true; })),
      board(BoardFrame()),
      preview(Frame({86, 60}, 4)),
      statistics(Frame({86, 66}, 4)),
      blocks(Tiles()),
      letters(Signs(26)),
      numbers(Signs(17)),
      bars(Bars()),
      pause(Plate()) {}

RecordedFrame SampleFrame(const SampleSkin& skin, FigureHeights figures) {
    RecordedFrame frame;
    frame.push_back({.area = {0, 0, kScreenSize.cx, kScreenSize.cy}});
    HalfScreen(frame, skin, 0).Draw(figures.right);
    HalfScreen(frame, skin, 1).Draw(figures.left);
    return frame;
}

}  // namespace korvane::bench
