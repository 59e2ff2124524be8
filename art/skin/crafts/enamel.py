"""Midnight enamel: a dark room, steel, and polished tiles in a light from the top left."""

import random

import cairo

from .. import boards, current, emblems, letters, plates, shapes, sources, titles
from ..colours import BLACK, WHITE, colour, mix
from ..picture import grown, rim, sheet
from ..tiles import SIZE
from .craft import Craft, Lettering

LATTICE = 16
RIM = 0.68  # how dark the rim of a tile is
FRAME_WIDTH, FRAME_HEIGHT = 640, 480
# Where the background and the logo begin in the frame.
GROUND_LEFT, GROUND_WIDTH, LOGO_LEFT, SCORES_LEFT = 55, 521, 8, 54
# The figures that fall beside the menu, those far away first: the middle in the frame, the size of
# a cell, the angle, the figure, how far away it is. They keep clear of what the views write.
FALLING = (
    (96, 372, 13, 0.5, "2", 0.62), (540, 268, 13, -0.6, "7", 0.62), (22, 238, 15, -0.35, "6", 0.6),
    (612, 178, 14, 0.3, "1", 0.6), (606, 452, 15, -0.2, "5", 0.55), (82, 124, 12, -0.3, "7", 0.62),
    (566, 128, 16, 0.45, "3", 0.5),
    (54, 172, 23, -0.28, "5", 0.08), (60, 318, 24, 0.22, "1", 0.05),
    (578, 216, 25, 0.3, "4", 0.05), (568, 350, 27, -0.24, "3", 0.05),
)
# What has fallen already, from the left and from the right of the frame, the lowest row last.
HEAP_CELL, SCORE_HEAP_CELL = 24, 20
HEAPS = (("7.....", "77.2..", "7622.1"), ("....4.", ".5..44", "155664"))


def _slope(x, y, size, stops):
    """A gradient from the top left corner of a square to its bottom right one."""
    gradient = cairo.LinearGradient(x, y, x + size, y + size)
    for place, value in stops:
        gradient.add_color_stop_rgb(place, *value)
    return gradient


def heaps(left, right, size):
    """The tiles at the foot of both sides as (x, y, kind)."""
    for start, rows in zip((left, right - 6 * size), HEAPS):
        for row, line in enumerate(rows):
            for column, kind in enumerate(line):
                if kind != ".":
                    yield start + column * size, FRAME_HEIGHT - (len(rows) - row) * size, kind


def _pixel(cr, x, y, value):
    cr.set_source_rgb(*value)
    cr.rectangle(x, y, 1, 1)
    cr.fill()


def _dots(mark):
    return sorted((c, r) for r, row in enumerate(mark) for c, sign in enumerate(row) if sign == "#")


class Enamel(Craft):
    """The craft of the Original."""

    lettering = Lettering(letters.Type(1.12, 1.1, 3, 2, 2), letters.Type(1.12, 1.2, 3, 2, 2), 1,
                          ("letter-top", "letter-top", "letter-bottom"),
                          ("number-top", "number-top", "number-bottom"))

    # plates

    def plate(self, cr, x, y, width, height, look, radius, thickness):
        """A face with its bevel in a dark line."""
        plates.box(cr, "edge", x, y, width, height, radius)
        self.face(cr, x + thickness, y + thickness, width - 2 * thickness,
                  height - 2 * thickness, look, max(radius - thickness, 1))

    def face(self, cr, x, y, width, height, look, radius):
        """A polished face: graded, with a lamp behind it or a sheen upon it, and bevelled."""
        cr.save()
        shapes.rounded_rectangle(cr, x, y, width, height, radius)
        cr.clip()
        cr.set_source(plates.downwards(y, height, look.top, look.bottom))
        cr.paint()
        if look.glow:
            self._lamp(cr, x, y, width, height, look.glow)
        if not look.sunken:
            self._sheen(cr, x, y, width, height)
        cr.restore()
        plates.bevel(cr, x, y, width, height, look, radius)

    def _lamp(self, cr, x, y, width, height, name):
        """A lamp behind the plate: brightest in the middle."""
        cr.save()
        cr.translate(x + width / 2, y + height / 2)
        cr.scale(width / 2, height / 2)
        glow = cairo.RadialGradient(0, 0, 0, 0, 0, 1.1)
        glow.add_color_stop_rgba(0.0, *colour(name), 0.85)
        glow.add_color_stop_rgba(1.0, *colour(name), 0.0)
        cr.set_source(glow)
        cr.rectangle(-1, -1, 2, 2)
        cr.fill()
        cr.restore()

    def _sheen(self, cr, x, y, width, height):
        """The reflection of the light over the upper half."""
        gradient = cairo.LinearGradient(0, y, 0, y + height / 2)
        gradient.add_color_stop_rgba(0, *WHITE, 0.11)
        gradient.add_color_stop_rgba(1, *WHITE, 0.03)
        cr.set_source(gradient)
        cr.rectangle(x, y, width, int(height / 2) - 1)
        cr.fill()

    def relief(self, ink, look):
        """Raised lettering casts a shadow; sunken lettering has a lit lower edge."""
        if look.sunken:
            ink.picture.cr.set_source_rgba(*colour(look.light), 0.45)
            ink.picture.cr.mask_surface(ink.sheet, 0, 1)
        else:
            ink.shade(0.6)

    def banner_relief(self, ink, look):
        """Light lettering stands out of the plate; dark lettering is let into it."""
        if look.glow:
            self.relief(ink, look._replace(sunken=True))
            return
        ink.outline(1, "halo")
        ink.shade(0.7, 1, 2)

    # grounds

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

    def half(self, picture):
        """The glow of a board in the night, and the column of instruments."""
        cr, width, height = picture.cr, picture.width, picture.height
        cr.set_source(plates.downwards(0, height, "half", "half-low"))
        cr.paint()
        self._light(cr, "half-glow", 125, height * 0.62, 230, 1)
        cr.set_source_rgba(*colour("frame"), 0.10)
        for y in range(0, height, LATTICE):
            for x in range(0, width, LATTICE):
                cr.rectangle(x + 7, y + 7, 2, 2)
        cr.fill()
        left, across = boards.PANEL_LEFT, boards.PANEL_WIDTH
        self.panel(cr, left, 0, across, height + 8, self.radius)
        self.well(cr, boards.VALUES_LEFT, 3, boards.VALUES_WIDTH, boards.VALUES_TOP - 5)
        self._emblem(cr, left + across / 2, sum(boards.DISPLAYS[0]) / 2 + 8)
        self.well(cr, boards.VALUES_LEFT, boards.VALUES_TOP, boards.VALUES_WIDTH, height)
        for x, y, name in ((246, 232, "6"), (272, 286, "7")):
            self._ghost(cr, x, y, name)
        plates.bar(cr, "score-plate", boards.VALUES_LEFT, boards.SCORE_TOP, boards.VALUES_WIDTH,
                   height)
        plates.bar(cr, "score-line", boards.VALUES_LEFT, boards.SCORE_TOP, boards.VALUES_WIDTH, 1)

    def _ghost(self, cr, x, y, name):
        for row, line in enumerate(sources.grids(sources.ART / "figures.txt")[name]):
            for column, sign in enumerate(line):
                if sign == "#":
                    self._ghost_cell(cr, x + column * LATTICE, y + row * LATTICE)

    def _emblem(self, cr, x, y):
        """A figure that shows while the displays are switched off."""
        size = 20
        cr.save()
        cr.translate(x - 1.5 * size, y - size)
        for column, row in ((0, 0), (1, 0), (2, 0), (1, 1)):
            cr.save()
            cr.translate(column * size, row * size)
            cr.scale(size / SIZE, size / SIZE)
            self._enamel(cr, 0, 0, mix(colour("tile-7"), colour("glass"), 0.5))
            cr.restore()
        cr.restore()

    def panel(self, cr, x, y, width, height, radius):
        """A plate of steel."""
        self.plate(cr, x, y, width, height, plates.FRAME, radius, 1)

    def column(self, picture, width, depth, side):
        """A plate of tinted glass with a lit head."""
        super().column(picture, width, depth, side)
        cr = picture.cr
        cr.save()
        shapes.rounded_rectangle(cr, 1, 1, width - 2, depth - 2, self.radius - 1)
        cr.clip()
        cr.set_source(plates.downwards(0, depth, f"{side}-plate", f"{side}-foot"))
        cr.paint()
        plates.bar(cr, f"{side}-edge", 1, 1, width - 2, 1)
        cr.restore()

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

    def row(self, cr, x, y, width, height, name):
        """A bar of dark glass that catches light along its upper edge."""
        super().row(cr, x, y, width, height, name)
        cr.save()
        shapes.rounded_rectangle(cr, x + 1, y + 1, width - 2, height - 2, self.radius - 1)
        cr.clip()
        cr.set_source(plates.downwards(y, height, f"{name}-plate", f"{name}-foot"))
        cr.paint()
        cr.restore()
        plates.edge(cr, x + 1, y + 1, width - 2, height - 2, self.radius - 1,
                    (f"{name}-edge", f"{name}-foot"), 0.7)

    def socket(self, cr, x, y):
        """A hollow with a lit lower rim."""
        plates.box(cr, "socket", x + 1, y + 1, 14, 14, 2)
        plates.edge(cr, x + 1, y + 1, 14, 14, 2, ("glass", "socket-light"), 0.8)

    def well(self, cr, x, y, width, height, radius=3):
        """A dark glass let into what is there: its rim is shaded above and lit below."""
        plates.box(cr, "glass", x, y, width, height, radius)
        plates.edge(cr, x - 1, y - 1, width + 2, height + 2, radius + 1,
                    ("edge", "frame-light"), 0.6)

    # the board

    def board(self, picture, left, inside, depth):
        """Two steel walls and a floor, with slots in the walls for the rows."""
        cr, width, height = picture.cr, picture.width, picture.height
        picture.cover(shapes.rounded_rectangle, left, 0, width - 2 * left, height, self.radius)
        self.panel(cr, left, 0, width - 2 * left, height, self.radius)
        for x in (left, width - inside):
            self._slots(cr, x + 6, inside - left - 12, depth - 12)
        self._inlay(cr, inside, height - 14, boards.CELL * boards.COLUMNS, 7)
        for x in (left + self.wall // 2, width - left - self.wall // 2 - 1):
            self._rivet(cr, x + 0.5, height - 10)
        self._inside(cr, inside, depth)

    def _slots(self, cr, x, width, bottom):
        """The inlay of a wall: a sunken panel with a lamp for each row of the board."""
        self._inlay(cr, x, 8, width, bottom)
        for y in range(24, bottom, boards.CELL):
            plates.bar(cr, "glass", x + 1, y - 3, width - 2, 5)
            plates.bar(cr, "lamp-bottom", x + 2, y - 2, width - 4, 3)
            plates.bar(cr, "lamp-glow", x + 3, y - 1, width - 6, 1)

    def _inlay(self, cr, x, y, width, height):
        plates.box(cr, "frame-dark", x, y, width, height, 2)
        plates.bevel(cr, x, y, width, height, plates.FRAME._replace(sunken=True), 2)

    def _rivet(self, cr, x, y):
        gradient = cairo.RadialGradient(x - 1, y - 1, 0, x, y, 4)
        gradient.add_color_stop_rgb(0, *colour("frame-light"))
        gradient.add_color_stop_rgb(0.6, *colour("frame"))
        gradient.add_color_stop_rgb(1, *colour("frame-dark"))
        cr.set_source(gradient)
        cr.arc(x, y, 3.5, 0, 6.2831853)
        cr.fill()

    def _inside(self, cr, left, depth):
        """The inside, striped for the columns. Its right wall and floor face the light."""
        width = boards.CELL * boards.COLUMNS
        plates.bar(cr, "frame-light", left, depth, width + 2, 2)
        plates.bar(cr, "frame-light", left + width, 1, 2, depth)
        plates.bar(cr, "frame-dark", left - 2, 1, 2, depth + 1)
        plates.bar(cr, "edge", left - 1, 0, width + 2, depth + 1)
        cr.set_source(plates.downwards(0, depth, "board", "board-foot"))
        cr.rectangle(left, 0, width, depth)
        cr.fill()
        cr.set_source_rgba(*WHITE, 0.035)
        for column in range(1, boards.COLUMNS, 2):
            cr.rectangle(left + column * boards.CELL, 0, boards.CELL, depth)
        cr.fill()
        rising = cairo.LinearGradient(0, depth - 90, 0, depth)
        rising.add_color_stop_rgba(0, *colour("half-glow"), 0)
        rising.add_color_stop_rgba(1, *colour("half-glow"), 0.16)
        cr.set_source(rising)
        cr.rectangle(left, depth - 90, width, 90)
        cr.fill()
        shade = cairo.LinearGradient(left, 0, left + 10, 0)
        shade.add_color_stop_rgba(0, *BLACK, 0.4)
        shade.add_color_stop_rgba(1, *BLACK, 0)
        cr.set_source(shade)
        cr.rectangle(left, 0, 10, depth)
        cr.fill()

    # tiles

    def tile(self, picture, x, y, kind):
        """One tile: rim, bevel, face, and its mark engraved. The outermost pixel of each corner stays
        free. The eighth is light."""
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
        """A tile of light: white-hot in the middle, and open at both sides, so that a row of them is
        one bar of light; with a spark of its own."""
        cr = picture.cr
        picture.mask.rectangle(x, y, SIZE, SIZE)
        picture.mask.fill()
        light = cairo.LinearGradient(0, y, 0, y + SIZE)
        for place, name in ((0, "light-rim"), (0.14, "light-edge"), (0.3, "light"), (0.4, "white"),
                            (0.6, "white"), (0.7, "light"), (0.86, "light-edge"), (1, "light-rim")):
            light.add_color_stop_rgb(place, *colour(name))
        cr.set_source(light)
        cr.rectangle(x, y, SIZE, SIZE)
        cr.fill()
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

    # titles

    def title(self, picture, text, large, kinds):
        """A word that is put together of figures, with sides that fall away from the light."""
        size, depth, gap = (10, 6, 10) if large else (7, 4, 7)
        figures = list(_figures(text, size, gap, kinds))
        right = max(x for cells, _, _ in figures for x, _ in cells) + size + depth
        bottom = 8 * size + depth
        left, top = (picture.width - right) // 2, (titles.TITLE_DEPTH - bottom) // 2
        every = [cell for cells, _, _ in figures for cell in cells]
        whole = _cells(every, picture, left, top, size)
        self._sides(picture, whole, depth, figures, (left, top, size))
        for cells, kind, number in figures:
            form = _cells(cells, picture, left, top, size)
            base = mix(colour(f"tile-{kind}"), (WHITE, BLACK)[number % 2], 0.07 * (number % 3))
            self._figure(picture.cr, form, base, top, 8 * size, large)

    def _sides(self, picture, whole, depth, figures, place):
        """The dark line round the word and the sides of its letters."""
        line = grown(whole, 2)
        for step in range(depth + 1):
            picture.stencil(line, "title-edge", step, step)
        for step in range(depth, 0, -1):
            for cells, kind, _ in figures:
                form = _cells(cells, picture, *place)
                base = mix(colour(f"tile-{kind}"), BLACK, 0.58 + 0.25 * step / depth)
                picture.cr.set_source_rgb(*base)
                picture.cr.mask_surface(form, step, step)

    def _figure(self, cr, form, base, top, height, large):
        """One figure of a letter: graded downwards, and bevelled along its whole outline."""
        gradient = cairo.LinearGradient(0, top, 0, top + height)
        gradient.add_color_stop_rgb(0, *mix(base, WHITE, 0.28))
        gradient.add_color_stop_rgb(0.5, *base)
        gradient.add_color_stop_rgb(1, *mix(base, BLACK, 0.22))
        cr.set_source(gradient)
        cr.mask_surface(form)
        bevels = ((2, 0.24), (1, 0.4)) if large else ((1, 0.5),)
        for inset, strength in bevels:
            for value, way in ((WHITE, 1), (BLACK, -1)):
                cr.set_source_rgba(*value, strength)
                cr.mask_surface(rim(form, way * inset, way * inset))


def _figures(text, size, gap, kinds):
    """The figures of a word from its top left corner: (places of cells, kind, number)."""
    titles = sources.grids(sources.ART / "titles.txt")
    left, kinds = 0, iter(kinds)
    for letter in text:
        if letter == " ":
            left += 2 * size
            continue
        kind, rows = next(kinds), titles[letter]
        for number, name in enumerate(sorted(set("".join(rows)) - {"."})):
            yield [(left + x * size, y * size) for y, row in enumerate(rows)
                   for x, sign in enumerate(row) if sign == name], kind, number
        left += len(rows[0]) * size + gap


def _cells(cells, picture, left, top, size):
    """A sheet with some cells of a word."""
    result = sheet(picture.width, picture.height)
    cr = cairo.Context(result)
    for x, y in cells:
        cr.rectangle(left + x, top + y, size, size)
    cr.fill()
    return result
