"""The icon of the program, in every size that desktops ask for."""

from typing import NamedTuple

import cairo

from . import shapes, sources
from .colours import BLACK, WHITE, colour, mix

LETTER, KIND = "K", 1  # and the tile whose colour it has


class Size(NamedTuple):
    """Measures of the icon in one size, in pixels."""

    side: int
    is_large: int
    cell: int
    depth: int
    bevel: int
    radius: int
    border: int

    @property
    def rows(self):
        """The cells of the letter: rows of small letters, one for each figure."""
        return _LOGO if self.is_large else _SMALL


def _sections():
    found = {}
    for line in sources.lines(sources.ART / "icon.txt"):
        if line.startswith(" "):
            rows.append(line.split())
        else:
            rows = found[line] = []
    return found


_SOURCE = _sections()
_SMALL = [row[0] for row in _SOURCE["letter"]]
_LOGO = sources.grids(sources.ART / "titles.txt")[LETTER]
SIZES = [Size(*map(int, row)) for row in _SOURCE["sizes"]]


def _plate(cr, size):
    """The plate: the night, with a light behind the letter. In large sizes its edge is lit."""
    side, line = size.side, size.border
    shapes.rounded_rectangle(cr, 0, 0, side, side, size.radius)
    edge = cairo.LinearGradient(0, 0, side, side)
    edge.add_color_stop_rgb(0, *colour("frame-light"))
    edge.add_color_stop_rgb(1, *colour("frame-dark"))
    cr.set_source(edge)
    cr.fill()
    shapes.rounded_rectangle(cr, line, line, side - 2 * line, side - 2 * line,
                             max(size.radius - line, 1))
    light = cairo.RadialGradient(side / 2, side * 0.4, 0, side / 2, side * 0.4, side * 0.75)
    light.add_color_stop_rgb(0, *colour("ground-glow"))
    light.add_color_stop_rgb(1, *colour("ground-dark"))
    cr.set_source(light)
    cr.fill()


def _cells(cr, size, names, shift=0):
    """Adds the cells of some figures of the letter to the path, moved to the right and down."""
    rows, cell = size.rows, size.cell
    left = (size.side - len(rows[0]) * cell - size.depth) // 2 + shift
    top = (size.side - len(rows) * cell - size.depth) // 2 + shift
    for y, row in enumerate(rows):
        for x, name in enumerate(row):
            if name in names:
                cr.rectangle(left + x * cell, top + y * cell, cell, cell)


def _edge(cr, size, name, shift):
    """Limits what is drawn to the part of a figure that a shifted copy of it does not cover."""
    _cells(cr, size, name)
    cr.clip()
    cr.rectangle(0, 0, size.side, size.side)
    _cells(cr, size, name, shift)
    cr.set_fill_rule(cairo.FILL_RULE_EVEN_ODD)
    cr.clip()


def _figure(cr, size, name, base):
    """One figure of the letter, with a light and a dark edge where there is room."""
    gradient = cairo.LinearGradient(0, 0, 0, size.side)
    gradient.add_color_stop_rgb(0.1, *mix(base, WHITE, 0.35))
    gradient.add_color_stop_rgb(0.9, *mix(base, BLACK, 0.12))
    cr.set_source(gradient)
    _cells(cr, size, name)
    cr.fill()
    if size.bevel:
        for value, shift in ((WHITE, size.bevel), (BLACK, -size.bevel)):
            cr.save()
            _edge(cr, size, name, shift)
            cr.set_source_rgba(*value, 0.45)
            cr.paint()
            cr.restore()


def draw(size, surface=None):
    """The icon as a surface with transparency, a given one or an image."""
    surface = surface or cairo.ImageSurface(cairo.FORMAT_ARGB32, size.side, size.side)
    cr = cairo.Context(surface)
    _plate(cr, size)
    base = colour(f"tile-{KIND}")
    names = sorted(set("".join(size.rows)) - {"."})
    for step in range(size.depth, 0, -1):
        cr.set_source_rgb(*mix(base, BLACK, 0.6 + 0.2 * step / size.depth))
        _cells(cr, size, names, step)
        cr.fill()
    for number, name in enumerate(names):
        tint = mix(base, (WHITE, BLACK)[number % 2], 0.06 * (number % 3)) if size.bevel else base
        _figure(cr, size, name, tint)
    surface.flush()
    return surface


def pixels(surface):
    """The pixels of a surface as numbers 0xAARRGGBB with plain, not multiplied, colours."""
    data = bytes(surface.get_data())
    found = []
    for i in range(0, len(data), 4):
        blue, green, red, alpha = data[i:i + 4]
        if alpha:
            blue, green, red = (min(255, round(c * 255 / alpha)) for c in (blue, green, red))
        found.append(alpha << 24 | red << 16 | green << 8 | blue)
    return found
