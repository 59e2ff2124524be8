"""Midnight enamel: a dark room, steel, and polished tiles in a light from the top left."""

import random

import cairo

from .. import boards, current, letters, plates, shapes, sources
from ..colours import BLACK, WHITE, colour, mix
from ..picture import grown, rim, sheet
from ..tiles import SIZE
from .craft import Craft, Lettering

LATTICE = 16
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


def _fade(cr, start, end, along):
    """Lets a picture come out of black, from a point to another; along is what it covers."""
    gradient = cairo.LinearGradient(*start, *end)
    gradient.add_color_stop_rgba(0, *BLACK, 1)
    gradient.add_color_stop_rgba(0.35, *BLACK, 0.55)
    gradient.add_color_stop_rgba(1, *BLACK, 0)
    cr.set_source(gradient)
    cr.rectangle(*along)
    cr.fill()


class Enamel(Craft):
    """The craft of the Original."""

    lettering = Lettering(letters.Type(1, 1, 3, 2, 2), 1,
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
        """A night that fades into the dark beside it, with the ghosts of figures in it."""
        cr, width, height = picture.cr, picture.width, picture.height
        cr.set_source(plates.downwards(0, height, "ground-light", "ground-dark"))
        cr.paint()
        self._lattice(cr, width, height)
        self._ghosts(cr)
        light = cairo.RadialGradient(width / 2, 60, 0, width / 2, 60, 380)
        light.add_color_stop_rgba(0, *colour("ground-glow"), 0.55)
        light.add_color_stop_rgba(1, *colour("ground-glow"), 0)
        cr.set_source(light)
        cr.paint()
        _fade(cr, (0, 0), (44, 0), (0, 0, 44, height))
        _fade(cr, (width, 0), (width - 44, 0), (width - 44, 0, 44, height))

    def _lattice(self, cr, width, height):
        cr.set_source_rgba(*colour("ground-dark"), 0.5)
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
            for y, line in enumerate(figures[name]):
                for x, sign in enumerate(line):
                    if sign == "#":
                        self._ghost_cell(cr, 4 + (column + x) * LATTICE, (row + y) * LATTICE)

    def _ghost_cell(self, cr, x, y):
        cr.set_source_rgba(*colour("frame"), 0.09)
        shapes.rounded_rectangle(cr, x + 1, y + 1, LATTICE - 1, LATTICE - 1, 2)
        cr.fill()
        plates.edge(cr, x + 1, y + 1, LATTICE - 1, LATTICE - 1, 2, ("frame-light", "ground-dark"),
                    0.10)

    def half(self, picture):
        """Deepening night, and the column of instruments, all coming out of black."""
        cr, width, height = picture.cr, picture.width, picture.height
        cr.set_source(plates.downwards(0, height, "half", "half-low"))
        cr.paint()
        cr.set_source_rgba(*colour("frame"), 0.06)
        for y in range(0, height, LATTICE):
            for x in range(0, width, LATTICE):
                cr.rectangle(x + 7, y + 7, 2, 2)
        cr.fill()
        _fade(cr, (0, 0), (0, 16), (0, 0, width, 16))
        _fade(cr, (0, height), (0, height - 12), (0, height - 12, width, 12))
        left, across = boards.PANEL_LEFT, boards.PANEL_WIDTH
        self.panel(cr, left, 0, across, height, self.radius)
        for top, bottom in boards.DISPLAYS:
            self._inlay(cr, left + 8, top + 5, across - 16, bottom - top - 10)
        self._emblem(cr, left + across / 2, sum(boards.DISPLAYS[0]) / 2)
        self.well(cr, boards.VALUES_LEFT, boards.VALUES_TOP, boards.VALUES_WIDTH,
                  boards.VALUES_HEIGHT)
        for y in boards.RULES:
            plates.bar(cr, "edge", left + 6, y, across - 12, 1)
            plates.bar(cr, "frame-dark", left + 6, y + 1, across - 12, 1)

    def _emblem(self, cr, x, y):
        """A figure of steel on the cover of the place of a display."""
        size = 14
        for column, row in ((0, 0), (1, 0), (2, 0), (1, 1)):
            self.face(cr, x + (column - 1.5) * size, y + (row - 1) * size, size - 1, size - 1,
                      plates.FRAME, 2)

    def panel(self, cr, x, y, width, height, radius):
        """A plate of steel."""
        self.plate(cr, x, y, width, height, plates.FRAME, radius, 1)

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
        """The inlay of a wall: a sunken panel with a slot for each row of the board."""
        self._inlay(cr, x, 8, width, bottom)
        for y in range(24, bottom, boards.CELL):
            plates.bar(cr, "glass", x + 2, y - 2, width - 4, 3)
            plates.bar(cr, "frame", x + 2, y - 1, width - 4, 1)

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
        for column in range(boards.COLUMNS):
            name = "board-stripe" if column % 2 else "board"
            plates.bar(cr, name, left + column * boards.CELL, 0, boards.CELL, depth)
        shade = cairo.LinearGradient(left, 0, left + 10, 0)
        shade.add_color_stop_rgba(0, *BLACK, 0.5)
        shade.add_color_stop_rgba(1, *BLACK, 0)
        cr.set_source(shade)
        cr.rectangle(left, 0, 10, depth)
        cr.fill()

    # tiles

    def tile(self, picture, x, y, kind):
        """One tile: rim, bevel, face, and its mark engraved or, for the eighth, raised.

        The outermost pixel of each corner stays free.
        """
        base = colour(f"tile-{kind}")
        picture.mask.rectangle(x + 1, y, SIZE - 2, SIZE)
        picture.mask.rectangle(x, y + 1, SIZE, SIZE - 2)
        picture.mask.fill()
        self._enamel(picture.cr, x, y, base)
        mark = _dots(sources.grids(sources.own(current.skin(), "marks.txt"))[str(kind)])
        work = self._raise if kind == 8 else self._engrave
        work(picture.cr, x + 3, y + 3, base, mark)

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
        cr.set_source(_slope(x, y, SIZE, ((0.1, mix(base, WHITE, 0.26)), (0.5, base),
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

    def _raise(self, cr, x, y, base, dots):
        """Sets a mark upon the face: bright towards the light, with a shadow on the other side."""
        for column, row in dots:
            _pixel(cr, x + column + 1, y + row + 1, mix(base, BLACK, 0.6))
        for column, row in dots:
            lit = (column - 1, row) not in dots and (column, row - 1) not in dots
            _pixel(cr, x + column, y + row, mix(base, WHITE, 0.85 if lit else 0.3))

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
        left, top = (picture.width - right) // 2, (picture.height - bottom) // 2
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
