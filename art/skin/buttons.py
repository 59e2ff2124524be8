"""Buttons: strips of two frames, at rest on the left and pressed (or on) on the right."""

from typing import NamedTuple

from . import letters, plates
from .current import craft
from .picture import Picture

SIGN_SIZE = 16
SIGN_LEFT = 10
TEXT_LEFT = 34
TEXT_RIGHT = 7
# On plates narrower than this everything moves together.
NARROW, NARROWER = 110, 4


def _lettering(picture, x, y, look, draw):
    """Draws lettering with a function, and puts it on a plate with the relief of the craft."""
    ink = letters.Ink(picture)
    ink.cr.translate(x, y)
    draw(ink.cr)
    if look.enabled or look.sunken:  # a disabled button that is not on may be faint
        ink.must_read((look.ink,))
    craft().relief(ink, look)
    ink.pour(0, picture.height, (look.ink, look.ink))


class Room(NamedTuple):
    """Where the plate of a button lies in its frame; the rest of the frame stays free."""

    left: int = 0
    top: int = 0
    right: int = 0
    bottom: int = 0


# The buttons of a player stand off the edges of the plate behind them, by the width of their frame.
ROOMS = {109: Room(5, 4, 5, 0), 46: Room(5, 4, 2, 0), 63: Room(19, 4, 5, 0)}


def _named(text, sign, width, height, grow=0):
    """Drawing of a sign and a name, side by side."""
    cut = craft().button_cut
    cut = cut._replace(across=cut.across + grow / 10, down=cut.down + grow / 10)
    narrow = NARROWER if width < NARROW else 0
    left = TEXT_LEFT - narrow + 2 * grow
    size = SIGN_SIZE + 2 * grow
    cut = letters.squeezed(text, cut, width - left - TEXT_RIGHT + narrow // 2)

    def draw(cr):
        letters.draw_sign(cr, sign, SIGN_LEFT - narrow // 2, (height - size) / 2, size,
                          craft().sign_pen)
        letters.draw(cr, text, left, (height - cut.height) // 2, cut)
    return draw


def _signed(sign, size, width, height):
    """Drawing of a sign alone, in the middle."""
    def draw(cr):
        letters.draw_sign(cr, sign, (width - size) / 2, (height - size) / 2, size,
                          craft().sign_pen)
    return draw


def _strip(width, height, looks, drawing, *arguments):
    """Both views; the drawing gets the size of the plate after its arguments."""
    frame = width // 2
    room = ROOMS.get(frame, Room())
    across, down = frame - room.left - room.right, height - room.top - room.bottom
    picture = Picture(width, height)
    for i, look in enumerate(looks):
        plates.plate(picture, i * frame + room.left, room.top, across, down, look)
        press = craft().press if look.sunken else 0
        _lettering(picture, i * frame + room.left + press, room.top + press, look,
                   drawing(*arguments, across, down))
    return picture


def _looks(enabled):
    return (plates.REST, plates.ON) if enabled else (plates.OFF, plates.OFF_ON)


def named(text, sign, enabled=True):
    """A painter of a button with a sign and a name."""
    return lambda width, height: _strip(width, height, _looks(enabled), _named, text, sign)


def signed(sign, size, enabled=True):
    """A painter of a button with a sign alone."""
    return lambda width, height: _strip(width, height, _looks(enabled), _signed, sign, size)


def started(text, sign, _):
    """A painter of the button that everything else leads to, larger and in a colour of its own."""
    def draw(text, sign, width, height):
        return _named(text, sign, width, height, 2)
    return lambda width, height: _strip(width, height, (plates.START, plates.ON), draw, text, sign)
