"""The furniture of the game screen: where the board and its displays have their places."""

from .current import craft
from .picture import Picture

# Room of the walls beside the cells of a board, and of the floor below them.
SIDE, FLOOR = 29, 20
CELL, COLUMNS = 16, 10
# The column of instruments beside a board, and the display of the values in it.
PANEL_LEFT, PANEL_WIDTH = 230, 90
# The two displays above the values, which may be switched off: where each one begins and ends. The
# row between them is always seen.
DISPLAYS = ((2, 62), (63, 129))
VALUES_LEFT, VALUES_TOP, VALUES_WIDTH, VALUES_HEIGHT = 232, 129, 86, 242
# Between the values: how far down each rule lies.
RULES = (175, 223, 271, 330)


def ground(width, height):
    """The ground of the menu and of the high scores, in one piece."""
    picture = Picture(width, height, "ground")
    picture.cover_all()
    craft().ground(picture)
    return picture


def half(width, height):
    """One half of the game screen."""
    picture = Picture(width, height, "half")
    picture.cover_all()
    craft().half(picture)
    return picture


def playboard(width, height):
    """The board: two walls and a floor round an inside that is open to the top."""
    picture = Picture(width, height)
    craft().board(picture, SIDE - craft().wall, SIDE, height - FLOOR)
    return picture


def preview_frame(width, height):
    """Round the next figure, whose cells lie 9 to 72 right and 14 to 45 down."""
    return craft().small_frame(width, height, ((2, 3, 78, height - 6),))


def statistics_frame(width, height):
    """Round the chart of the figures, with a display below it for their number."""
    return craft().small_frame(width, height, ((2, 3, 78, 36), (2, 42, 78, 21)))
