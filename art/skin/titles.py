"""Titles and headings of the menu and of the high scores."""

from . import letters
from .current import craft
from .picture import Picture

CURSOR_LEFT, CURSOR_WIDTH, CURSOR_HEIGHT = 1, 12, 3
CURSOR_TICK = 3
# The least distance between a heading and the one beside it.
HEADING_GAP = 10


def logo(width, height):
    """The name of the game."""
    picture = Picture(width, height, "title-edge")
    craft().title(picture, "KORVANE", True, craft().logo_kinds)
    return picture


def high_scores(width, height):
    """The title of the high scores, each word in one colour."""
    picture = Picture(width, height, "title-edge")
    high, scores = craft().score_kinds
    craft().title(picture, "HIGH SCORES", False, (high,) * 4 + (scores,) * 6)
    return picture


def heading(text):
    """A painter of the heading of a column of buttons."""
    def paint(width, height):
        picture = Picture(width, height, "halo")
        cut = letters.squeezed(text, craft().heading_cut, width - HEADING_GAP)
        ink = letters.Ink(picture)
        letters.draw(ink.cr, text, (width - letters.width(text, cut)) // 2, 1, cut)
        ink.outline(1, "halo")
        ink.pour(1, 1 + cut.height, ("letter-top", "letter-bottom"))
        return picture
    return paint


def cursor(width, height):
    """The mark below the letter that is typed next."""
    picture = Picture(width, height, "cursor-dark")
    top = height - CURSOR_HEIGHT
    picture.mask.rectangle(CURSOR_LEFT - 1, top - CURSOR_TICK, 2, CURSOR_TICK)
    picture.mask.rectangle(CURSOR_LEFT + CURSOR_WIDTH - 1, top - CURSOR_TICK, 2, CURSOR_TICK)
    picture.mask.rectangle(CURSOR_LEFT - 1, top, CURSOR_WIDTH + 2, CURSOR_HEIGHT)
    picture.mask.fill()
    letters.graded(picture.cr, top - CURSOR_TICK, height, ("cursor-light", "cursor"))
    picture.cr.paint()
    return picture
