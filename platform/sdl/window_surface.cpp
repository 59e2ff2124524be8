#include "platform/sdl/window_surface.h"

#include <SDL_pixels.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

namespace korvane {
namespace {

/// Where a source edge comes to lie when `size` pixels are stretched to `stretched`: the first
/// pixel that the nearest-pixel rule (index * size / stretched) takes from there on.
int StretchedEdge(int edge, int size, int stretched) {
    return (edge * stretched + size - 1) / size;
}

std::byte* PixelOf(const SDL_Surface& surface, int x, int y) {
    return static_cast<std::byte*>(surface.pixels) + std::ptrdiff_t{y} * surface.pitch +
           std::ptrdiff_t{x} * surface.format->BytesPerPixel;
}

void CopyRow(const std::uint32_t* from, int width, const SDL_Surface& surface, std::byte* to) {
    if (surface.format->format == SDL_PIXELFORMAT_RGB888) {
        std::memcpy(to, from, static_cast<std::size_t>(width) * sizeof *from);
        return;
    }
    SDL_ConvertPixels(width, 1, SDL_PIXELFORMAT_RGB888, from, width * int{sizeof *from},
                      surface.format->format, to, surface.pitch);
}

}  // namespace

/// A new surface is black. SDL makes one when the window changes size.
void WindowSurface::Begin(SDL_Surface& surface, const Frame& frame) {
    SDL_FillRect(&surface, nullptr, SDL_MapRGB(surface.format, 0, 0, 0));
    surface.userdata = this;
    frame_ = frame;
    sendAll_ = true;
    whole_.reset();
    if (frame.place.Size() != frame.size)
        whole_.reset(SDL_CreateRGBSurfaceWithFormat(
            0, frame.size.cx, frame.size.cy, surface.format->BitsPerPixel, surface.format->format));
}

WindowSurface::State WindowSurface::Draw(SDL_Window* window, const Frame& frame,
                                         const PictureView& picture, const RECT& target,
                                         std::span<const RECT> changed) {
    SDL_Surface* const surface = SDL_GetWindowSurface(window);
    if (surface == nullptr) return State::Missing;
    // A new surface may have the old one's address. Ours is marked.
    const bool isNew =
        std::exchange(forgotten_, false) || surface->userdata != this || frame != frame_;
    if (isNew) Begin(*surface, frame);
    SDL_Surface& drawn = whole_ ? *whole_ : *surface;
    const POINT corner = whole_ ? POINT{} : POINT{frame.place.left, frame.place.top};
    const RECT place = RectAt({corner.x + target.left, corner.y + target.top}, target.Size());
    for (const RECT& part : changed) {
        const RECT source = Intersect(part, {0, 0, picture.width, picture.height});
        if (!source.IsEmpty() && !target.IsEmpty()) DrawPart(drawn, picture, place, source);
    }
    return isNew ? State::New : State::Kept;
}

void WindowSurface::DrawPart(SDL_Surface& surface, const PictureView& picture, const RECT& target,
                             const RECT& part) {
    const int width = target.Width();
    const int height = target.Height();
    const RECT place = Intersect({target.left + StretchedEdge(part.left, picture.width, width),
                                  target.top + StretchedEdge(part.top, picture.height, height),
                                  target.left + StretchedEdge(part.right, picture.width, width),
                                  target.top + StretchedEdge(part.bottom, picture.height, height)},
                                 {0, 0, surface.w, surface.h});
    if (place.IsEmpty()) return;
    row_.resize(static_cast<std::size_t>(place.Width()));
    int lastSourceY = -1;
    for (int y = place.top; y < place.bottom; ++y) {
        std::byte* const to = PixelOf(surface, place.left, y);
        const int sourceY = (y - target.top) * picture.height / height;
        if (std::exchange(lastSourceY, sourceY) == sourceY) {
            std::memcpy(to, to - surface.pitch,
                        row_.size() * std::size_t{surface.format->BytesPerPixel});
            continue;
        }
        const std::uint32_t* from =
            picture.pixels + std::ptrdiff_t{sourceY} * std::ptrdiff_t{picture.pitch};
        if (width == picture.width) {
            from += place.left - target.left;
        } else {
            for (int x = place.left; x < place.right; ++x)
                row_[static_cast<std::size_t>(x - place.left)] =
                    from[(x - target.left) * picture.width / width];
            from = row_.data();
        }
        CopyRow(from, place.Width(), surface, to);
    }
    unsent_.push_back({place.left, place.top, place.Width(), place.Height()});
}

/// Brings the whole to its place. A screen of few colours gets it unsmoothed.
void WindowSurface::Shrink(SDL_Surface& surface) const {
    SDL_Rect place{frame_.place.left, frame_.place.top, frame_.place.Width(),
                   frame_.place.Height()};
    if (SDL_SoftStretchLinear(whole_.get(), nullptr, &surface, &place) != 0)
        SDL_SoftStretch(whole_.get(), nullptr, &surface, &place);
}

bool WindowSurface::Send(SDL_Window* window) {
    if (unsent_.empty() && !sendAll_) return true;
    if (whole_) {
        SDL_Surface* const surface = SDL_GetWindowSurface(window);
        if (surface == nullptr) return false;
        Shrink(*surface);
        sendAll_ = true;
    }
    const int failed = sendAll_ ? SDL_UpdateWindowSurface(window)
                                : SDL_UpdateWindowSurfaceRects(window, unsent_.data(),
                                                               static_cast<int>(unsent_.size()));
    unsent_.clear();
    sendAll_ = failed != 0;
    return !sendAll_;
}

}  // namespace korvane
