#pragma once

#include <SDL_rect.h>
#include <SDL_surface.h>
#include <SDL_video.h>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/base/types.h"
#include "platform/host/host.h"

namespace korvane {

/// Draws on the surface that SDL keeps for a window, and sends it to the screen.
///
/// It does not use the graphics card: only changed parts are sent, so scaling them in software
/// costs less than whole frames of a renderer would.
class WindowSurface {
  public:
    /// What Draw found: the surface as it was left, a new black one (the window has another size
    /// or way of being shown), or none.
    enum class State { Kept, New, Missing };

    /// Everything that the window shows, `size` large, and where that is in the window. A smaller
    /// place shows it all, smoothed.
    struct Frame {
        SIZE size;
        RECT place;

        bool operator==(const Frame&) const = default;
    };

    /// Draws the changed parts of a picture whose whole goes to `target` of the frame, in its
    /// pixels, stretched when the sizes differ.
    State Draw(SDL_Window* window, const Frame& frame, const PictureView& picture,
               const RECT& target, std::span<const RECT> changed);
    /// Sends what was drawn since the last call. False when SDL could not: then all that was drawn
    /// is sent by the next call.
    bool Send(SDL_Window* window);
    /// The screen no longer shows the window: the next Send sends everything.
    void SendAll() { sendAll_ = true; }
    /// The next Draw begins with a black surface.
    void Forget() { forgotten_ = true; }

  private:
    struct SurfaceDeleter {
        void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
    };

    void Begin(SDL_Surface& surface, const Frame& frame);
    void Shrink(SDL_Surface& surface) const;
    void DrawPart(SDL_Surface& surface, const PictureView& picture, const RECT& target,
                  const RECT& part);

    Frame frame_;
    std::unique_ptr<SDL_Surface, SurfaceDeleter>
        whole_;  ///< in full size, where its place is smaller
    std::vector<SDL_Rect> unsent_;
    bool sendAll_ = false;
    bool forgotten_ = false;
    std::vector<std::uint32_t> row_;
};

}  // namespace korvane
