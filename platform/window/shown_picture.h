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
/// The pictures are not combined in memory. Of the game's changes only what no overlay covers is
/// sent, and what a closing overlay uncovers is sent again from the game's last picture: an open
/// popup costs nothing, and closing it does not wait for the game's next frame. All places count
/// from the top left corner of the client area (its menu bar is part of it), in full screen from
/// that of the shown picture.
class ShownPicture {
  public:
    /// Shows the changed parts of the game's picture, as Host::Present would, below the overlays.
    /// The picture's memory must live until the next call or ForgetGame.
    HRESULT ShowGame(const PictureView& picture, const RECT& target, std::span<const RECT> changed);
    /// The game's picture of this memory is about to die: a copy is shown until the game shows
    /// another one, or the mode changes.
    void ForgetGame(const std::uint32_t* pixels);

    /// Lays a picture over the game's; it replaces the overlay's former one. Update sends it.
    void SetOverlay(Overlay overlay, Canvas canvas, POINT corner);
    void RemoveOverlay(Overlay overlay);
    /// The screen no longer shows this area: Update sends it again.
    void Expose(const RECT& area);
    /// Full screen shows pictures of this size; nothing: a window. Exposed areas are forgotten, as
    /// each mode begins with a black screen.
    void SetFullScreen(std::optional<SIZE> pictureSize);
    /// Sends what the calls above have left to send. What the host refuses now is sent by the next
    /// call.
    void Update();
    /// Something waits for the next Update.
    bool HasUnsent() const;
    /// The host can show nothing any more.
    bool IsBroken() const { return isBroken_; }

  private:
    struct Sheet {
        Canvas canvas;
        RECT place;
        bool sent = false;
    };

    std::vector<RECT> Uncovered(std::vector<RECT> areas, POINT origin) const;
    void ResendSheets(const RECT& area);
    bool SendExposed(const RECT& area);
    HRESULT SendGame(std::span<const RECT> parts);
    HRESULT SendBlack(const RECT& area);
    HRESULT SendSheet(const Sheet& sheet);
    bool WasSent(HRESULT result);

    PictureView game_;                 ///< as it was shown last; no pixels before the first
    std::vector<std::uint32_t> kept_;  ///< its pixels after ForgetGame
    RECT gameTarget_;
    std::array<std::optional<Sheet>, kOverlayCount> sheets_;
    std::vector<RECT> exposed_;
    bool isBroken_ = false;
    bool lost_ = false;  ///< the host has lost the game's picture, and the game was not told
    std::optional<SIZE> fullScreen_;
};

}  // namespace korvane
