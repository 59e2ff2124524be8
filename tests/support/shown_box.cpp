#include "tests/support/shown_box.h"

#include <algorithm>

#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "platform/window/box_face.h"

namespace korvane {
namespace {

/// True when the picture shows this box with its corner at a point.
bool ShowsAt(const Canvas& box, POINT corner) {
    const SIZE size = box.Size();
    const SIZE shown = Headless().PictureSize();
    if (corner.x < 0 || corner.y < 0 || corner.x + size.cx > shown.cx ||
        corner.y + size.cy > shown.cy)
        return false;
    const PictureView view = box.View();
    for (int y = 0; y < size.cy; ++y)
        for (int x = 0; x < size.cx; ++x)
            if (Headless().PixelAt(corner.x + x, corner.y + y) != view.pixels[y * view.pitch + x])
                return false;
    return true;
}

/// Over the window's picture, or alone as the whole window.
bool Shows(const BoxText& said) {
    const SIZE shown = Headless().PictureSize();
    const BoxFace alone = LayOutBox(said, BoxFrame::Desktop, {1280, 1024}, 1);
    if (alone.size == shown) return ShowsAt(PaintBox(said, alone, ButtonLook::Up, 1), {0, 0});
    const BoxFace face = LayOutBox(said, BoxFrame::Own, {640, 480}, 1);
    const int bar = shown.cy - 480;
    return ShowsAt(PaintBox(said, face, ButtonLook::Up, 1),
                   {(640 - face.size.cx) / 2, bar + (480 - face.size.cy) / 2});
}

bool ShowsBox(const std::string& text) {
    return Shows({text, "Korvane", true}) || Shows({text, "Error", false});
}

}  // namespace

BoxAnswerer::BoxAnswerer(std::vector<std::string> texts) : texts_(std::move(texts)) {
    Headless().WhenWaiting([this] { Answer(); });
}

BoxAnswerer::~BoxAnswerer() {
    Headless().WhenWaiting(nullptr);
}

void BoxAnswerer::Answer() {
    const auto text = std::find_if(texts_.begin(), texts_.end(), ShowsBox);
    read_.push_back(text != texts_.end() ? *text : "?");
    Headless().PushKey(VK_RETURN, true);
}

}  // namespace korvane
