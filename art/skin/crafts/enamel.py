"""Midnight enamel: a blue night, steel, and polished tiles in a light from the top left."""

import cairo

from .. import boards, letters, plates, shapes, sources, titles
from ..colours import BLACK, WHITE, colour, mix
from ..picture import grown, rim, sheet
from ..tiles import SIZE
from .craft import Lettering
from .night import LATTICE, Night


class Enamel(Night):
    """The craft of the Original."""

    lettering = Lettering(letters.Type(1.12, 1.1, 3, 2, 2), letters.Type(1.12, 1.2, 3, 2, 2), 1,
                          ("letter-top", "letter-top", "letter-bottom"),
                          ("number-top", "number-top", "number-bottom"))

    # plates

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
