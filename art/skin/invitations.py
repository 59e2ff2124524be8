"""The invitations to join: a figure waits above a sleeping heap that has a gap for it."""

from . import keycaps, letters, plates
from .colours import colour
from .current import craft
from .picture import Picture
from .tiles import SIZE

# The heap on the floor of the board, a digit for a tile. The figure fits into the gap.
HEAP = ("6614...233", "56144.2233", "5517712216")
# The figure that waits, and its cells in the gap as (column, row of the heap).
FIGURE, FIGURE_CELLS = 7, ((4, 0), (5, 0), (6, 0), (5, 1))
FIGURE_TOP = 106
# The plate with the key to press.
PLATE_LEFT, PLATE_WIDTH, PLATE_HEIGHT = 5, 150, 98
CAP_WIDTH, CAP_HEIGHT = 65, 48
SLEEP = 0.5  # how far the tiles of the heap are dimmed


def _centred(picture, text, size, names, y):
    cut = craft().overlay_cuts[size]
    ink = letters.Ink(picture)
    letters.draw(ink.cr, text, round((picture.width - letters.width(text, cut)) / 2), y, cut)
    ink.must_read(names)
    craft().banner_relief(ink, plates.REST)
    ink.pour(y, y + cut.height, names)


def _tiles(picture, cells, sleep=0.0):
    for x, y, kind in cells:
        craft().tile(picture, x, y, kind)
        picture.cr.set_source_rgba(*colour("board"), sleep)
        picture.cr.rectangle(x, y, SIZE, SIZE)
        picture.cr.fill()


def _heap_top(picture):
    return picture.height - SIZE * len(HEAP)


def _heap(picture):
    return [(column * SIZE, _heap_top(picture) + row * SIZE, int(kind))
            for row, line in enumerate(HEAP) for column, kind in enumerate(line) if kind != "."]


def _gap(picture):
    """Broken corners round the place that the figure would fill."""
    for column, row in FIGURE_CELLS:
        x, y = column * SIZE, _heap_top(picture) + row * SIZE
        for dx, dy, width, height in ((5, 0, 6, 1), (5, 15, 6, 1), (0, 5, 1, 6), (15, 5, 1, 6)):
            beside = (column + (dx > 5) - (dx == 0), row + (dy > 5) - (dy == 0))
            if beside in FIGURE_CELLS and (dx in (0, 15) or dy in (0, 15)):
                continue
            picture.mask.rectangle(x + dx, y + dy, width, height)
            picture.mask.fill()
            plates.bar(picture.cr, f"tile-{FIGURE}", x + dx, y + dy, width, height)


def _key(picture, key):
    """The key cap with its name, and what it is for."""
    plates.plate(picture, PLATE_LEFT, 0, PLATE_WIDTH, PLATE_HEIGHT, plates.REST,
                 thickness=craft().outline)
    _centred(picture, "PRESS", "small", ("pale-top", "pale-bottom"), 6)
    keycaps.cap(picture, key, (picture.width - CAP_WIDTH) // 2, 24, CAP_WIDTH, CAP_HEIGHT)
    _centred(picture, "TO JOIN", "small", ("amber-top", "amber-bottom"), 79)


def to_join(key):
    """A painter of the invitation with the key that starts a side."""
    def paint(width, height):
        picture = Picture(width, height, "halo")
        _key(picture, key)
        _tiles(picture, _heap(picture), SLEEP)
        _gap(picture)
        _tiles(picture, [(column * SIZE, FIGURE_TOP + row * SIZE, FIGURE)
                         for column, row in FIGURE_CELLS])
        craft().dream(picture, _heap_top(picture))
        return picture
    return paint
