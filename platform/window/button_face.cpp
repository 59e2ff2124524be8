#include "platform/window/button_face.h"

namespace korvane {

void PaintButton(Canvas& canvas, const RECT& place, const ButtonFace& face) {
    RECT inner = place;
    if (face.isDefault) {
        canvas.Frame(place, kTextColour, kTextColour);
        inner = Shrunk(place, 1);
    }
    canvas.Fill(inner, kFaceColour);
    const int shift = face.look == ButtonLook::Down ? 1 : 0;
    if (face.look == ButtonLook::Down) {
        canvas.Frame(inner, kShadowColour, kShadowColour);
    } else {
        canvas.DrawBevel(inner, kButtonBevel);
    }
    if (face.focused) {
        const RECT dotted = Shrunk(place, 4);
        canvas.DottedFrame(
            {dotted.left + shift, dotted.top + shift, dotted.right + shift, dotted.bottom + shift},
            kTextColour);
    }
    TextLook look;
    look.embossed = !face.enabled;
    look.underlined = face.underlined;
    const int left = place.left + (place.Width() - TextWidth(face.text, canvas.Scale())) / 2;
    canvas.Text({left + shift, place.top + shift, place.right, place.bottom + shift}, face.text,
                look);
}

}  // namespace korvane
