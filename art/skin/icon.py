"""The icon of the program, in every size that desktops ask for."""

from typing import NamedTuple

import cairo

from . import letters, shapes, sources
from .colours import BLACK, WHITE, colour, mix


class Size(NamedTuple):
    """Measures of the icon in one size, in pixels."""

    side: int
    border: int
    cell: int
    gap: int
    bevel: int
    radius: int
    pen: int

    def place(self, index):
        """Where a row or a column of tiles begins."""
        return self.border + index * (self.cell + self.gap)


def _sections():
    found = {}
    for line in sources.lines(sources.ART / "icon.txt"):
        if line.startswith(" "):
            rows.append(line.split())
        else:
            rows = found[line] = []
    return found


_SOURCE = _sections()
TILES = _SOURCE["tiles"]
SIZES = [Size(*map(int, row)) for row in _SOURCE["sizes"]]


def _gradient(x, y, size, first, second):
    gradient = cairo.LinearGradient(x, y, x + size, y + size)
    gradient.add_color_stop_rgb(0, *first)
    gradient.add_color_stop_rgb(1, *second)
    return gradient


def _plate(cr, size):
    """The plate. In large sizes its edge is lit."""
    side, radius = size.side, size.radius
    shapes.rounded_rectangle(cr, 0, 0, side, side, radius)
    cr.set_source(_gradient(0, 0, side, colour("frame"), colour("edge")))
    cr.fill()
    line = max(1, size.border // 3) if size.border > 1 else 0
    shapes.rounded_rectangle(cr, line, line, side - 2 * line, side - 2 * line, radius - line)
    cr.set_source(_gradient(0, 0, side, colour("plate-bottom"), colour("board")))
    cr.fill()


def _tile(cr, x, y, size, kind):
    """A tile: a light and a dark edge, a face, and in large sizes its mark."""
    base, cell, bevel = colour(f"tile-{kind}"), size.cell, size.bevel
    _corners(cr, x, y, cell, mix(base, WHITE, 0.6), mix(base, BLACK, 0.5))
    cr.set_source(_gradient(x, y, cell, mix(base, WHITE, 0.22), mix(base, BLACK, 0.14)))
    cr.rectangle(x + bevel, y + bevel, cell - 2 * bevel, cell - 2 * bevel)
    cr.fill()
    if size.pen:
        lip = size.pen / 4
        _marks(cr, x + lip, y + lip, size, kind, mix(base, WHITE, 0.5))
        _marks(cr, x, y, size, kind, mix(base, BLACK, 0.6))


def _corners(cr, x, y, cell, light, dark):
    """A square that is light at its upper left half and dark at its lower right one."""
    cr.set_source_rgb(*dark)
    cr.rectangle(x, y, cell, cell)
    cr.fill()
    cr.set_source_rgb(*light)
    cr.move_to(x, y)
    cr.line_to(x + cell, y)
    cr.line_to(x, y + cell)
    cr.close_path()
    cr.fill()


def _marks(cr, x, y, size, kind, value):
    field = 2 * round(size.cell * 0.22)
    inset = (size.cell - field) / 2
    cr.set_source_rgb(*value)
    for name, *words in _SOURCE["marks"]:
        if name == kind:
            glyph = letters.Glyph(10, 10, [letters.stroke(" ".join(words))])
            letters.draw_glyph(cr, glyph, x + inset, y + inset, field, size.pen)


def draw(size, surface=None):
    """The icon as a surface with transparency, a given one or an image."""
    surface = surface or cairo.ImageSurface(cairo.FORMAT_ARGB32, size.side, size.side)
    cr = cairo.Context(surface)
    _plate(cr, size)
    for row, line in enumerate(TILES):
        for column, kind in enumerate(line):
            if kind != ".":
                _tile(cr, size.place(column), size.place(row), size, kind)
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
