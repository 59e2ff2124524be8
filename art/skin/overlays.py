"""What is laid over a board: pause, the end of a game, and the invitations to join."""

from typing import NamedTuple

from . import letters, plates
from .current import craft
from .picture import Picture


class Words(NamedTuple):
    """One line of an overlay: its text, the name of its size, the colours of its gradient."""

    text: str
    size: str
    names: tuple

    @property
    def cut(self):
        """The cut of the line in the current skin."""
        return craft().overlay_cuts[self.size]


WHITE = ("pale-top", "pale-bottom")
AMBER = ("amber-top", "amber-bottom")
CORAL = ("coral-top", "coral-bottom")
SPACING = 8
MARGIN = 9
FOOT = 14  # below the lettering, where an emblem stands above it


def _announcement(width, height, look, lines, emblem):
    """A plate with an emblem, if any, over centred lines of large lettering."""
    picture = Picture(width, height, "edge")
    plates.plate(picture, 0, 0, width, height, look._replace(enabled=True),
                 thickness=craft().outline)
    full = sum(line.cut.height for line in lines) + SPACING * (len(lines) - 1)
    y = round((height - full) / 2)
    if emblem:
        y = height - round(full) - FOOT
        craft().emblem(picture, emblem, width / 2, y / 2, look)
    for line in lines:
        cut = letters.squeezed(line.text, line.cut, width - 2 * MARGIN)
        ink = letters.Ink(picture)
        x = round((width - letters.width(line.text, cut)) / 2)
        letters.draw(ink.cr, line.text, x, y, cut)
        ink.must_read(line.names)
        craft().banner_relief(ink, look)
        ink.pour(y, y + cut.height, line.names)
        y += round(line.cut.height) + SPACING
    return picture


def over(look, *lines, emblem=""):
    """A painter of a plate that lies over a board."""
    return lambda width, height: _announcement(width, height, look, lines, emblem)
