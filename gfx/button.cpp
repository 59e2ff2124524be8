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
    const SIZE frame = FrameSize();
    look->DrawKeyed({x_, y_}, RectAt({selected_ ? frame.cx : 0, 0}, frame));
}

bool Button::HitTest(std::int32_t px, std::int32_t py, bool toggle) {
    const SIZE frame = FrameSize();
    const bool inside = px > x_ && px < x_ + frame.cx && py > y_ && py < y_ + frame.cy;
    if (!inside || !enabled_) return false;
    if (toggle) Toggle();
    return true;
}

void Button::Reload() {
    if (ownPicture_) ownPicture_->Load(pictureFile_);
    if (disabledPicture_) disabledPicture_->Load(disabledPictureFile_);
}

}  // namespace korvane
