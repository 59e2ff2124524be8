"""Porcelain on paper: white glaze with cobalt lines, washes of water colour, soft round tiles."""

import math

import cairo

from .. import boards, emblems, letters, plates, shapes
from ..colours import BLACK, WHITE, colour, mix
from ..tiles import SIZE
from .craft import Lettering
from .landscape import Landscape

# Gold leaf, from above.
LEAF = ((0, "leaf-edge"), (0.1, "leaf-edge"), (0.11, "leaf-dark"), (0.3, "leaf"),
        (0.46, "leaf-light"), (0.54, "leaf-light"), (0.7, "leaf"), (0.89, "leaf-dark"),
        (0.9, "leaf-edge"), (1, "leaf-edge"))
INK = ("letter-top", "letter-bottom")


class Porcelain(Landscape):
    """The craft of Daylight."""

    radius = 8
    wall = 18
    round_pen = True
    press = 0
    lettering = Lettering(letters.Type(1.1, 1.1, 2.4, 2, 2), letters.Type(1.1, 1.2, 2.4, 2, 2), 1,
                          INK, ("number-top", "number-bottom"))
    score_kinds = (7, 5)

    # plates

    def line_of(self, look):
        """Cobalt; what cannot be used is but a print on the paper."""
        return "edge" if look.enabled else look.dark

    def face(self, cr, x, y, width, height, look, radius):
        """A glaze: graded, thicker at the foot, with a fine inner line."""
        cr.save()
        shapes.rounded_rectangle(cr, x, y, width, height, radius)
        cr.clip()
        cr.set_source(plates.downwards(y, height, look.top, look.bottom))
        cr.paint()
        foot, head = (look.light, look.dark) if look.sunken else (look.dark, look.light)
        if look.enabled:
            plates.bar(cr, head, x, y, width, 1)
            plates.bar(cr, foot, x, y + height - 2, width, 2)
        cr.restore()

    def panel(self, cr, x, y, width, height, radius):
        """A plaque of porcelain with a double line."""
        self.plate(cr, x, y, width, height, plates.FRAME, radius, 1)

    def well(self, cr, x, y, width, height, radius=4):
        """A hollow in the glaze."""
        plates.box(cr, "frame-line", x, y, width, height, radius)
        plates.box(cr, "glass", x + 1, y + 1, width - 2, height - 2, radius - 1)
        plates.bar(cr, "frame-dark", x + radius, y + 1, width - 2 * radius, 1)

    # grounds

    def column(self, picture, width, depth, side):
        """A slip of coloured paper with a fine line inside its edge."""
        super().column(picture, width, depth, side)
        plates.line(picture.cr, f"{side}-line", 2, 2, width - 4, depth - 4, self.radius - 2, 1)

    def row(self, cr, x, y, width, height, name):
        """A slip of porcelain."""
        super().row(cr, x, y, width, height, name)
        plates.bar(cr, f"{name}-foot", x + 6, y + height - 3, width - 12, 1)

    def socket(self, cr, x, y):
        """A hollow in the glaze."""
        plates.box(cr, "socket-edge", x + 1, y + 1, 14, 14, 3)
        plates.box(cr, "socket", x + 2, y + 2, 13, 13, 3)

    def half(self, picture):
        """The same paper between two painted lines, with a plaque for the values."""
        cr, width, height = picture.cr, picture.width, picture.height
        for x, y, reach, name in ((20, 330, 120, "wash-1"), (120, 60, 120, "wash-2"),
                                  (300, 200, 110, "wash-3")):
            for turn in (-width, 0, width):
                self._wash(cr, x + turn, y, reach, name)
        self._grain(cr, width, height)
        for y in (0, height - 2):
            plates.bar(cr, "edge", 0, y, width, 2)
        left, across = boards.PANEL_LEFT, boards.PANEL_WIDTH - 1
        self.panel(cr, left, 0, across, height + 8, 7)
        self.well(cr, boards.VALUES_LEFT, 3, boards.VALUES_WIDTH - 1, boards.VALUES_TOP - 5)
        for top, bottom in boards.DISPLAYS:
            self._flower(cr, left + across / 2, (top + bottom) / 2)
        self.well(cr, boards.VALUES_LEFT, boards.VALUES_TOP, boards.VALUES_WIDTH - 1, height)
        self._spray(cr, left + across / 2, 268)
        plates.bar(cr, "score-plate", boards.VALUES_LEFT + 1, boards.SCORE_TOP,
                   boards.VALUES_WIDTH - 3, height)
        plates.bar(cr, "frame-line", boards.VALUES_LEFT + 1, boards.SCORE_TOP,
                   boards.VALUES_WIDTH - 3, 1)

    def _spray(self, cr, x, y):
        """A painted spray where two of the values may be missing, so pale that they read on it."""
        cr.save()
        cr.set_source_rgb(*colour("spray"))
        cr.set_line_width(2)
        cr.set_line_cap(cairo.LINE_CAP_ROUND)
        cr.move_to(x - 4, y + 50)
        cr.curve_to(x + 14, y + 20, x - 18, y - 6, x + 2, y - 38)
        cr.stroke()
        for dx, dy, turn in ((9, 32, 0.5), (-10, 22, -2.2), (9, 8, 0.3), (-15, -2, -2.4),
                             (6, -16, 0.2), (2, -42, -1.4)):
            cr.save()
            cr.translate(x + dx, y + dy)
            cr.rotate(turn)
            cr.scale(11, 4.4)
            cr.arc(0, 0, 1, 0, 2 * math.pi)
            cr.restore()
            cr.fill()
        cr.restore()

    # the board

    def board(self, picture, left, inside, depth):
        """Walls and floor of white porcelain, painted with a sprig for each row."""
        cr, width, height = picture.cr, picture.width, picture.height
        full = width - 2 * left
        picture.cover(shapes.rounded_rectangle, left, 0, full, height, self.radius)
        self.panel(cr, left, 0, full, height, self.radius)
        middle = (inside + left) / 2
        for x, turn in ((middle, 1), (width - middle, -1)):
            for row in range(depth // boards.CELL):
                self._sprig(cr, x, row * boards.CELL + boards.CELL / 2, turn)
        for column in range(boards.COLUMNS):
            self._sprig(cr, inside + (column + 0.5) * boards.CELL, height - 9, 1)
        self._inside(cr, inside, depth)

    def _sprig(self, cr, x, y, turn):
        """A flower of four petals and its leaf."""
        cr.set_source_rgb(*colour("frame-line"))
        for dx, dy in ((-2, 0), (2, 0), (0, -2), (0, 2)):
            cr.arc(x + dx, y + dy, 1.25, 0, 2 * math.pi)
            cr.fill()
        cr.set_source_rgba(*colour("frame-line"), 0.45)
        cr.arc(x + 3.6 * turn, y + 6, 1, 0, 2 * math.pi)
        cr.arc(x - 3.6 * turn, y - 6, 1, 0, 2 * math.pi)
        cr.fill()

    def _flower(self, cr, x, y):
        """A painted flower for the place of a display that may be switched off."""
        cr.set_source_rgba(*colour("frame-line"), 0.55)
        for turn in range(8):
            angle = math.pi * turn / 4
            cr.arc(x + 11 * math.cos(angle), y + 11 * math.sin(angle), 6 if turn % 2 else 4, 0,
                   2 * math.pi)
            cr.fill()
        for name, reach in (("frame", 7), ("frame-line", 4)):
            cr.set_source_rgb(*colour(name))
            cr.arc(x, y, reach, 0, 2 * math.pi)
            cr.fill()
        for dx in (-30, 30):
            self._sprig(cr, x + dx, y, 1)

    def _inside(self, cr, left, depth):
        """The inside, striped for the columns, in the shadow of the left wall."""
        width = boards.CELL * boards.COLUMNS
        plates.bar(cr, "edge", left - 2, 0, width + 4, depth + 2)
        for column in range(boards.COLUMNS):
            name = "board-stripe" if column % 2 else "board"
            plates.bar(cr, name, left + column * boards.CELL, 0, boards.CELL, depth)
        shade = cairo.LinearGradient(left, 0, left + 3, 0)
        shade.add_color_stop_rgba(0, *colour("board-shade"), 0.3)
        shade.add_color_stop_rgba(1, *colour("board-shade"), 0)
        cr.set_source(shade)
        cr.rectangle(left, 0, 3, depth)
        cr.fill()

    # tiles

    def tile(self, picture, x, y, kind):
        """One tile: a soft round glaze in a darker line with an inlaid mark. The eighth is gold."""
        if kind == 8:
            self._leaf(picture, x, y)
            return
        base = colour(f"tile-{kind}")
        cr = picture.cr
        picture.cover(shapes.rounded_rectangle, x, y, SIZE, SIZE, 4)
        cr.set_source_rgb(*mix(base, BLACK, 0.52))
        cr.rectangle(x, y, SIZE, SIZE)
        cr.fill()
        self._glaze(cr, x + 1, y + 1, SIZE - 2, base)
        self.mark(cr, x, y, kind)

    def _leaf(self, picture, x, y):
        """A tile of gold leaf, open at both sides, so that a row of them is one band."""
        self.gleam(picture, x, y, LEAF)
        cr = picture.cr
        cr.set_source_rgb(*WHITE)
        emblems.star(cr, x + SIZE / 2, y + SIZE / 2, 7, 4, 0.26)
        cr.fill()

    def bar(self, cr, x, width, height, kind):
        """A bar of the statistics: a stroke of the glaze."""
        base = colour(f"tile-{kind}")
        cr.set_source_rgb(*mix(base, BLACK, 0.52))
        cr.rectangle(x, 0, width, height)
        cr.fill()
        gradient = cairo.LinearGradient(x, 0, x + width, 0)
        gradient.add_color_stop_rgb(0, *mix(base, WHITE, 0.4))
        gradient.add_color_stop_rgb(1, *base)
        cr.set_source(gradient)
        cr.rectangle(x + 1, 0, width - 2, height)
        cr.fill()

    # titles

    def title(self, picture, text, large, kinds):
        """Brush letters in water colour, cut out of white paper."""
        cut = letters.Type(4.7, 5.6, 18, 14) if large else letters.Type(3, 3.6, 11, 10)
        pen = cut.pen
        layers = ((pen, "black", 0.3), (pen - 3, "black", 0), (pen - 8, "frame", 0.16),
                  (pen / 8, "frame", 0.75))
        self.stroked_title(picture, text, kinds, cut, layers, ("title-shadow", 3))
