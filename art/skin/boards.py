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
# The cells of the next figure in its frame, and the bars of the chart in theirs.
SOCKETS_LEFT, SOCKETS_TOP = 9, 14
CHART_LEFT, CHART_FOOT = 14, 32
# The score, which is always there.
SCORE_TOP = 331


def ground(width, height):
    """The background of the menu and of the high scores, as one picture."""
    picture = Picture(width, height, "ground")
    picture.cover_all()
    picture.is_dithered = True
    craft().ground(picture)
    return picture


def half(width, height):
    """The background of one half of the game screen."""
    picture = Picture(width, height, "half")
    picture.cover_all()
    picture.is_dithered = True
    craft().half(picture)
    return picture


def playboard(width, height):
    """The board: two walls and a floor round an inside that is open to the top."""
    picture = Picture(width, height)
    craft().board(picture, SIDE - craft().wall, SIDE, height - FLOOR)
    return picture


def preview_frame(width, height):
    """The frame of the next figure, whose cells lie at x 9 to 72 and y 14 to 45."""
    picture = craft().small_frame(width, height, ((2, 3, 78, height - 6),))
    for column in range(4):
        for row in range(2):
            craft().socket(picture.cr, SOCKETS_LEFT + CELL * column, SOCKETS_TOP + CELL * row)
    return picture


def statistics_frame(width, height):
    """The frame of the chart of the figures, and of their number below it."""
    picture = craft().small_frame(width, height, ((2, 3, 78, height - 5),))
    craft().base_line(picture.cr, CHART_LEFT, CHART_FOOT, 56)
    for kind in range(7):
        craft().bar_mark(picture.cr, CHART_LEFT + 8 * kind, CHART_FOOT + 1, 7, kind + 1)
    return picture
