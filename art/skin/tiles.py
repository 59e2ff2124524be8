"""The tiles of the board, and the bars of the chart."""

from .current import craft
from .picture import Picture

SIZE = 16
KINDS = 8


def blocks(width, height):
    """The tiles: one for each of the seven figures, and the eighth for garbage and rows that go."""
    picture = Picture(width, height)
    for kind in range(1, KINDS + 1):
        craft().tile(picture, (kind - 1) * SIZE, 0, kind)
    return picture


def bars(width, height):
    """The bars of the chart, one for each figure, each 8 pixels wide with its gap."""
    picture = Picture(width, height)
    step = width // 7
    for i in range(7):
        picture.mask.rectangle(i * step, 0, step - 1, height)
        picture.mask.fill()
        craft().bar(picture.cr, i * step, step - 1, height, i + 1)
    return picture
