"""The furniture of the game screen: grounds, the frame of the board and its displays."""

import cairo

from . import plates, shapes
from .colours import colour, mix
from .picture import Picture

WALL, FLOOR = 29, 20
CELL, COLUMNS = 16, 10
LATTICE = 16
# The displays of the values on the game screen: how far down each one begins.
VALUES = (152, 200, 248, 296, 355)
VALUE_LEFT, VALUE_WIDTH, VALUE_HEIGHT = 236, 80, 16


def _bar(cr, name, x, y, width, height):
    cr.set_source_rgb(*colour(name))
    cr.rectangle(x, y, width, height)
    cr.fill()


def ground(width, height):
    """The tile of the menu ground: a lattice so faint that it never disturbs lettering."""
    picture = Picture(width, height, "ground")
    picture.cover_all()
    cr = picture.cr
    for y in range(0, height, LATTICE):
        for x in range(0, width, LATTICE):
            _lattice_cell(cr, x, y)
    return picture


def _lattice_cell(cr, x, y):
    cr.set_source_rgb(*mix(colour("ground"), colour("ground-dark"), 0.5))
    cr.rectangle(x, y, LATTICE, 1)
    cr.rectangle(x, y, 1, LATTICE)
    cr.fill()
    cr.set_source_rgb(*mix(colour("ground"), colour("ground-light"), 0.3))
    cr.rectangle(x + 1, y + 1, LATTICE - 1, 1)
    cr.rectangle(x + 1, y + 1, 1, LATTICE - 1)
    cr.fill()


def half(width, height):
    """One half of the game screen. It comes out of the dark above and sinks into it below."""
    picture = Picture(width, height, "half")
    picture.cover_all()
    cr = picture.cr
    _half_field(cr, width, height)
    _fade(cr, 0, 16, width)
    _fade(cr, height, height - 12, width)
    for y in VALUES:
        plates.display(cr, VALUE_LEFT, y, VALUE_WIDTH, VALUE_HEIGHT, "steel-dark")
    return picture


def _half_field(cr, width, height):
    gradient = cairo.LinearGradient(0, 0, 0, height)
    gradient.add_color_stop_rgb(0, *colour("half"))
    gradient.add_color_stop_rgb(1, *colour("half-low"))
    cr.set_source(gradient)
    cr.paint()
    cr.set_source_rgba(*colour("steel"), 0.05)
    for y in range(0, height, LATTICE):
        for x in range(0, width, LATTICE):
            cr.rectangle(x + 7, y + 7, 2, 2)
    cr.fill()


def _fade(cr, start, end, width):
    """Lets the picture come out of black between two heights."""
    gradient = cairo.LinearGradient(0, start, 0, end)
    gradient.add_color_stop_rgba(0, *colour("black"), 1)
    gradient.add_color_stop_rgba(1, *colour("black"), 0)
    cr.set_source(gradient)
    cr.rectangle(0, min(start, end), width, abs(end - start))
    cr.fill()


def playboard(width, height):
    """The board: two steel walls and a floor round a dark inside that is open to the top."""
    picture = Picture(width, height)
    picture.cover(shapes.rounded_rectangle, 0, 0, width, height, plates.RADIUS)
    plates.face(picture.cr, 1, 1, width - 2, height - 2, plates.STEEL)
    _wall(picture.cr, 0, height)
    _wall(picture.cr, width - WALL, height)
    _inside(picture.cr, WALL, height - FLOOR)
    _inlay(picture.cr, WALL, height - 14, CELL * COLUMNS, 8)
    for x in (WALL // 2, width - WALL // 2 - 1):
        _rivet(picture.cr, x, height - FLOOR // 2 - 1)
    return picture


def _wall(cr, x, height):
    """The inlay of a wall: a sunken panel with a slot for each row of the board."""
    top, bottom = 8, height - FLOOR - 4
    _inlay(cr, x + 8, top, WALL - 16, bottom - top)
    for y in range(CELL + CELL // 2, bottom - CELL // 2, CELL):
        _bar(cr, "glass", x + 12, y - 2, WALL - 24, 4)
        _bar(cr, "steel", x + 12, y - 1, WALL - 24, 1)


def _inlay(cr, x, y, width, height):
    shapes.rounded_rectangle(cr, x, y, width, height, 2)
    cr.set_source_rgb(*colour("steel-dark"))
    cr.fill()
    plates.bevel(cr, x, y, width, height, plates.STEEL._replace(sunken=True), 2)


def _rivet(cr, x, y):
    gradient = cairo.RadialGradient(x - 1, y - 1, 0, x, y, 4)
    gradient.add_color_stop_rgb(0, *colour("steel-light"))
    gradient.add_color_stop_rgb(0.6, *colour("steel"))
    gradient.add_color_stop_rgb(1, *colour("steel-dark"))
    cr.set_source(gradient)
    cr.arc(x, y, 3.5, 0, 6.2831853)
    cr.fill()


def _inside(cr, left, depth):
    """The inside, striped for the columns. Its right wall and floor face the light."""
    width = CELL * COLUMNS
    _bar(cr, "steel-light", left, depth, width + 2, 2)
    _bar(cr, "steel-light", left + width, 1, 2, depth)
    _bar(cr, "steel-dark", left - 2, 1, 2, depth + 1)
    _bar(cr, "edge", left - 1, 0, width + 2, depth + 1)
    for column in range(COLUMNS):
        name = "board-stripe" if column % 2 else "board"
        _bar(cr, name, left + column * CELL, 0, CELL, depth)


def _small_frame(width, height, wells):
    """A narrow steel frame round displays, given as (x, y, width, height)."""
    picture = Picture(width, height)
    plates.plate(picture, 1, 0, width - 2, height, plates.STEEL, 4)
    for well in wells:
        plates.display(picture.cr, *well)
    return picture


def preview_frame(width, height):
    """Round the next figure, whose cells lie 9 to 72 right and 14 to 45 down."""
    return _small_frame(width, height, ((5, 5, 72, height - 10),))


def statistics_frame(width, height):
    """Round the chart of the figures, with a display below it for their number."""
    return _small_frame(width, height, ((5, 6, 72, 32), (5, 43, 72, 19)))
