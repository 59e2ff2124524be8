#pragma once

#include <SDL_video.h>

#include <cstdint>
#include <span>
#include <vector>

#include "platform/host.h"
#include "platform/types.h"

namespace korvane {

/// How a picture lies on the window's surface: every pixel as a square of `scale` screen pixels,
/// the first one at `origin`.
struct Placement {
    int scale = 1;
    POINT origin;
};

/// What the window shows, kept so that it can be sent again without asking the game: the screen
/// forgets a window that was covered, and SDL forgets its surface when the window changes size.
/// A window's picture is kept in screen pixels, that of full screen in its own.
///
/// There is no way through the graphics card: only changed parts are sent, so scaling in software
/// costs less than a renderer's whole frames do.
class WindowPicture {
  public:
    /// A picture of another size begins black; false when it has that size already.
    bool Resize(SIZE size);

    /// Takes the changed parts of a picture whose whole goes to `target`, stretched when the sizes
    /// differ.
    void Draw(const PictureView& picture, const RECT& target, std::span<const RECT> changed);
    /// Sends what was drawn since the last call; everything, with black around it, when the
    /// surface of the window is a new one. False when SDL could not.
    bool Show(SDL_Window* window, const Placement& placement);
    /// Sends everything at the next Show.
    void Forget() { sendAll_ = true; }

  private:
    void DrawPart(const PictureView& picture, const RECT& target, const RECT& part);
    void SendPart(SDL_Surface& surface, const Placement& placement, const RECT& part);
    const std::uint32_t* ScaledRow(const RECT& part, int y, int scale);

    SIZE size_;
    std::vector<std::uint32_t> pixels_;
    std::vector<RECT> unsent_;
    bool sendAll_ = true;
    std::vector<std::uint32_t> row_;
    std::vector<SDL_Rect> sent_;
};

}  // namespace korvane
