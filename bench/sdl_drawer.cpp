#include "bench/sdl_drawer.h"

#include <cstring>
#include <stdexcept>

namespace korvane::bench {

SdlDrawer::SdlDrawer(SIZE size, const RecordedFrame& frame, SdlKey key)
    : frame_(frame), target_(MakeSurface(size)) {
    for (const Operation& operation : frame) {
        sources_.push_back(operation.picture == nullptr ? nullptr : CutFor(operation, key));
    }
}

SDL_Surface* SdlDrawer::CutFor(const Operation& operation, SdlKey key) {
    for (const Cut& cut : cuts_) {
        if (cut.operation.picture == operation.picture &&
            cut.operation.Part() == operation.Part() && cut.operation.keyed == operation.keyed) {
            return cut.surface.get();
        }
    }
    cuts_.push_back({operation, MakeCut(operation, key)});
    return cuts_.back().surface.get();
}

SdlDrawer::SurfacePtr SdlDrawer::MakeSurface(SIZE size) {
    SurfacePtr surface(
        SDL_CreateRGBSurfaceWithFormat(0, size.cx, size.cy, 32, SDL_PIXELFORMAT_RGB888));
    if (surface == nullptr) throw std::runtime_error(SDL_GetError());
    SDL_SetSurfaceBlendMode(surface.get(), SDL_BLENDMODE_NONE);
    return surface;
}

SdlDrawer::SurfacePtr SdlDrawer::MakeCut(const Operation& operation, SdlKey key) {
    const RECT part = operation.Part();
    SurfacePtr surface = MakeSurface(part.Size());
    for (int y = 0; y < part.Height(); ++y) {
        std::memcpy(static_cast<std::byte*>(surface->pixels) + y * surface->pitch,
                    operation.picture->pixels.At({part.left, part.top + y}),
                    static_cast<std::size_t>(part.Width()) * 4);
    }
    if (operation.keyed) {
        SDL_SetColorKey(surface.get(), SDL_TRUE, operation.picture->key);
        SDL_SetSurfaceRLE(surface.get(), key == SdlKey::RunLength ? 1 : 0);
    }
    return surface;
}

void SdlDrawer::Draw() {
    for (std::size_t i = 0; i < frame_.size(); ++i) {
        const RECT& area = frame_[i].area;
        SDL_Rect place = {area.left, area.top, area.Width(), area.Height()};
        if (sources_[i] == nullptr) {
            SDL_FillRect(target_.get(), &place, frame_[i].fill);
        } else {
            SDL_BlitSurface(sources_[i], nullptr, target_.get(), &place);
        }
    }
}

std::uint32_t SdlDrawer::Pixel(POINT point) const {
    std::uint32_t pixel;
    std::memcpy(
        &pixel,
        static_cast<const std::byte*>(target_->pixels) + point.y * target_->pitch + point.x * 4,
        sizeof(pixel));
    return pixel & 0x00FFFFFF;
}

}  // namespace korvane::bench
