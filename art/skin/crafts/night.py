"""The night of midnight enamel: what lies behind the menu and the scores, and falls beside them."""

import random

import cairo

from .. import plates, shapes, sources, titles
from ..colours import BLACK, WHITE, colour, mix
from ..tiles import SIZE
from .enamel_tiles import EnamelTiles

LATTICE = 16
FRAME_WIDTH, FRAME_HEIGHT = 640, 480
# Where the background and the logo begin in the frame.
GROUND_LEFT, GROUND_WIDTH, LOGO_LEFT, SCORES_LEFT = 55, 521, 8, 54
# The figures that fall beside the menu, those far away first: the middle in the frame, the size of
# a cell, the angle, the figure, how far away it is. They keep clear of what the views write.
FALLING = (
    (96, 372, 13, 0.5, "2", 0.42), (540, 268, 13, -0.6, "7", 0.42), (22, 238, 15, -0.35, "6", 0.42),
    (612, 178, 14, 0.3, "1", 0.42), (606, 452, 15, -0.2, "5", 0.4), (82, 124, 12, -0.3, "7", 0.42),
    (566, 128, 16, 0.45, "3", 0.36),
    (54, 172, 23, -0.28, "5", 0.08), (60, 318, 24, 0.22, "1", 0.05),
    (578, 216, 25, 0.3, "4", 0.05), (568, 350, 27, -0.24, "3", 0.05),
)
# What has fallen already, from the left and from the right of the frame, the lowest row last.
HEAP_CELL, SCORE_HEAP_CELL = 24, 20
HEAPS = (("7.....", "77.2..", "7622.1"), ("....4.", ".5..44", "155664"))


def heaps(left, right, size):
    """The tiles at the foot of both sides as (x, y, kind)."""
    for start, rows in zip((left, right - 6 * size), HEAPS):
        for row, line in enumerate(rows):
            for column, kind in enumerate(line):
                if kind != ".":
                    yield start + column * size, FRAME_HEIGHT - (len(rows) - row) * size, kind


class Night(EnamelTiles):
    """Grounds, and the large figures that fall through them."""

    def ground(self, picture):
        """The night, with a lattice and the ghosts of figures in it."""
        cr = picture.cr
        cr.translate(-GROUND_LEFT, 0)
        self._night(cr)
        cr.translate(GROUND_LEFT, 0)
        self._lattice(cr, picture.width, picture.height)
        self._ghosts(cr)

    def _night(self, cr):
        """The light of the night, in the coordinates of the frame."""
        cr.set_source(plates.downwards(0, FRAME_HEIGHT, "ground-light", "ground-dark"))
        cr.paint()
        self._light(cr, "ground-glow", FRAME_WIDTH / 2, 50, 360, 0.75)
        self._light(cr, "ground-dusk", FRAME_WIDTH / 2, 560, 330, 0.8)

    def _light(self, cr, name, x, y, reach, strength):
        """A light that fades away from a point."""
        light = cairo.RadialGradient(x, y, 0, x, y, reach)
        light.add_color_stop_rgba(0, *colour(name), strength)
        light.add_color_stop_rgba(0.5, *colour(name), strength * 0.35)
        light.add_color_stop_rgba(1, *colour(name), 0)
        cr.set_source(light)
        cr.paint()

    def _lattice(self, cr, width, height):
        cr.set_source_rgba(*colour("ground-dark"), 0.3)
        for x in range(4, width, LATTICE):
            cr.rectangle(x, 0, 1, height)
        for y in range(0, height, LATTICE):
            cr.rectangle(0, y, width, 1)
        cr.fill()

    def _ghosts(self, cr):
        chance = random.Random(11)
        figures = sources.grids(sources.ART / "figures.txt")
        places = [(2, 9), (27, 8), (4, 16), (29, 15), (1, 23), (26, 22), (16, 26), (10, 25),
                  (28, 27), (5, 27), (30, 20)]
        for (column, row), name in zip(places, chance.sample(sorted(figures) * 2, len(places))):
            self._ghost(cr, 4 + column * LATTICE, row * LATTICE, name)

    def _ghost_cell(self, cr, x, y):
        cr.set_source_rgba(*colour("frame"), 0.09)
        shapes.rounded_rectangle(cr, x + 1, y + 1, LATTICE - 1, LATTICE - 1, 2)
        cr.fill()
        plates.edge(cr, x + 1, y + 1, LATTICE - 1, LATTICE - 1, 2, ("frame-light", "ground-dark"),
                    0.10)

    def sides(self, picture):
        """The night beside the background, and figures of enamel that fall through it."""
        cr = picture.cr
        width, height = picture.width, picture.height
        cr.save()
        for x, across in titles.SIDES:
            picture.mask.rectangle(x, 0, across, height)
            cr.rectangle(x, 0, across, height)
        picture.mask.fill()
        cr.clip()
        cr.translate(-LOGO_LEFT, 0)
        self._night(cr)
        cr.translate(LOGO_LEFT, 0)
        for start, end in ((0, 26), (width, width - 26)):
            shade = cairo.LinearGradient(start, 0, end, 0)
            shade.add_color_stop_rgba(0, *BLACK, 1)
            shade.add_color_stop_rgba(1, *BLACK, 0)
            cr.set_source(shade)
            cr.paint()
        cr.restore()
        for figure in FALLING:
            self._falling(picture, *figure)
        for x, y, kind in heaps(0, width, HEAP_CELL):
            self._block(picture, x, y, HEAP_CELL, kind, 0.12)

    def _falling(self, picture, x, y, size, turn, name, depth):
        """A large tilted figure; the depth is how far it is away, from 0 to 1."""
        rows = sources.grids(sources.ART / "figures.txt")[name]
        for cr in (picture.cr, picture.mask):
            cr.save()
            cr.translate(x - LOGO_LEFT, y)
            cr.rotate(turn)
            cr.translate(-len(rows[0]) * size / 2, -len(rows) * size / 2)
        for row, line in enumerate(rows):
            for column, sign in enumerate(line):
                if sign == "#":
                    self._block(picture, column * size, row * size, size, name, depth)
        picture.cr.restore()
        picture.mask.restore()

    def _block(self, picture, x, y, size, name, depth):
        """A large tile."""
        base = mix(colour(f"tile-{name}"), colour("ground-light"), depth)
        cr = picture.cr
        for context in (cr, picture.mask):
            context.save()
            context.translate(x, y)
            context.scale(size / SIZE, size / SIZE)
        picture.cover(shapes.rounded_rectangle, 0, 0, SIZE, SIZE, 1.5)
        shapes.rounded_rectangle(cr, -0.5, -0.5, SIZE + 1, SIZE + 1, 1.5)
        cr.clip()
        self._enamel(cr, 0, 0, base)
        gloss = cairo.LinearGradient(0, 3, 0, 9)
        gloss.add_color_stop_rgba(0, *WHITE, 0.34)
        gloss.add_color_stop_rgba(1, *WHITE, 0.02)
        cr.set_source(gloss)
        shapes.rounded_rectangle(cr, 3.4, 3.4, SIZE - 6.8, 4.6, 1.2)
        cr.fill()
        cr.restore()
        picture.mask.restore()

    def _ghost(self, cr, x, y, name):
        for row, line in enumerate(sources.grids(sources.ART / "figures.txt")[name]):
            for column, sign in enumerate(line):
                if sign == "#":
                    self._ghost_cell(cr, x + column * LATTICE, y + row * LATTICE)

    def table(self, picture):
        """The night as far as the picture reaches, with heaps at its foot."""
        cr, width, height = picture.cr, picture.width, picture.height
        cr.save()
        cr.rectangle(GROUND_WIDTH, 0, width, height)
        picture.mask.rectangle(GROUND_WIDTH, 0, width, height)
        picture.mask.fill()
        cr.clip()
        cr.translate(-SCORES_LEFT, 0)
        self._night(cr)
        cr.restore()
        for x in (1, width - 2):
            picture.mask.rectangle(x, 0, 2, height)
            picture.mask.fill()
            plates.bar(cr, "frame-face", x, 0, 2, height)
        for x, y, kind in heaps(3, width - 3, SCORE_HEAP_CELL):
            self._block(picture, x, y, SCORE_HEAP_CELL, kind, 0.12)
        super().table(picture)
