"""The pictures of the game screen round a board: backgrounds, board and frames."""

from .current import craft
from .picture import Picture

# The width of the walls beside the cells of a board, and the height of the floor below them.
SIDE, FLOOR = 29, 20
CELL, COLUMNS = 16, 10
# The column beside a board that shows its values.
PANEL_LEFT, PANEL_WIDTH = 230, 90
# The top and bottom of the two displays above the values. Each may be switched off; the row
# between them always shows.
DISPLAYS = ((2, 62), (63, 129))
VALUES_LEFT, VALUES_TOP, VALUES_WIDTH, VALUES_HEIGHT = 232, 129, 86, 242
# The lines between the values, from the top.
RULES = (175, 223, 271, 330)


def ground(width, height):
    """The background of the menu and of the high scores, as one picture."""
    picture = Picture(width, height, "ground")
    picture.cover_all()
    craft().ground(picture)
    return picture


def half(width, height):
    """The background of one half of the game screen."""
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
    """The frame of the next figure, whose cells lie at x 9 to 72 and y 14 to 45."""
    return craft().small_frame(width, height, ((2, 3, 78, height - 6),))


def statistics_frame(width, height):
    """The frame of the chart of the figures, with a display for their number below the chart."""
    return craft().small_frame(width, height, ((2, 3, 78, 36), (2, 42, 78, 21)))
