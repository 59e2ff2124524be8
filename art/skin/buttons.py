"""Buttons: strips of two frames, at rest on the left and pressed (or on) on the right."""

from . import letters, plates
from .colours import colour
from .picture import Picture

SIGN_SIZE = 16
SIGN_LEFT = 10
TEXT_LEFT = 34
TEXT_RIGHT = 7
CUT = letters.Type(0.75, 1)
PRESS = 1  # how far a pressed face moves away from the light


def _lettering(picture, x, y, look, draw):
    """Lets a function draw on a sheet, and lays that on a plate with a soft relief."""
    ink = letters.Ink(picture)
    ink.cr.translate(x, y)
    draw(ink.cr)
    if look.sunken:
        picture.cr.set_source_rgba(*colour(look.light), 0.45)
        picture.cr.mask_surface(ink.sheet, 0, 1)
    else:
        ink.shade(0.6)
    ink.pour(0, picture.height, (look.ink, look.ink))


def _named(text, sign, width, height):
    """Drawing of a sign and a name, side by side."""
    cut = letters.squeezed(text, CUT, width - TEXT_LEFT - TEXT_RIGHT)

    def draw(cr):
        letters.draw_sign(cr, sign, SIGN_LEFT, (height - SIGN_SIZE) / 2, SIGN_SIZE)
        letters.draw(cr, text, TEXT_LEFT, (height - cut.height) // 2, cut)
    return draw


def _signed(sign, size, width, height):
    """Drawing of a sign alone, in the middle."""
    def draw(cr):
        letters.draw_sign(cr, sign, (width - size) / 2, (height - size) / 2, size)
    return draw


def _strip(width, height, looks, draw):
    frame = width // 2
    picture = Picture(width, height)
    for i, look in enumerate(looks):
        if look is not plates.OFF:  # what cannot be used may be faint
            plates.require_readable(look, (look.ink,))
        plates.plate(picture, i * frame, 0, frame, height, look)
        press = PRESS if look.sunken else 0
        _lettering(picture, i * frame + press, press, look, draw)
    return picture


def named(text, sign, enabled=True):
    """A painter of a button with a sign and a name."""
    looks = (plates.REST, plates.ON) if enabled else (plates.OFF, plates.OFF_ON)
    return lambda width, height: _strip(
        width, height, looks, _named(text, sign, width // 2, height))


def signed(sign, size, enabled=True):
    """A painter of a button with a sign alone."""
    looks = (plates.REST, plates.ON) if enabled else (plates.OFF, plates.OFF_ON)
    return lambda width, height: _strip(
        width, height, looks, _signed(sign, size, width // 2, height))
