"""Buttons: strips of two frames, at rest on the left and pressed (or on) on the right."""

from . import letters, plates
from .current import craft
from .picture import Picture

SIGN_SIZE = 16
SIGN_LEFT = 10
TEXT_LEFT = 34
TEXT_RIGHT = 7


def _lettering(picture, x, y, look, draw):
    """Draws lettering with a function, and puts it on a plate with the relief of the craft."""
    ink = letters.Ink(picture)
    ink.cr.translate(x, y)
    draw(ink.cr)
    if look.enabled or look.sunken:  # a disabled button that is not on may be faint
        ink.must_read((look.ink,))
    craft().relief(ink, look)
    ink.pour(0, picture.height, (look.ink, look.ink))


def _named(text, sign, width, height):
    """Drawing of a sign and a name, side by side."""
    cut = letters.squeezed(text, craft().button_cut, width - TEXT_LEFT - TEXT_RIGHT)

    def draw(cr):
        letters.draw_sign(cr, sign, SIGN_LEFT, (height - SIGN_SIZE) / 2, SIGN_SIZE,
                          craft().sign_pen)
        letters.draw(cr, text, TEXT_LEFT, (height - cut.height) // 2, cut)
    return draw


def _signed(sign, size, width, height):
    """Drawing of a sign alone, in the middle."""
    def draw(cr):
        letters.draw_sign(cr, sign, (width - size) / 2, (height - size) / 2, size,
                          craft().sign_pen)
    return draw


def _strip(width, height, enabled, draw):
    frame = width // 2
    picture = Picture(width, height)
    looks = (plates.REST, plates.ON) if enabled else (plates.OFF, plates.OFF_ON)
    for i, look in enumerate(looks):
        plates.plate(picture, i * frame, 0, frame, height, look)
        press = craft().press if look.sunken else 0
        _lettering(picture, i * frame + press, press, look, draw)
    return picture


def named(text, sign, enabled=True):
    """A painter of a button with a sign and a name."""
    return lambda width, height: _strip(
        width, height, enabled, _named(text, sign, width // 2, height))


def signed(sign, size, enabled=True):
    """A painter of a button with a sign alone."""
    return lambda width, height: _strip(
        width, height, enabled, _signed(sign, size, width // 2, height))
