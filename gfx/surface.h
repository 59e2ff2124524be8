#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "gfx/offscreen_surface.h"

namespace korvane {

/// A picture of the skin. One that could not be loaded draws nothing and reports nothing.
class Surface {
  public:
    /// What a picture is for. One for DrawTiled alone is kept several times side by side when it is
    /// small: copying single pixels all over a screen takes long. Its size is that of the whole.
    enum class Use { Single, Tile };

    /// Loads the file at once; the name is relative to the skin folder.
    explicit Surface(const std::string& fileName, Use use = Use::Single);
    virtual ~Surface() = default;

    /// Loads another picture in place, with colour key 0; false when there is none to be had.
    bool Load(const std::string& fileName, Use use = Use::Single);

    /// Copies a part of the picture to the back buffer; a source width or height below 1 means the
    /// whole picture's. Nothing is clipped: a copy that leaves the picture or the buffer is
    /// refused.
    HRESULT Draw(std::int32_t x, std::int32_t y, std::int32_t sourceX, std::int32_t sourceY,
                 std::int32_t sourceWidth, std::int32_t sourceHeight, std::uint32_t flags) const;
    /// The same without the pixels of the key colour: the whole picture, or a part of it.
    HRESULT DrawKeyed(POINT at) const { return DrawKeyed(at, {0, 0, width_, height_}); }
    HRESULT DrawKeyed(POINT at, const RECT& part) const;
    /// Fills an area with copies side by side, the last ones cut to the area, without colour key.
    HRESULT DrawTiled(std::int32_t x, std::int32_t y, std::int32_t areaWidth,
                      std::int32_t areaHeight) const;
    HRESULT SetColorKey(COLORREF colour);

    std::int32_t Width() const { return width_; }
    std::int32_t Height() const { return height_; }

  private:
    std::unique_ptr<OffscreenSurface> offscreen_;
    std::int32_t height_ = 0;
    std::int32_t width_ = 0;
    bool loaded_ = false;
};

}  // namespace korvane
