"""What lies behind the buttons of each player in the menu: a plate in a colour of its own."""

from . import letters
from .current import craft
from .picture import Picture

DEPTH = 206  # of the plate; below it the next buttons begin
HEADING_TOP = 3
TURN_TOP = 120
# A small figure stands between the two arrows.
FIGURE = ((0, 0), (1, 0), (2, 0), (1, 1))
FIGURE_LEFT, FIGURE_TOP, FIGURE_CELL = 46, 143, 6


def _caption(picture, text, y, name):
    ink = letters.Ink(picture)
    cut = letters.squeezed(text, craft().heading_cut, picture.width - 16)
    letters.draw(ink.cr, text, (picture.width - letters.width(text, cut)) // 2, y, cut)
    ink.must_read((name,))
    ink.pour(y, y + cut.height, (name, name))


def column(text, side):
    """A painter of the plate of the left or the right player."""
    def paint(width, height):
        picture = Picture(width, height, "halo")
        craft().column(picture, width, DEPTH, side)
        _caption(picture, text, HEADING_TOP, f"{side}-ink")
        _caption(picture, "TURN", TURN_TOP, f"{side}-ink")
        for x, y in FIGURE:
            craft().small_tile(picture.cr, FIGURE_LEFT + x * FIGURE_CELL,
                               FIGURE_TOP + y * FIGURE_CELL, FIGURE_CELL, f"{side}-ink")
        return picture
    return paint
