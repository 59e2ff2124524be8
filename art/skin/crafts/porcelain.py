"""Porcelain on paper: white glaze with cobalt lines, washes of water colour, soft round tiles."""

import math
import random

import cairo

from .. import boards, current, emblems, letters, plates, shapes, sources, titles
from ..colours import BLACK, WHITE, colour, mix
from ..tiles import SIZE
from .craft import Craft, Lettering

GROUND_LEFT, LOGO_LEFT = 55, 8
# The landscape beside the menu, in the coordinates of the logo's picture: ridges and their washes.
HILLS = (
    (((-10, 330, 0), (22, 318, 20), (60, 356, 30), (98, 400, 30), (150, 480, 0)), "hill-3", "hill-4"),
    (((-10, 400, 0), (26, 378, 24), (70, 424, 30), (132, 452, 30), (190, 482, 0)), "hill-2", "hill-3"),
    (((-10, 430, 0), (30, 446, 30), (84, 452, 30), (140, 482, 0)), "hill-1", "hill-2"),
    (((634, 352, 0), (598, 340, 20), (560, 386, 30), (524, 420, 30), (470, 482, 0)),
     "hill-3", "hill-4"),
    (((634, 420, 0), (590, 404, 24), (550, 446, 30), (500, 462, 20), (462, 482, 0)),
     "hill-2", "hill-3"),
    (((634, 446, 0), (580, 452, 30), (530, 470, 20), (506, 482, 0)), "hill-1", "hill-2"),
)
SCORE_HILLS = (
    (((-4, 424, 0), (30, 418, 16), (80, 446, 20), (146, 482, 0)), "hill-3", "hill-4"),
    (((-4, 446, 0), (30, 440, 16), (70, 462, 20), (110, 482, 0)), "hill-2", "hill-3"),
    (((536, 430, 0), (500, 420, 16), (450, 452, 20), (400, 482, 0)), "hill-3", "hill-4"),
    (((536, 450, 0), (496, 446, 16), (460, 466, 20), (430, 482, 0)), "hill-2", "hill-3"),
)
BRANCHES = (
    (((630, 118), (606, 136), (584, 140), (560, 156), (540, 158), (520, 172)), 8),
    (((592, 140), (580, 166), (584, 186), (572, 208)), 5),
    (((562, 154), (548, 140), (536, 134)), 4),
)
BLOSSOMS = ((606, 130, 8), (574, 150, 7), (536, 132, 6), (521, 172, 7), (582, 186, 8), (572, 210, 6),
            (548, 162, 5), (596, 160, 5), (520, 224, 4), (552, 262, 5), (604, 236, 4))
FALLING = ((66, 284, 19, 0.3, "4"), (594, 304, 20, -0.35, "7"), (36, 132, 15, -0.3, "6"),
           (536, 356, 16, 0.5, "2"))
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
    lettering = Lettering(letters.Type(1.1, 1.1, 2.4, 2, 2), letters.Type(1.1, 1.2, 2.4, 2, 2), 1, INK, ("number-top", "number-bottom"))
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
        """A sheet of paper with washes in its corners."""
        self._paper(picture.cr, picture.width, picture.height)

    def _paper(self, cr, width, height):
        for x, y, reach, name in ((20, 420, 210, "wash-1"), (500, 130, 190, "wash-2"),
                                  (470, 470, 170, "wash-3"), (60, 110, 150, "wash-1")):
            self._wash(cr, x, y, reach, name)
        self._grain(cr, width, height)

    def sides(self, picture):
        """The paper goes on at both sides, torn at its edges, with a landscape brushed on it."""
        cr, width, height = picture.cr, picture.width, picture.height
        plates.bar(cr, "ground", 0, 0, width, height)
        cr.save()
        cr.translate(GROUND_LEFT - LOGO_LEFT, 0)
        self._paper(cr, 520, height)
        cr.restore()
        for x, across in titles.SIDES:
            picture.mask.rectangle(x, 0, across, height)
        picture.mask.fill()
        self._disc(picture, 58, 196, 31, "sun")
        for points, near, far in HILLS:
            self._hill(picture, points, near, far)
        self._branch(picture)
        for figure in FALLING:
            self._falling(picture, *figure)
        for y in range(height):
            self._torn(cr, y, (0, _wave(y, height, 3)), (width, -_wave(y, height, 4)))

    def _disc(self, picture, x, y, reach, name):
        for context in (picture.cr, picture.mask):
            context.arc(x, y, reach, 0, 2 * math.pi)
        picture.mask.fill()
        picture.cr.set_source_rgb(*colour(name))
        picture.cr.fill()

    def _hill(self, picture, points, near, far):
        """A hill in one wash that pales towards its foot. Points are (x, y, radius) along its ridge."""
        height = picture.height
        outline = [(points[0][0], height, 0), *points, (points[-1][0], height, 0)]
        for context in (picture.cr, picture.mask):
            shapes.polyline(context, outline, True)
        picture.mask.fill()
        top = min(y for _, y, _ in points)
        picture.cr.set_source(plates.downwards(top, height - top, near, far))
        picture.cr.fill()

    def _stroke(self, picture, points, pen, name):
        """A stroke of the brush, thinner towards its end."""
        for context in (picture.cr, picture.mask):
            context.set_line_cap(cairo.LINE_CAP_ROUND)
        for i, (start, end) in enumerate(zip(points, points[1:])):
            for context in (picture.cr, picture.mask):
                context.set_line_width(pen * (1 - 0.7 * i / len(points)))
                context.move_to(*start)
                context.line_to(*end)
            picture.mask.stroke()
            picture.cr.set_source_rgb(*colour(name))
            picture.cr.stroke()

    def _branch(self, picture):
        """A twig in blossom, from the right edge."""
        for points, pen in BRANCHES:
            self._stroke(picture, points, pen, "branch")
        for x, y, reach in BLOSSOMS:
            for turn in range(5):
                angle = 2 * math.pi * turn / 5 + x
                self._disc(picture, x + reach * math.cos(angle), y + reach * math.sin(angle),
                           reach * 0.72, "petal" if turn % 2 else "petal-light")
            self._disc(picture, x, y, reach * 0.45, "tile-1")

    def _falling(self, picture, x, y, size, turn, name):
        """A large tilted figure of porcelain."""
        rows = sources.grids(sources.ART / "figures.txt")[name]
        for context in (picture.cr, picture.mask):
            context.save()
            context.translate(x, y)
            context.rotate(turn)
            context.scale(size / SIZE, size / SIZE)
            context.translate(-len(rows[0]) * SIZE / 2, -len(rows) * SIZE / 2)
        base = colour(f"tile-{name}")
        for row, line in enumerate(rows):
            for column, sign in enumerate(line):
                if sign == "#":
                    x, y = column * SIZE, row * SIZE
                    picture.cover(shapes.rounded_rectangle, x, y, SIZE, SIZE, 4)
                    picture.cr.set_source_rgb(*mix(base, BLACK, 0.52))
                    shapes.rounded_rectangle(picture.cr, x, y, SIZE, SIZE, 4)
                    picture.cr.fill()
                    self._glaze(picture.cr, x + 1, y + 1, SIZE - 2, base)
        picture.cr.restore()
        picture.mask.restore()

    def column(self, picture, width, depth, side):
        """A slip of coloured paper with a fine line inside its edge."""
        super().column(picture, width, depth, side)
        plates.line(picture.cr, f"{side}-line", 2, 2, width - 4, depth - 4, self.radius - 2, 1)

    def table(self, picture):
        """The paper as far as the picture reaches, torn at its edges."""
        cr, width, height = picture.cr, picture.width, picture.height
        plates.bar(cr, "ground", 520, 0, width, height)
        picture.mask.rectangle(521, 0, width, height)
        picture.mask.fill()
        for points, near, far in SCORE_HILLS:
            self._hill(picture, points, near, far)
        for y in range(height):
            left, right = _wave(y, height, 3), _wave(y, height, 4)
            picture.mask.rectangle(0, y, math.ceil(left + 2), 1)
            self._torn(cr, y, (0, left), (width, -right))
        picture.mask.fill()
        super().table(picture)

    def row(self, cr, x, y, width, height, name):
        """A slip of porcelain."""
        super().row(cr, x, y, width, height, name)
        plates.bar(cr, f"{name}-foot", x + 6, y + height - 3, width - 12, 1)

    def socket(self, cr, x, y):
        """A hollow in the glaze."""
        plates.box(cr, "socket-edge", x + 1, y + 1, 14, 14, 3)
        plates.box(cr, "socket", x + 2, y + 2, 13, 13, 3)

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
        """One tile: a soft round glaze in a darker line, with its mark inlaid. The eighth is gold."""
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
        mark = sources.grids(sources.own(current.skin(), "marks.txt"))[str(kind)]
        for row, line in enumerate(mark):
            for column, sign in enumerate(line):
                if sign != ".":
                    cr.set_source_rgba(*colour(f"mark-{kind}"), 1 if sign == "#" else 0.45)
                    cr.rectangle(x + 3 + column, y + 3 + row, 1, 1)
                    cr.fill()

    def _leaf(self, picture, x, y):
        """A tile of gold leaf, open at both sides, so that a row of them is one band."""
        cr = picture.cr
        picture.mask.rectangle(x, y, SIZE, SIZE)
        picture.mask.fill()
        light = cairo.LinearGradient(0, y, 0, y + SIZE)
        for place, name in ((0, "leaf-edge"), (0.06, "leaf-edge"), (0.07, "leaf"), (0.34, "leaf-light"),
                            (0.66, "leaf-light"), (0.93, "leaf"), (0.94, "leaf-edge"),
                            (1, "leaf-edge")):
            light.add_color_stop_rgb(place, *colour(name))
        cr.set_source(light)
        cr.rectangle(x, y, SIZE, SIZE)
        cr.fill()
        cr.set_source_rgb(*WHITE)
        emblems.star(cr, x + SIZE / 2, y + SIZE / 2, 7, 4, 0.26)
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
