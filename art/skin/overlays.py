"""What is laid over a board: pause, the end of a game, and the invitations to join."""

from typing import NamedTuple

from . import letters, plates
from .picture import Picture

LINE = 2


class Words(NamedTuple):
    """One line of an overlay."""

    text: str
    cut: letters.Type
    names: tuple


WHITE = ("letter-top", "letter-bottom")
AMBER = ("amber-top", "amber-bottom")
CORAL = ("coral-top", "coral-bottom")
LARGE = letters.Type(1.2, 1.4, 4, 3)
HUGE = letters.Type(1.6, 2, 4, 4)
STARS = letters.Type(1.2, 1.2, 0, 5)
MIDDLE = letters.Type(0.9, 1.2, 3, 3)
SMALL = letters.Type(0.8, 1, 2, 2)
SPACING = 8
MARGIN = 10


def _announcement(width, height, look, lines):
    """A plate with lines of large lettering in the middle."""
    picture = Picture(width, height, "ink-dark")
    plates.plate(picture, 0, 0, width, height, look, line=LINE)
    y = (height - sum(line.cut.height for line in lines) - SPACING * (len(lines) - 1)) // 2
    for line in lines:
        plates.require_readable(look, line.names)
        cut = letters.squeezed(line.text, line.cut, width - 2 * MARGIN)
        ink = letters.Ink(picture)
        x = round((width - letters.width(line.text, cut)) / 2)
        letters.draw(ink.cr, line.text, x, y, cut)
        if not look.glow:
            ink.outline(1)
            ink.shade(0.7, 1, 2)
        ink.pour(y, y + cut.height, line.names)
        y += line.cut.height + SPACING
    return picture


def over(look, *lines):
    """A painter of a plate that lies over a board."""
    return lambda width, height: _announcement(width, height, look, lines)
