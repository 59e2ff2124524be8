#include "platform/window/button_face.h"

namespace korvane {

void PaintButtonGround(Canvas& canvas, const RECT& place, bool held) {
    canvas.Fill(place, held ? kHeldButtonColour : kButtonColour);
    canvas.Frame(place, held ? kDarkEdgeColour : kEdgeColour, kDarkEdgeColour);
}

void PaintButton(Canvas& canvas, const RECT& place, const ButtonFace& face) {
    RECT inner = place;
    if (face.isDefault) {
        canvas.Frame(place, kDefaultEdgeColour);
        inner = Shrunk(place, 1);
    }
    const int shift = face.look == ButtonLook::Down ? 1 : 0;
    PaintButtonGround(canvas, inner, /*held=*/shift != 0);
    if (face.focused) {
        const RECT dotted = Shrunk(place, 4);
        canvas.DottedFrame(
            {dotted.left + shift, dotted.top + shift, dotted.right + shift, dotted.bottom + shift},
            kFocusColour);
    }
    TextLook look;
    if (!face.enabled) look.colour = kGreyedColour;
    look.underlined = face.underlined;
    const int left = place.left + (place.Width() - TextWidth(face.text, canvas.Scale())) / 2;
    canvas.Text({left + shift, place.top + shift, place.right, place.bottom + shift}, face.text,
                look);
}

}  // namespace korvane
