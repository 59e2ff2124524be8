#include "platform/draw/canvas.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "platform/draw/typeface.h"

namespace korvane {
namespace {

/// A pixel 0xAARRGGBB drawn over a colour.
Colour Blended(Colour below, std::uint32_t above) {
    const unsigned opacity = above >> 24;
    Colour blended = 0;
    for (const int shift : {0, 8, 16}) {
        const unsigned a = above >> shift & 0xFF;
        const unsigned b = below >> shift & 0xFF;
        blended |= (a * opacity + b * (255 - opacity) + 127) / 255 << shift;
    }
    return blended;
}

}  // namespace

int TextWidth(std::string_view utf8, int scale) {
    return (TypefaceOf(scale).Width(utf8) + scale - 1) / scale;
}

Canvas::Canvas(SIZE size, int scale)
    : size_(size), scale_(scale), pixels_({size.cx * scale, size.cy * scale}, 4) {}

PictureView Canvas::View() const {
    return {reinterpret_cast<const std::uint32_t*>(pixels_.Row(0)), pixels_.Size().cx,
            pixels_.Size().cy, static_cast<int>(pixels_.Pitch() / 4)};
}

RECT Canvas::InScreenPixels(const RECT& area) const {
    return {area.left * scale_, area.top * scale_, area.right * scale_, area.bottom * scale_};
}

void Canvas::Paste(const Canvas& canvas, POINT at) {
    const POINT corner{at.x * scale_, at.y * scale_};
    const RECT part = Intersect(RectAt(corner, canvas.pixels_.Size()), pixels_.Bounds());
    if (part.IsEmpty()) return;
    const auto bytes = static_cast<std::size_t>(part.Width()) * sizeof(Colour);
    for (int y = part.top; y < part.bottom; ++y)
        std::memcpy(pixels_.At({part.left, y}),
                    canvas.pixels_.At({part.left - corner.x, y - corner.y}), bytes);
}

void Canvas::Fill(const RECT& area, Colour colour) {
    const RECT part = Intersect(InScreenPixels(area), pixels_.Bounds());
    if (part.IsEmpty()) return;
    for (int y = part.top; y < part.bottom; ++y)
        std::fill_n(reinterpret_cast<Colour*>(pixels_.At({part.left, y})), part.Width(), colour);
}

void Canvas::Frame(const RECT& area, Colour leftTop, Colour rightBottom) {
    Fill({area.left, area.top, area.right, area.top + 1}, leftTop);
    Fill({area.left, area.top, area.left + 1, area.bottom}, leftTop);
    Fill({area.left, area.bottom - 1, area.right, area.bottom}, rightBottom);
    Fill({area.right - 1, area.top, area.right, area.bottom}, rightBottom);
}

void Canvas::DottedFrame(const RECT& area, Colour colour) {
    for (int y = area.top; y < area.bottom; ++y) {
        const bool wholeRow = y == area.top || y == area.bottom - 1;
        for (int x = area.left; x < area.right; x += wholeRow ? 1 : std::max(1, area.Width() - 1))
            if ((x + y) % 2 == 0) Fill({x, y, x + 1, y + 1}, colour);
    }
}

void Canvas::Text(const RECT& row, std::string_view utf8, const TextLook& look) {
    Typeface& typeface = TypefaceOf(scale_);
    // Rounded to whole layer pixels, so that text stands alike in all rows of the same height.
    const int capitals = (typeface.CapitalHeight() + scale_ - 1) / scale_;
    const int baseline = row.top + (row.Height() + capitals) / 2;
    const POINT pen{row.left * scale_, baseline * scale_};
    typeface.Draw(pixels_, pen, utf8, look.colour);
    if (look.underlined >= utf8.size()) return;
    const int left = pen.x + typeface.Width(utf8.substr(0, look.underlined));
    const int right = left + typeface.Width(utf8.substr(look.underlined, 1));
    for (int y = pen.y + scale_; y < pen.y + 2 * scale_; ++y)
        for (int x = left; x < right - scale_; ++x)
            if (x < pixels_.Size().cx && y < pixels_.Size().cy)
                pixels_.SetPixel({x, y}, look.colour);
}

void Canvas::Picture(const RECT& area, const PictureView& picture) {
    const RECT target = InScreenPixels(area);
    const RECT part = Intersect(target, pixels_.Bounds());
    for (int y = part.top; y < part.bottom; ++y) {
        const int row = (y - target.top) * picture.height / target.Height();
        for (int x = part.left; x < part.right; ++x) {
            const int column = (x - target.left) * picture.width / target.Width();
            const std::uint32_t pixel = picture.pixels[row * picture.pitch + column];
            pixels_.SetPixel({x, y}, Blended(pixels_.Pixel({x, y}), pixel));
        }
    }
}

void Canvas::Disc(const RECT& square, Colour leftTop, Colour rightBottom) {
    const RECT area = InScreenPixels(square);
    // In half pixels from the centre, so that the disc is even on all sides.
    const int diameter = area.Width();
    for (int y = 0; y < diameter; ++y) {
        for (int x = 0; x < diameter; ++x) {
            const int dx = 2 * x + 1 - diameter;
            const int dy = 2 * y + 1 - diameter;
            if (dx * dx + dy * dy <= diameter * diameter)
                pixels_.SetPixel({area.left + x, area.top + y},
                                 x + y < diameter ? leftTop : rightBottom);
        }
    }
}

void Canvas::Cross(const RECT& square, int stroke, Colour colour) {
    const RECT area = InScreenPixels(square);
    const int size = area.Width();
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const bool onStroke = 2 * std::abs(x - y) <= stroke * scale_ ||
                                  2 * std::abs(x + y + 1 - size) <= stroke * scale_;
            if (onStroke) pixels_.SetPixel({area.left + x, area.top + y}, colour);
        }
    }
}

}  // namespace korvane
