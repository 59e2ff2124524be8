"""Titles and headings of the menu and of the high scores."""

from . import letters, tiles
from .picture import Picture

HEADING = letters.Type(0.75, 0.8, 2, 2)
CURSOR_LEFT, CURSOR_WIDTH, CURSOR_HEIGHT = 1, 12, 3
CURSOR_TICK = 3


def laid(text, size, depth, kinds):
    """A painter of a word that is laid out of tiles of the given kinds, one for each letter."""
    def paint(width, height):
        picture = Picture(width, height, "ink-dark")
        tiles.word(picture, text, size, depth, kinds)
        return picture
    return paint


def heading(text):
    """A painter of the heading of a column of buttons."""
    def paint(width, height):
        picture = Picture(width, height, "ink-dark")
        cut = letters.squeezed(text, HEADING, width - 2)
        ink = letters.Ink(picture)
        letters.draw(ink.cr, text, (width - letters.width(text, cut)) // 2, 1, cut)
        ink.outline(1)
        ink.pour(1, height - 1, ("letter-top", "letter-bottom"))
        return picture
    return paint


def cursor(width, height):
    """The mark below the letter that is typed next."""
    picture = Picture(width, height, "lamp-dark")
    top = height - CURSOR_HEIGHT
    picture.mask.rectangle(CURSOR_LEFT - 1, top - CURSOR_TICK, 2, CURSOR_TICK)
    picture.mask.rectangle(CURSOR_LEFT + CURSOR_WIDTH - 1, top - CURSOR_TICK, 2, CURSOR_TICK)
    picture.mask.rectangle(CURSOR_LEFT - 1, top, CURSOR_WIDTH + 2, CURSOR_HEIGHT)
    picture.mask.fill()
    letters.graded(picture.cr, top - CURSOR_TICK, height, ("lamp-glow", "lamp-bottom"))
    picture.cr.paint()
    return picture
