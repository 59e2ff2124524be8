"""Titles and headings of the menu and of the high scores."""

import cairo

from . import plates, shapes
from .colours import colour
from .current import craft
from .picture import Picture

# The title stands in the upper part of its picture.
TITLE_DEPTH = 100
# The table of the high scores: the rule below the headings, and the rows.
RULE_TOP = 123
ROW_TOP, ROW_PITCH, ROW_DEPTH, ROWS = 132, 28, 27, 10
ROW_LEFT, ROW_WIDTH = 5, 522
MEDAL_AT, MEDAL_REACH = 522, 8
MEDALS = ("gold", "silver", "bronze")
# The columns at both sides of the logo's picture that no background reaches, as (x, width).
SIDES = ((0, 47), (567, 57))


def logo(width, height):
    """The name of the game, and what stands at both sides of all views of the menu. The rest shows
    the background."""
    picture = Picture(width, height, "title-edge")
    picture.is_dithered = True
    craft().sides(picture)
    craft().title(picture, "KORVANE", True, craft().logo_kinds)
    return picture


def high_scores(width, height):
    """The title of the high scores, each word in one colour, and the rows of the table."""
    picture = Picture(width, height, "title-edge")
    picture.is_dithered = True
    craft().table(picture)
    high, scores = craft().score_kinds
    craft().title(picture, "HIGH SCORES", False, (high,) * 4 + (scores,) * 6)
    return picture


def cursor(width, height):
    """A lamp round the character that is typed next."""
    picture = Picture(width, height, "cursor-dark")
    for inset, name in ((0, "cursor-dark"), (1, "cursor")):
        for sheet in (picture.mask, picture.cr):
            shapes.rounded_rectangle(sheet, inset, inset, width - 2 * inset, height - 2 * inset,
                                     3 - inset)
        picture.mask.fill()
        picture.cr.set_source_rgb(*colour(name))
        picture.cr.fill()
    picture.mask.set_operator(cairo.OPERATOR_CLEAR)
    picture.mask.rectangle(2, 2, width - 4, height - 4)
    picture.mask.fill()
    plates.bar(picture.cr, "cursor-light", 2, 1, width - 4, 1)
    return picture
