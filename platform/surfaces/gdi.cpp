#include "platform/surfaces/gdi.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/draw/bmp.h"
#include "platform/draw/canvas.h"
#include "platform/host/host.h"

namespace korvane {

struct GdiBitmap {
    BmpFile file;
};

namespace {

/// The interface composes paths in buffers of 255 characters, with a zero at the end.
constexpr std::size_t kLongestPath = 254;

class MemoryContext final : public DeviceContext {
  public:
    void Select(GdiBitmap* bitmap) { bitmap_ = bitmap; }

    SIZE Size() const override { return bitmap_ ? bitmap_->file.Size() : SIZE{1, 1}; }

    void ReadRow(int y, std::span<std::uint32_t> pixels) const override {
        if (bitmap_) {
            bitmap_->file.ReadRow(y, pixels);
        } else {
            std::fill(pixels.begin(), pixels.end(), 0);
        }
    }

    void WriteRow(int /*y*/, std::span<const std::uint32_t> /*pixels*/) override {}

  private:
    GdiBitmap* bitmap_ = nullptr;
};

/// A canvas of scale 1 that is copied from.
class CanvasContext final : public DeviceContext {
  public:
    explicit CanvasContext(const Canvas& canvas) : canvas_(canvas) {}

    SIZE Size() const override { return canvas_.Size(); }
    void ReadRow(int y, std::span<std::uint32_t> pixels) const override {
        const PictureView view = canvas_.View();
        std::copy_n(view.pixels + std::ptrdiff_t{y} * view.pitch, pixels.size(), pixels.begin());
    }
    void WriteRow(int /*y*/, std::span<const std::uint32_t> /*pixels*/) override {}

  private:
    const Canvas& canvas_;
};

constexpr std::uint32_t SwapRedAndBlue(std::uint32_t colour) {
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

}  // namespace

HBITMAP LoadImageA(const std::string& path) {
    if (path.size() > kLongestPath) return nullptr;
    auto file = TheHost().GameFiles().Read(path, kMaxBitmapBytes);
    if (!file) return nullptr;
    auto bitmap = BmpFile::Open(std::move(*file));
    return bitmap ? new GdiBitmap{std::move(*bitmap)} : nullptr;
}

BITMAP GetObjectA(HBITMAP bitmap) {
    if (!bitmap) return {};
    return {bitmap->file.Size().cx, bitmap->file.Size().cy};
}

void DeleteObject(HBITMAP bitmap) {
    delete bitmap;
}

HDC CreateCompatibleDC() {
    return new MemoryContext;
}

void SelectObject(HDC memory, HBITMAP bitmap) {
    if (auto* context = dynamic_cast<MemoryContext*>(memory)) context->Select(bitmap);
}

void DeleteDC(HDC memory) {
    delete memory;
}

bool StretchBlt(HDC destination, const RECT& destinationArea, HDC source, const RECT& sourceArea) {
    if (!LiesWithin(destinationArea, destination->Size()) ||
        !LiesWithin(sourceArea, source->Size()))
        return false;
    std::vector<std::uint32_t> sourceRow(static_cast<std::size_t>(sourceArea.right));
    std::vector<std::uint32_t> row(static_cast<std::size_t>(destinationArea.right));
    const std::span from = std::span(sourceRow).subspan(static_cast<std::size_t>(sourceArea.left));
    const std::span to = std::span(row).subspan(static_cast<std::size_t>(destinationArea.left));
    // Computed once for all rows: a division for every pixel would take most of the time.
    std::vector<std::size_t> columns(to.size());
    for (std::size_t x = 0; x < columns.size(); ++x)
        columns[x] = x * from.size() / columns.size();
    for (int y = 0; y < destinationArea.Height(); ++y) {
        source->ReadRow(sourceArea.top + y * sourceArea.Height() / destinationArea.Height(),
                        sourceRow);
        if (destinationArea.left > 0) destination->ReadRow(destinationArea.top + y, row);
        if (from.size() == to.size()) {
            std::ranges::copy(from, to.begin());
        } else {
            std::ranges::transform(columns, to.begin(),
                                   [&](std::size_t column) { return from[column]; });
        }
        destination->WriteRow(destinationArea.top + y, row);
    }
    return true;
}

void TextOutA(HDC context, int x, int y, const std::string& text) {
    const SIZE size{TextWidth(text, 1), kTextLineHeight};
    const RECT area = Intersect(RectAt({x, y}, size), RectAt({}, context->Size()));
    if (area.IsEmpty()) return;
    Canvas canvas(size, 1);
    canvas.Text(RectAt({}, size), text, {.colour = kTextColour});
    CanvasContext line(canvas);
    StretchBlt(context, area, &line, RectAt({area.left - x, area.top - y}, area.Size()));
}

COLORREF GetPixel(HDC context, int x, int y) {
    if (!LiesWithin({x, y, x + 1, y + 1}, context->Size())) return CLR_INVALID;
    std::vector<std::uint32_t> row(static_cast<std::size_t>(x) + 1);
    context->ReadRow(y, row);
    return SwapRedAndBlue(row.back());
}

void SetPixel(HDC context, int x, int y, COLORREF colour) {
    if (!LiesWithin({x, y, x + 1, y + 1}, context->Size())) return;
    std::vector<std::uint32_t> row(static_cast<std::size_t>(x) + 1);
    context->ReadRow(y, row);
    row.back() = SwapRedAndBlue(colour);
    context->WriteRow(y, row);
}

}  // namespace korvane
