#include "gfx/button.h"

namespace korvane {

Button::Button(const std::string& pictureFile, std::int32_t x, std::int32_t y)
    : ownPicture_(std::make_unique<Surface>(pictureFile)),
      picture_(ownPicture_.get()),
      x_(x),
      y_(y),
      pictureFile_(pictureFile) {}

Button::Button(const std::string& pictureFile, const std::string& disabledPictureFile,
               std::int32_t x, std::int32_t y)
    : Button(pictureFile, x, y) {
    disabledPictureFile_ = disabledPictureFile;
    disabledPicture_ = std::make_unique<Surface>(disabledPictureFile);
}

Button::Button(const Surface& sharedPicture, std::int32_t x, std::int32_t y)
    : picture_(&sharedPicture), x_(x), y_(y) {}

void Button::Draw() const {
    const Surface* look = enabled_ ? picture_ : disabledPicture_.get();
    if (!look) return;
    look->Draw(static_cast<std::uint32_t>(x_), static_cast<std::uint32_t>(y_),
               selected_ ? FrameWidth() : 0, 0, FrameWidth(), FrameHeight(), DDBLTFAST_SRCCOLORKEY);
}

bool Button::HitTest(std::int32_t px, std::int32_t py, bool toggle) {
    const bool inside = px > x_ && px < x_ + FrameWidth() && py > y_ && py < y_ + FrameHeight();
    if (!inside || !enabled_) return false;
    if (toggle) Toggle();
    return true;
}

void Button::Reload() {
    if (ownPicture_) ownPicture_->Load(pictureFile_);
    if (disabledPicture_) disabledPicture_->Load(disabledPictureFile_);
}

}  // namespace korvane
