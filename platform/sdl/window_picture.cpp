#include "platform/sdl/window_picture.h"

#include <SDL_pixels.h>
#include <SDL_surface.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace korvane {
namespace {

/// Where a source edge comes to lie when `size` pixels are stretched to `stretched`: the first
/// pixel that the nearest-pixel rule (index * size / stretched) takes from there on.
int StretchedEdge(int edge, int size, int stretched) {
    return (edge * stretched + size - 1) / size;
}

void CopyRow(const std::uint32_t* from, SDL_Surface& surface, const RECT& row) {
    const int bytesPerPixel = surface.format->BytesPerPixel;
    auto* to = static_cast<std::byte*>(surface.pixels) + std::ptrdiff_t{row.top} * surface.pitch +
               std::ptrdiff_t{row.left} * bytesPerPixel;
    if (surface.format->format == SDL_PIXELFORMAT_RGB888) {
        std::copy_n(from, row.Width(), reinterpret_cast<std::uint32_t*>(to));
        return;
    }
    SDL_ConvertPixels(row.Width(), 1, SDL_PIXELFORMAT_RGB888, from, row.Width() * 4,
                      surface.format->format, to, surface.pitch);
}

}  // namespace

bool WindowPicture::Resize(SIZE size) {
    if (size == size_) return false;
    size_ = size;
    pixels_.assign(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy), 0);
    unsent_.clear();
    sendAll_ = true;
    return true;
}

void WindowPicture::Draw(const PictureView& picture, const RECT& target,
                         std::span<const RECT> changed) {
    if (target.IsEmpty()) return;
    for (const RECT& part : changed) {
        const RECT source = Intersect(part, {0, 0, picture.width, picture.height});
        if (!source.IsEmpty()) DrawPart(picture, target, source);
    }
}

void WindowPicture::DrawPart(const PictureView& picture, const RECT& target, const RECT& part) {
    const int width = target.Width();
    const int height = target.Height();
    const RECT place = Intersect({target.left + StretchedEdge(part.left, picture.width, width),
                                  target.top + StretchedEdge(part.top, picture.height, height),
                                  target.left + StretchedEdge(part.right, picture.width, width),
                                  target.top + StretchedEdge(part.bottom, picture.height, height)},
                                 {0, 0, size_.cx, size_.cy});
    if (place.IsEmpty()) return;
    int lastSourceY = -1;
    for (int y = place.top; y < place.bottom; ++y) {
        const int sourceY = (y - target.top) * picture.height / height;
        const std::uint32_t* from =
            picture.pixels + std::ptrdiff_t{sourceY} * std::ptrdiff_t{picture.pitch};
        std::uint32_t* to = pixels_.data() + std::ptrdiff_t{y} * std::ptrdiff_t{size_.cx};
        if (width == picture.width) {
            std::copy_n(from + (place.left - target.left), place.Width(), to + place.left);
        } else if (std::exchange(lastSourceY, sourceY) == sourceY) {
            std::copy_n(to - size_.cx + place.left, place.Width(), to + place.left);
        } else {
            for (int x = place.left; x < place.right; ++x)
                to[x] = from[(x - target.left) * picture.width / width];
        }
    }
    unsent_.push_back(place);
}

bool WindowPicture::Show(SDL_Window* window, const Placement& placement) {
    if (unsent_.empty() && !sendAll_) return true;
    SDL_Surface* surface = SDL_GetWindowSurface(window);
    if (surface == nullptr) return false;
    // SDL hands out a new surface when the window changed size. Our mark tells it from the old
    // one, which the address would not.
    const bool everything = sendAll_ || surface->userdata != this;
    if (everything) {
        SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 0, 0, 0));
        unsent_.assign(1, {0, 0, size_.cx, size_.cy});
        surface->userdata = this;
    }
    sent_.clear();
    for (const RECT& part : unsent_)
        SendPart(*surface, placement, part);
    const int failed = everything ? SDL_UpdateWindowSurface(window)
                                  : SDL_UpdateWindowSurfaceRects(window, sent_.data(),
                                                                 static_cast<int>(sent_.size()));
    unsent_.clear();
    sendAll_ = failed != 0;
    return !sendAll_;
}

void WindowPicture::SendPart(SDL_Surface& surface, const Placement& placement, const RECT& part) {
    const int scale = placement.scale;
    const POINT origin = {placement.origin.x + part.left * scale,
                          placement.origin.y + part.top * scale};
    const RECT place = Intersect(
        {origin.x, origin.y, origin.x + part.Width() * scale, origin.y + part.Height() * scale},
        {0, 0, surface.w, surface.h});
    if (place.IsEmpty()) return;
    const std::uint32_t* row = nullptr;
    for (int y = place.top; y < place.bottom; ++y) {
        if (row == nullptr || (y - origin.y) % scale == 0)
            row = ScaledRow(part, part.top + (y - origin.y) / scale, scale);
        CopyRow(row + (place.left - origin.x), surface, {place.left, y, place.right, y + 1});
    }
    sent_.push_back({place.left, place.top, place.Width(), place.Height()});
}

/// The pixels of one row of a part, each repeated `scale` times; valid until the next call.
const std::uint32_t* WindowPicture::ScaledRow(const RECT& part, int y, int scale) {
    const std::uint32_t* from =
        pixels_.data() + std::ptrdiff_t{y} * std::ptrdiff_t{size_.cx} + std::ptrdiff_t{part.left};
    if (scale == 1) return from;
    row_.resize(static_cast<std::size_t>(part.Width()) * static_cast<std::size_t>(scale));
    auto to = row_.begin();
    for (int x = 0; x < part.Width(); ++x)
        to = std::fill_n(to, scale, from[x]);
    return row_.data();
}

}  // namespace korvane
