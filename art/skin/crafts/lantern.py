"""Paper lanterns at dusk: a wooden pavilion in a garden, and light that comes through paper."""

import cairo

from .. import boards, emblems, letters, plates, shapes, titles
from ..colours import BLACK, WHITE, colour, mix
from ..picture import spread
from ..tiles import SIZE
from . import garden
from .craft import Lettering
from .paper import Paper


# The light of a lantern that flares, from above.
FLARE = ((0, "light-rim"), (0.12, "light-edge"), (0.34, "light"), (0.44, "white"), (0.6, "white"),
         (0.7, "light"), (0.88, "light-edge"), (1, "light-rim"))


class Lantern(Paper):
    """The craft of Lantern."""

    radius = 6
    wall = 22
    round_pen = True
    score_kinds = (7, 1)
    lettering = Lettering(letters.Type(1.1, 1.1, 2.6, 2, 2.2),
                          letters.Type(1.1, 1.2, 2.6, 2, 2.2), 1,
                          ("letter-top", "letter-bottom"), ("number-top", "number-bottom"))
    heading_cut = letters.Type(0.75, 0.72, 2, 2)

    # the pavilion

    def ground(self, picture):
        """The garden at dusk, seen from the pavilion."""
        garden.evening(picture.cr, 55)
        garden.fireflies(picture.cr, 55)

    def half(self, picture):
        """Dusk beside the boards, and a post of wood with the values."""
        cr, width, height = picture.cr, picture.width, picture.height
        cr.set_source(plates.downwards(0, height, "half", "half-low"))
        cr.paint()
        garden.reeds(cr, width, height)
        left, across = boards.PANEL_LEFT, boards.PANEL_WIDTH
        self.panel(cr, left, 0, across, height + 8, self.radius)
        self.well(cr, boards.VALUES_LEFT, 3, boards.VALUES_WIDTH, boards.VALUES_TOP - 6)
        for x, y, size, kind in ((252, 36, 24, 7), (284, 28, 30, 1), (302, 78, 20, 6)):
            self.lantern(_On(cr), x, y, size, size * 1.2, mix(colour(f"tile-{kind}"), BLACK, 0.35))
        self.well(cr, boards.VALUES_LEFT, boards.VALUES_TOP, boards.VALUES_WIDTH, height)
        garden.sprig(cr, left + across / 2, 268)
        plates.bar(cr, "score-plate", boards.VALUES_LEFT, boards.SCORE_TOP, boards.VALUES_WIDTH,
                   height)
        plates.bar(cr, "score-line", boards.VALUES_LEFT, boards.SCORE_TOP, boards.VALUES_WIDTH, 1)

    def board(self, picture, left, inside, depth):
        """Posts with panes of paper, one for each row, and a sill."""
        cr, width, height = picture.cr, picture.width, picture.height
        picture.cover(shapes.rounded_rectangle, left, 0, width - 2 * left, height, self.radius)
        plates.box(cr, "edge", left, 0, width - 2 * left, height, self.radius)
        across = inside - left
        for x in (left + 1, width - inside):
            self.wood(cr, x, 0, across - 1, height - 1, x)
            plates.bar(cr, "frame-light", x, 1, 1, height - 3)
            plates.bar(cr, "frame-dark", x + across - 3, 1, 1, height - 3)
            for row in range(depth // boards.CELL):
                self._pane(cr, x + 4, row * boards.CELL + 1, across - 8, boards.CELL - 2,
                           row * boards.CELL / depth)
        self.wood(cr, left + 1, depth + 2, width - 2 * left - 2, height - depth - 3, 5)
        plates.bar(cr, "frame-light", left + 2, depth + 3, width - 2 * left - 4, 1)
        for column in range(boards.COLUMNS):
            self._pane(cr, inside + column * boards.CELL + 1, depth + 6, boards.CELL - 2, 8, 1)
        full = boards.CELL * boards.COLUMNS
        plates.bar(cr, "edge", inside - 2, 0, full + 4, depth + 2)
        cr.set_source(plates.downwards(0, depth, "board", "board-foot"))
        cr.rectangle(inside, 0, full, depth)
        cr.fill()
        cr.set_source_rgba(*colour("letter-top"), 0.035)
        for column in range(1, boards.COLUMNS, 2):
            cr.rectangle(inside + column * boards.CELL, 0, boards.CELL, depth)
        cr.fill()

    def _pane(self, cr, x, y, width, height, part):
        """A small pane of paper between bars of wood. The light behind it stands near the floor."""
        plates.bar(cr, "frame-dark", x, y - 1, width, height + 2)
        for inset, name in ((0, "pane-edge"), (1, "pane")):
            value = mix(colour("pane-night"), colour(name), 0.25 + 0.75 * part ** 1.5)
            cr.set_source_rgb(*value)
            cr.rectangle(x + inset, y + inset, width - 2 * inset, height - 2 * inset)
            cr.fill()

    # tiles

    def tile(self, picture, x, y, kind):
        """A small lantern: paper between two bars of wood, with its figure painted on it.

        The eighth flares.
        """
        if kind == 8:
            self._flare(picture, x, y)
            return
        base, cr = colour(f"tile-{kind}"), picture.cr
        picture.cover(shapes.rounded_rectangle, x, y, SIZE, SIZE, 4)
        cr.set_source_rgb(*mix(base, BLACK, 0.62))
        cr.rectangle(x, y, SIZE, SIZE)
        cr.fill()
        cr.save()
        shapes.rounded_rectangle(cr, x + 1, y + 1, SIZE - 2, SIZE - 2, 3)
        cr.clip()
        self._lit(cr, x, y, base)
        cr.restore()
        for top in (y, y + SIZE - 2):
            plates.bar(cr, "edge", x + 3, top, SIZE - 6, 2)
        plates.bar(cr, "frame", x + 4, y, SIZE - 8, 1)
        self.mark(cr, x, y, kind)

    def _lit(self, cr, x, y, base):
        """The paper of a tile: brightest in the middle, with three ribs."""
        middle = SIZE / 2
        light = cairo.RadialGradient(x + middle, y + middle, 1, x + middle, y + middle, 10.5)
        for place, value in ((0, mix(base, WHITE, 0.5)), (0.5, mix(base, WHITE, 0.12)),
                             (1, mix(base, BLACK, 0.3))):
            light.add_color_stop_rgb(place, *value)
        cr.set_source(light)
        cr.paint()
        cr.set_source_rgba(*mix(base, WHITE, 0.6), 0.5)
        for line in (4, 11):
            cr.rectangle(x + 1, y + line, SIZE - 2, 1)
        cr.fill()

    def _flare(self, picture, x, y):
        """A lantern that flares: light that runs out at both sides, so that a row is one flame."""
        self.gleam(picture, x, y, FLARE)
        cr = picture.cr
        cr.set_source_rgb(*colour("light"))
        for middle, reach in ((4, 3.2), (12, 2.4)):
            cr.move_to(x + middle - 3, y + 6)
            cr.curve_to(x + middle - 2, y + 3, x + middle, y + 4, x + middle + 0.6, y + 4 - reach)
            cr.curve_to(x + middle + 1, y + 3, x + middle + 3, y + 3, x + middle + 3, y + 6)
        cr.fill()

    def bar(self, cr, x, width, height, kind):
        """A bar of the statistics: a strip of paper."""
        base = colour(f"tile-{kind}")
        cr.set_source_rgb(*mix(base, BLACK, 0.5))
        cr.rectangle(x, 0, width, height)
        cr.fill()
        gradient = cairo.LinearGradient(x, 0, x + width, 0)
        for place, part in ((0, 0.1), (0.5, 0.55), (1, 0.1)):
            gradient.add_color_stop_rgb(place, *mix(base, WHITE, part))
        cr.set_source(gradient)
        cr.rectangle(x + 1, 0, width - 2, height)
        cr.fill()

    # the menu and the high scores

    def sides(self, picture):
        """The pavilion: posts at both sides, a beam above, and the garden between them."""
        cr, width, height = picture.cr, picture.width, picture.height
        garden.beside(picture)
        for x in (0, width - garden.POST):
            picture.mask.rectangle(x, 0, garden.POST, height)
            self.wood(cr, x, 0, garden.POST, height, x + 1)
            plates.bar(cr, "frame-light", x, 0, 1, height)
            plates.bar(cr, "edge", x + garden.POST - 2, 0, 2, height)
        picture.mask.rectangle(0, 0, width, garden.BEAM)
        picture.mask.fill()
        self.wood(cr, 0, 0, width, garden.BEAM, 3)
        plates.bar(cr, "frame-light", 0, 0, width, 1)
        plates.bar(cr, "edge", 0, garden.BEAM - 2, width, 2)
        for x, y, size, kind in garden.LANTERNS:
            for context in (cr, picture.mask):
                context.set_line_width(1)
                context.move_to(x, garden.BEAM)
                context.line_to(x, y)
            cr.set_source_rgb(*colour("edge"))
            cr.stroke()
            picture.mask.stroke()
            self.lantern(picture, x, y, size, size * 1.25, colour(f"tile-{kind}"))
        garden.cat(picture)

    def column(self, picture, width, depth, side):
        """A screen of coloured paper in a frame of wood."""
        super().column(picture, width, depth, side)
        cr = picture.cr
        cr.set_source(plates.downwards(0, depth, f"{side}-plate", f"{side}-foot"))
        shapes.rounded_rectangle(cr, 2, 2, width - 4, depth - 4, self.radius - 2)
        cr.fill()

    def table(self, picture):
        """Two posts and the plaques of the names between them."""
        cr, width, height = picture.cr, picture.width, picture.height
        for x in (0, width - 5):
            picture.mask.rectangle(x, 0, 5, height)
            self.wood(cr, x, 0, 5, height, x + 1)
            plates.bar(cr, "edge", x + (4 if x == 0 else 0), 0, 1, height)
        plates.bar(cr, "hill-near", 521, 0, 6, height)
        picture.mask.rectangle(521, 0, 6, height)
        picture.mask.fill()
        depth = titles.ROW_PITCH * titles.ROWS - 1
        picture.mask.rectangle(titles.ROW_LEFT, titles.ROW_TOP, titles.ROW_WIDTH, depth)
        picture.mask.fill()
        plates.bar(cr, "hill-near", titles.ROW_LEFT, titles.ROW_TOP, titles.ROW_WIDTH, depth)
        super().table(picture)
        for x, kind in ((28, 3), (width - 28, 3)):
            self.lantern(picture, x, 18, 38, 62, colour(f"tile-{kind}"))

    def row(self, cr, x, y, width, height, name):
        """A plaque of wood, the first three with an edge of metal."""
        super().row(cr, x, y, width, height, name)
        cr.save()
        shapes.rounded_rectangle(cr, x + 1, y + 1, width - 2, height - 2, self.radius - 1)
        cr.clip()
        self.wood(cr, x, y, width, height, y, (f"{name}-plate", f"{name}-foot"))
        cr.restore()

    def title(self, picture, text, large, kinds):
        """Each letter on a lantern of its own; the title of the high scores on a plaque."""
        if not large:
            self._sign(picture)
            self.stroked_title(picture, text, kinds, letters.Type(2.7, 3.2, 10, 10),
                               ((10, "black", 0.25), (7, "white", 0.15), (3, "white", 0.7)))
            return
        step, width, height = 84, 78, 82
        left = picture.width / 2 - step * (len(text) - 1) / 2
        for i, (letter, kind) in enumerate(zip(text, kinds)):
            x, y = left + i * step, garden.BEAM + 6 + (i % 2) * 4
            self.lantern(picture, x, y, width, height, colour(f"tile-{kind}"))
            cut = letters.Type(3.3, 3.6, 9, 0)
            ink = letters.Ink(picture)
            letters.draw(ink.cr, letter, round(x - letters.width(letter, cut) / 2),
                         round(y + height / 2 - cut.height / 2), cut)
            base = colour(f"tile-{kind}")
            picture.cr.set_source_rgba(*mix(base, WHITE, 0.8), 0.8)
            picture.cr.mask_surface(spread(ink.sheet, 2))
            picture.cr.set_source_rgb(*mix(base, BLACK, 0.82))
            picture.cr.mask_surface(ink.sheet, 0, 0)

    def _sign(self, picture):
        """The plaque behind the title of the high scores, on two ropes."""
        cr, left, across = picture.cr, 52, picture.width - 104
        for x in (left + 40, left + across - 42):
            for context in (cr, picture.mask):
                context.rectangle(x, 0, 3, 16)
            picture.mask.fill()
            cr.set_source_rgb(*colour("frame-light"))
            cr.fill()
        picture.cover(shapes.rounded_rectangle, left, 12, across, 76, 8)
        self.plate(cr, left, 12, across, 76, plates.REST, 8, 2)

    # what is laid over a board

    def _pause_emblem(self, picture, x, y, look):
        for left in (x - 15, x + 15):
            self.lantern(picture, left, y - 18, 26, 38, colour("tile-1"))

    def _loser_emblem(self, picture, x, y, look):
        """A lantern that went out."""
        self.lantern(picture, x, y - 16, 40, 48, colour("smoke"))
        picture.cr.set_source_rgb(*colour("smoke"))
        picture.cr.set_line_width(2)
        picture.cr.move_to(x + 2, y - 18)
        picture.cr.curve_to(x + 12, y - 24, x - 8, y - 30, x + 3, y - 36)
        picture.cr.stroke()

    def _winner_emblem(self, picture, x, y, look):
        cr = picture.cr
        cr.save()
        shapes.rounded_rectangle(cr, 3, 3, picture.width - 6, picture.height - 6, self.radius)
        cr.clip()
        emblems.rays(cr, x, y, 140, 14)
        cr.set_source_rgba(*colour("rays"), 0.6)
        cr.fill()
        cr.restore()
        for dx, size, kind in ((-50, 30, 2), (50, 30, 5), (0, 62, 3)):
            self.lantern(picture, x + dx, y - size * 0.5, size, size * 1.14, colour(f"tile-{kind}"))
        emblems.star(cr, x, y + 5, 18)
        cr.set_source_rgb(*colour("cup-light"))
        cr.fill()


class _On:
    """A picture that is covered already: what is drawn there needs no mask."""

    def __init__(self, cr):
        self.cr = cr
        self.mask = cairo.Context(cairo.ImageSurface(cairo.FORMAT_A8, 1, 1))
