"""Porcelain on paper: white glaze with cobalt lines, washes of water colour, soft round tiles."""

import math
import random

import cairo

from .. import boards, current, letters, plates, shapes, sources
from ..colours import BLACK, WHITE, colour, mix
from ..tiles import SIZE
from .craft import Craft, Lettering

INK = ("letter-top", "letter-bottom")


def _wave(place, length, seed):
    """A wavering line that closes after a length: how far the edge of the paper lies in."""
    chance = random.Random(seed)
    return 2.5 + sum(
        weight * math.sin(2 * math.pi * (turns * place / length + chance.random()))
        for turns, weight in ((3, 0.8), (11, 0.7), (29, 0.5), (67, 0.4)))


class Porcelain(Craft):
    """The craft of Daylight."""

    radius = 8
    wall = 18
    round_pen = True
    press = 0
    lettering = Lettering(letters.Type(1, 1, 2.4, 2, 2), 1, INK, ("number-top", "number-bottom"))
    score_kinds = (7, 5)

    # plates

    def plate(self, cr, x, y, width, height, look, radius, thickness):
        """A glazed plate in a cobalt line; what cannot be used is but a print on the paper."""
        name = "edge" if look.enabled else look.dark
        plates.box(cr, name, x, y, width, height, radius)
        self.face(cr, x + thickness, y + thickness, width - 2 * thickness,
                  height - 2 * thickness, look, max(radius - thickness, 1))

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

    def ground(self, picture):
        """A sheet of paper with washes in its corners, torn at the sides."""
        cr, width, height = picture.cr, picture.width, picture.height
        for x, y, reach, name in ((20, 420, 210, "wash-1"), (500, 130, 190, "wash-2"),
                                  (470, 470, 170, "wash-3"), (60, 110, 150, "wash-1")):
            self._wash(cr, x, y, reach, name)
        self._grain(cr, width, height)
        for y in range(height):
            left, right = _wave(y, height, 3), _wave(y, height, 4)
            self._torn(cr, y, (0, left), (width, -right))

    def _wash(self, cr, x, y, reach, name):
        """A wash: pale within, darker where the water dried."""
        for part, strength in ((1, 0.20), (0.93, 0.16), (0.8, 0.14)):
            chance = random.Random(f"{x} {y} {part}")
            points = []
            for i in range(11):
                angle = 2 * math.pi * i / 11
                far = reach * part * (0.66 + 0.34 * chance.random())
                points.append((x + far * math.cos(angle), y + 0.8 * far * math.sin(angle),
                               reach / 4.5))
            shapes.polyline(cr, points, True)
            cr.set_source_rgba(*colour(name), strength)
            cr.fill_preserve()
            cr.set_source_rgba(*colour(name), strength * 1.4)
            cr.set_line_width(1.5)
            cr.stroke()

    def _grain(self, cr, width, height):
        """The grain of the paper, so faint that it never disturbs lettering."""
        chance = random.Random(1)
        for _ in range(width * height // 28):
            value = WHITE if chance.random() < 0.5 else colour("ground-shade")
            cr.set_source_rgba(*value, 0.35)
            cr.rectangle(chance.randrange(width), chance.randrange(height), 1 + chance.random(), 1)
            cr.fill()

    def _torn(self, cr, y, *sides):
        """One row of the torn edges: a line of shade, and the dark beside the paper."""
        for start, inwards in sides:
            shade = inwards + math.copysign(2, inwards)
            cr.set_source_rgb(*colour("ground-shade"))
            cr.rectangle(start, y, shade, 1)
            cr.fill()
            cr.set_source_rgb(*BLACK)
            cr.rectangle(start, y, inwards, 1)
            cr.fill()

    def half(self, picture):
        """The same paper, torn above and below, with a plaque for the values."""
        cr, width, height = picture.cr, picture.width, picture.height
        for x, y, reach, name in ((20, 330, 120, "wash-1"), (120, 60, 120, "wash-2"),
                                  (300, 200, 110, "wash-3")):
            for turn in (-width, 0, width):
                self._wash(cr, x + turn, y, reach, name)
        self._grain(cr, width, height)
        cr.save()
        cr.transform(cairo.Matrix(0, 1, 1, 0, 0, 0))
        for x in range(width):
            self._torn(cr, x, (0, _wave(x, width, 5)), (height, -_wave(x, width, 6)))
        cr.restore()
        left, across = boards.PANEL_LEFT, boards.PANEL_WIDTH - 1
        self.panel(cr, left, 2, across, height - 2, 7)
        for top, bottom in boards.DISPLAYS:
            self._flower(cr, left + across / 2, (top + bottom) / 2)
        self.well(cr, boards.VALUES_LEFT, boards.VALUES_TOP, boards.VALUES_WIDTH - 1,
                  boards.VALUES_HEIGHT)
        for y in boards.RULES:
            plates.bar(cr, "frame-dark", left + 8, y, across - 16, 1)

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
        shade = cairo.LinearGradient(left, 0, left + 12, 0)
        shade.add_color_stop_rgba(0, *colour("board-shade"), 0.5)
        shade.add_color_stop_rgba(1, *colour("board-shade"), 0)
        cr.set_source(shade)
        cr.rectangle(left, 0, 12, depth)
        cr.fill()

    # tiles

    def tile(self, picture, x, y, kind):
        """One tile: a soft round glaze in a darker line, with its mark inlaid."""
        base = colour(f"tile-{kind}")
        cr = picture.cr
        picture.cover(shapes.rounded_rectangle, x, y, SIZE, SIZE, 4)
        cr.set_source_rgb(*mix(base, BLACK, 0.52))
        cr.rectangle(x, y, SIZE, SIZE)
        cr.fill()
        self._glaze(cr, x + 1, y + 1, SIZE - 2, base)
        mark = sources.grids(sources.own(current.skin(), "marks.txt"))[str(kind)]
        for row, line in enumerate(mark):
            for column, sign in enumerate(line):
                if sign != ".":
                    cr.set_source_rgba(*colour(f"mark-{kind}"), 1 if sign == "#" else 0.45)
                    cr.rectangle(x + 3 + column, y + 3 + row, 1, 1)
                    cr.fill()

    def _glaze(self, cr, x, y, size, base):
        """A glaze that is thin and bright at the top left, and gathers at the bottom right."""
        gradient = cairo.LinearGradient(x, y, x + size, y + size)
        for place, value in ((0, mix(base, WHITE, 0.42)), (0.5, base), (1, mix(base, BLACK, 0.16))):
            gradient.add_color_stop_rgb(place, *value)
        shapes.rounded_rectangle(cr, x, y, size, size, 3.2)
        cr.set_source(gradient)
        cr.fill()
        cr.set_source_rgba(*WHITE, 0.7)
        cr.rectangle(x + 2, y + 1, size - 7, 1)
        cr.rectangle(x + 1, y + 2, 1, size - 9)
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
