#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "platform/base/types.h"
#include "platform/draw/canvas.h"
#include "platform/host/host.h"

namespace korvane {

/// What the layer itself draws over the game's picture, from bottom to top.
enum class Overlay : std::size_t { Bar, Popup, Dialog, Box };

inline constexpr std::size_t kOverlayCount = 4;

/// What the window shows: the game's picture, and the layer's own pictures over it.
///
/// Nothing is mixed in memory. The game's changes are sent without what lies under an overlay, and
/// what an overlay uncovers is sent again from the game's last picture, so an open popup costs
/// nothing and its end does not wait for the game's next frame. All places are in client
/// coordinates, the menu bar included, in full screen in the shown picture's.
class ShownPicture {
  public:
    /// Shows the changed parts of the game's picture, as Host::Present would, below the overlays.
    /// The picture's memory must live until the next call or ForgetGame.
    HRESULT ShowGame(const PictureView& picture, const RECT& target, std::span<const RECT> changed);
    /// The game's picture of this memory is about to die; others stay.
    void ForgetGame(const std::uint32_t* pixels);

    /// Puts a picture over the game's, or in place of the overlay's former one. Update sends it.
    void Put(Overlay overlay, Canvas canvas, POINT corner);
    void Remove(Overlay overlay);
    /// Everything within this area must be sent again.
    void Expose(const RECT& area);
    /// Full screen shows pictures of this size; nothing: a window. What was exposed is forgotten:
    /// the other mode begins black.
    void SetFullScreen(std::optional<SIZE> pictureSize);
    /// Sends what Put, Remove and Expose have left to send. What the host refuses at this moment
    /// waits for the next call.
    void Update();

  private:
    struct Sheet {
        Canvas canvas;
        RECT place;
        bool sent = false;
    };

    std::vector<RECT> Uncovered(std::span<const RECT> areas) const;
    void ResendSheets(const RECT& area);
    bool SendExposed(const RECT& area);
    HRESULT SendGame(std::span<const RECT> clientAreas);
    HRESULT SendBlack(const RECT& area);
    HRESULT SendSheet(const Sheet& sheet);
    HRESULT Note(HRESULT result);

    PictureView game_;  ///< as it was shown last; without pixels: never, or it has gone
    RECT gameTarget_;
    std::array<std::optional<Sheet>, kOverlayCount> sheets_;
    std::vector<RECT> exposed_;
    bool lost_ = false;  ///< the host has lost everything, and the game does not know
    std::optional<SIZE> fullScreen_;
};

/// That of the one window.
ShownPicture& TheShownPicture();

}  // namespace korvane
