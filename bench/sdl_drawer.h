#pragma once

#include <SDL.h>

#include <memory>
#include <vector>

#include "bench/recorded_frame.h"

namespace korvane::bench {

/// How SDL finds a picture's transparent pixels.
enum class SdlKey { Plain, RunLength };

/// By SDL's surfaces, set up for its fastest copies: each distinct cut of a picture is a surface of
/// its own in the target's format, so that run-length surfaces are never cut.
class SdlDrawer : public FrameDrawer {
  public:
    SdlDrawer(SIZE size, const RecordedFrame& frame, SdlKey key);
    void Draw() override;
    std::uint32_t Pixel(POINT point) const override;

  private:
    struct FreeSurface {
        void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
    };
    using SurfacePtr = std::unique_ptr<SDL_Surface, FreeSurface>;
    struct Cut {
        Operation operation;
        SurfacePtr surface;
    };

    static SurfacePtr MakeSurface(SIZE size);
    SDL_Surface* CutFor(const Operation& operation, SdlKey key);
    static SurfacePtr MakeCut(const Operation& operation, SdlKey key);

    const RecordedFrame& frame_;
    SurfacePtr target_;
    std::vector<Cut> cuts_;
    std::vector<SDL_Surface*> sources_;  ///< of each operation; null: a fill
};

}  // namespace korvane::bench
