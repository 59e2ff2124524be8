#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "gfx/surface.h"

namespace korvane {

/// A picture button of the screens. Its picture is a strip of two equal frames, the normal look on
/// the left and the selected look on the right.
class Button {
  public:
    /// Only the second form has a look for when it is disabled, a strip of the same layout; the
    /// first draws nothing then.
    Button(const std::string& pictureFile, std::int32_t x, std::int32_t y);
    Button(const std::string& pictureFile, const std::string& disabledPictureFile, std::int32_t x,
           std::int32_t y);
    /// Shows a picture that it shares with other buttons; its owner outlives them and reloads it.
    Button(const Surface& sharedPicture, std::int32_t x, std::int32_t y);
    virtual ~Button() = default;
    Button(const Button&) = delete;
    Button& operator=(const Button&) = delete;

    void Draw() const;
    /// True when the point lies inside one frame, not on its border pixels, and the button is
    /// enabled; with `toggle` a hit also flips the look.
    bool HitTest(std::int32_t px, std::int32_t py, bool toggle);
    void Toggle() { selected_ = !selected_; }
    bool IsSelected() const { return selected_; }
    void SetSelected(bool selected) { selected_ = selected; }
    bool IsEnabled() const { return enabled_; }
    void SetEnabled(bool enabled) { enabled_ = enabled; }
    /// Loads the button's own pictures again from the current skin.
    void Reload();

    std::int32_t X() const { return x_; }
    std::int32_t Y() const { return y_; }
    /// Where one frame is drawn; empty when the picture could not be loaded.
    RECT Place() const { return RectAt({x_, y_}, FrameSize()); }
    POINT Centre() const { return {x_ + FrameSize().cx / 2, y_ + FrameSize().cy / 2}; }

  private:
    SIZE FrameSize() const { return {picture_->Width() / 2, picture_->Height()}; }

    bool enabled_ = true;
    std::unique_ptr<Surface> ownPicture_;  ///< none when the picture is shared
    const Surface* picture_;
    std::unique_ptr<Surface> disabledPicture_;
    bool selected_ = false;
    std::int32_t x_;
    std::int32_t y_;
    std::string pictureFile_;
    std::string disabledPictureFile_;
};

}  // namespace korvane
