"""The tiles of midnight enamel, and the light that completed rows become."""

import cairo

from .. import current, emblems, shapes, sources
from ..colours import BLACK, WHITE, colour, mix
from ..tiles import SIZE
from .craft import Craft

# The light of a completed row, from above.
LIGHT = ((0, "light-rim"), (0.14, "light-edge"), (0.3, "light"), (0.4, "white"), (0.6, "white"),
         (0.7, "light"), (0.86, "light-edge"), (1, "light-rim"))
RIM = 0.68  # how dark the rim of a tile is


def _slope(x, y, size, stops):
    """A gradient from the top left corner of a square to its bottom right one."""
    gradient = cairo.LinearGradient(x, y, x + size, y + size)
    for place, value in stops:
        gradient.add_color_stop_rgb(place, *value)
    return gradient


def _pixel(cr, x, y, value):
    cr.set_source_rgb(*value)
    cr.rectangle(x, y, 1, 1)
    cr.fill()


def _dots(mark):
    return sorted((c, r) for r, row in enumerate(mark) for c, sign in enumerate(row) if sign == "#")


class EnamelTiles(Craft):
    """Polished tiles in a light from the top left."""

    def tile(self, picture, x, y, kind):
        """One tile: rim, bevel, face, and its mark engraved. The eighth is light.

        The outermost pixel of each corner stays free.
        """
        if kind == 8:
            self._spark(picture, x, y)
            return
        base = colour(f"tile-{kind}")
        picture.mask.rectangle(x + 1, y, SIZE - 2, SIZE)
        picture.mask.rectangle(x, y + 1, SIZE, SIZE - 2)
        picture.mask.fill()
        self._enamel(picture.cr, x, y, base)
        mark = _dots(sources.grids(sources.own(current.skin(), "marks.txt"))[str(kind)])
        self._engrave(picture.cr, x + 3, y + 3, base, mark)

    def _enamel(self, cr, x, y, base):
        """A tile without its mark: dark rim, bevel towards the light, face with a sheen."""
        cr.set_source_rgb(*mix(base, BLACK, RIM))
        cr.rectangle(x, y, SIZE, SIZE)
        cr.fill()
        cr.set_source(_slope(x, y, SIZE, (
            (0.0, mix(base, WHITE, 0.75)), (0.47, mix(base, WHITE, 0.55)),
            (0.53, mix(base, BLACK, 0.48)), (1.0, mix(base, BLACK, 0.6)))))
        shapes.rounded_rectangle(cr, x + 1, y + 1, SIZE - 2, SIZE - 2, 1.5)
        cr.fill()
        cr.set_source(_slope(x, y, SIZE, ((0.1, mix(base, WHITE, 0.6)), (0.42, base),
                                          (0.95, mix(base, BLACK, 0.16)))))
        shapes.rounded_rectangle(cr, x + 3, y + 3, SIZE - 6, SIZE - 6, 1)
        cr.fill()

    def _engrave(self, cr, x, y, base, dots):
        """Cuts a mark into the face: dark in the groove, bright on the lip that faces the light."""
        for column, row in dots:
            _pixel(cr, x + column + 1, y + row + 1, mix(base, WHITE, 0.5))
        for column, row in dots:
            shaded = (column - 1, row - 1) not in dots
            _pixel(cr, x + column, y + row, mix(base, BLACK, 0.7 if shaded else 0.56))

    def _spark(self, picture, x, y):
        """A tile of light: white-hot in the middle, with a spark, and open at both sides: a row of
        them is one bar of light."""
        self.gleam(picture, x, y, LIGHT)
        cr = picture.cr
        for reach, strength in ((7, 0.55), (4, 1)):
            cr.set_source_rgba(*WHITE, strength)
            emblems.star(cr, x + SIZE / 2, y + SIZE / 2, reach, 4, 0.22)
            cr.fill()

    def bar(self, cr, x, width, height, kind):
        """A bar of the statistics: a rod of enamel."""
        base = colour(f"tile-{kind}")
        values = [mix(base, BLACK, 0.25), mix(base, WHITE, 0.5), mix(base, WHITE, 0.18)]
        values += [base] * (width - 5) + [mix(base, BLACK, 0.3), mix(base, BLACK, 0.6)]
        for column, value in enumerate(values):
            cr.set_source_rgb(*value)
            cr.rectangle(x + column, 0, 1, height)
            cr.fill()
