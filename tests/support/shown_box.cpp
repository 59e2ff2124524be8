#include "tests/support/shown_box.h"

#include <algorithm>

#include "platform/headless/headless_host.h"
#include "platform/window/box_face.h"
#include "platform/window/desktop.h"
#include "platform/window/modal_window.h"

namespace korvane {
namespace {

/// True when the picture shows this box.
bool Shows(const BoxText& said) {
    const ModalWindow& shown = *TheDesktop().modal;
    const BoxFrame frame = shown.IsAlone() ? BoxFrame::Desktop : BoxFrame::Own;
    const BoxFace face = LayOutBox(said, frame, {640, 480}, 1);
    const RECT place = shown.Place();
    if (face.size != place.Size()) return false;
    const Canvas box = PaintBox(said, face, ButtonLook::Up, 1);
    const PictureView view = box.View();
    for (int y = 0; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x)
            if (Headless().PixelAt(place.left + x, place.top + y) !=
                view.pixels[y * view.pitch + x])
                return false;
    return true;
}

bool ShowsBox(const std::string& text) {
    return Shows({text, "Korvane", true}) || Shows({text, "Error", false});
}

}  // namespace

BoxAnswerer::BoxAnswerer(std::vector<std::string> texts) : texts_(std::move(texts)) {
    Headless().WhenWaiting([this] {
        const auto text = std::ranges::find_if(texts_, ShowsBox);
        read_.push_back(text != texts_.end() ? *text : "?");
        Headless().PushKey(VK_RETURN, true);
    });
}

BoxAnswerer::~BoxAnswerer() {
    Headless().WhenWaiting(nullptr);
}

}  // namespace korvane
