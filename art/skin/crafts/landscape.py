"""The paper of Daylight, and the landscape that is brushed on it."""

import math
import random

import cairo

from .. import plates, shapes, sources, titles
from ..colours import BLACK, WHITE, colour, mix
from ..tiles import SIZE
from .craft import Craft

GROUND_LEFT, LOGO_LEFT = 55, 8
# The landscape beside the menu, in the coordinates of the logo's picture: ridges and their washes.
HILLS = (
    (((-10, 330, 0), (22, 318, 20), (60, 356, 30), (98, 400, 30), (150, 480, 0)),
     "hill-3", "hill-4"),
    (((-10, 400, 0), (26, 378, 24), (70, 424, 30), (132, 452, 30), (190, 482, 0)),
     "hill-2", "hill-3"),
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
BLOSSOMS = ((606, 130, 8), (574, 150, 7), (536, 132, 6), (521, 172, 7), (582, 186, 8),
            (572, 210, 6), (548, 162, 5), (596, 160, 5), (520, 224, 4),
            (552, 262, 5), (604, 236, 4))
FALLING = ((66, 284, 19, 0.3, "4"), (594, 304, 20, -0.35, "7"), (36, 132, 15, -0.3, "6"),
           (536, 356, 16, 0.5, "2"))


def _wave(place, length, seed):
    """A wavering line that closes after a length: how far the edge of the paper lies in."""
    chance = random.Random(seed)
    return 2.5 + sum(
        weight * math.sin(2 * math.pi * (turns * place / length + chance.random()))
        for turns, weight in ((3, 0.8), (11, 0.7), (29, 0.5), (67, 0.4)))


class Landscape(Craft):
    """Paper with washes, torn at its edges; hills, a twig in blossom, figures of porcelain."""

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
        """A hill in one wash that pales towards its foot. Its ridge is (x, y, radius) by point."""
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
