"""Black and white with few strong hues: thick lines, large marks, nothing that needs colour."""

from .. import boards, current, letters, plates, shapes, sources, titles
from ..colours import colour
from ..picture import grown, spread
from ..tiles import SIZE
from .craft import Craft, Lettering


# The figures beside the menu: the left top corner in the picture of the logo, the figure.
FIGURES = ((16, 128, "3"), (0, 288, "7"), (0, 416, "2"), (528, 144, "6"), (528, 288, "5"),
           (528, 416, "4"))


class Bold(Craft):
    """The craft of Contrast."""

    radius = 4
    wall = 12
    press = 0
    outline = 1
    logo_kinds = (1, 3, 2, 1, 6, 3, 7)
    score_kinds = (3, 1)
    sign_pen = 3
    lettering = Lettering(letters.Type(1.12, 1, 3, 2, 3), letters.Type(1.12, 1.1, 3, 2, 3), 1,
                          ("letter-top", "letter-bottom"), ("number-top", "number-bottom"))
    button_cut = letters.Type(0.8, 1.1, 3, 2)
    heading_cut = letters.Type(0.75, 0.7, 2.6, 2, 2)
    overlay_cuts = {
        "huge": letters.Type(1.6, 2, 6, 4),
        "large": letters.Type(1.2, 1.6, 5, 4),
        "middle": letters.Type(0.9, 1.4, 4, 3),
        "small": letters.Type(0.8, 1.1, 3, 2),
        "stars": letters.Type(1.2, 1.2, 0, 5),
    }
    key_cuts = {
        "single": letters.Type(2, 2.1, 5, 0),
        "mark": letters.Type(3, 2.4, 6, 0),
        "paired": letters.Type(1.5, 1.2, 4, 0),
        "word": letters.Type(0.75, 1, 2, 1),
    }

    # plates

    def plate(self, cr, x, y, width, height, look, radius, thickness):
        """A flat face in a thick line, which is broken where the plate cannot be used."""
        plates.box(cr, "edge", x, y, width, height, radius)
        self.face(cr, x + thickness, y + thickness, width - 2 * thickness,
                  height - 2 * thickness, look, radius)

    def face(self, cr, x, y, width, height, look, radius):
        """The states differ in their lines: whole or broken, and dark on light where it is on."""
        plates.box(cr, look.top, x, y, width, height, radius)
        dash = () if look.enabled else (4, 4)
        if look.sunken or look.glow:  # on: a dark line inside the light one
            plates.line(cr, look.dark, x + 2, y + 2, width - 4, height - 4, radius - 1, 1, dash)
        else:
            plates.line(cr, look.light, x, y, width, height, radius, 2, dash)

    def cap(self, picture, x, width, height, look):
        """A key cap: a thick line, and a foot below its face."""
        plates.plate(picture, x, 0, width, height, look._replace(top=look.light, light=look.dark))
        plates.box(picture.cr, "black", x + 3, 3, width - 6, height - 11, 3)
        plates.box(picture.cr, look.top, x + 4, 4, width - 8, height - 13, 3)

    def panel(self, cr, x, y, width, height, radius):
        """A field in a white line."""
        plates.box(cr, "frame", x, y, width, height, radius)
        plates.box(cr, "black", x + 2, y + 2, width - 4, height - 4, radius - 2)

    def well(self, cr, x, y, width, height, radius=2):
        """A field that is all black, as the panel itself is."""
        plates.box(cr, "glass", x, y, width, height, radius)

    def column(self, picture, width, depth, side):
        """A field in a line, in two lines for the right player."""
        picture.cover(shapes.rounded_rectangle, 0, 0, width, depth, self.radius)
        plates.box(picture.cr, f"{side}-plate", 0, 0, width, depth, self.radius)
        for inset in (0, 2) if side == "right" else (0,):
            plates.line(picture.cr, f"{side}-edge", inset, inset, width - 2 * inset,
                        depth - 2 * inset, self.radius, 1)

    def row(self, cr, x, y, width, height, name):
        """A field in a line, as thick as the place is high."""
        plates.box(cr, "black", x, y, width, height, self.radius)
        plates.line(cr, f"{name}-edge", x, y, width, height, self.radius, 1 if name == "row" else 2)

    def socket(self, cr, x, y):
        """The corners of the place of a cell."""
        for dx in (1, 11):
            for dy in (1, 14):
                plates.bar(cr, "socket", x + dx, y + dy, 4, 1)
        for dx in (1, 14):
            for dy in (1, 11):
                plates.bar(cr, "socket", x + dx, y + dy, 1, 4)

    def base_line(self, cr, x, y, width):
        """A white line."""
        plates.bar(cr, "frame", x - 2, y, width + 3, 1)

    def bar_mark(self, cr, x, y, width, kind):
        """The colour of a tile, or that of its ring if it is black."""
        name = "ring" if colour(f"tile-{kind}") == colour("black") else "tile"
        plates.bar(cr, f"{name}-{kind}", x, y + 1, width, 3)

    # grounds

    def ground(self, picture):
        """Black."""

    def sides(self, picture):
        """Figures at both sides, twice as large as in the game."""
        for x, y, name in FIGURES:
            for row, line in enumerate(sources.grids(sources.ART / "figures.txt")[name]):
                for column, sign in enumerate(line):
                    if sign == "#":
                        self._large_tile(picture, x + 2 * SIZE * column, y + 2 * SIZE * row, name)

    def _large_tile(self, picture, x, y, name):
        for context in (picture.cr, picture.mask):
            context.save()
            context.translate(x, y)
            context.scale(2, 2)
        self.tile(picture, 0, 0, int(name))
        picture.cr.restore()
        picture.mask.restore()

    def table(self, picture):
        """The rows between two white lines."""
        for x in (0, picture.width - 2):
            picture.mask.rectangle(x, 0, 2, picture.height)
            picture.mask.fill()
            plates.bar(picture.cr, "frame", x, 0, 2, picture.height)
        super().table(picture)

    def half(self, picture):
        """Black, with a ruled field for the values that is open below."""
        cr, left, across = picture.cr, boards.PANEL_LEFT, boards.PANEL_WIDTH - 2
        self.panel(cr, left, 0, across, picture.height + 8, self.radius)
        for y in (boards.VALUES_TOP, boards.SCORE_TOP):
            plates.bar(cr, "frame", left, y, across, 2)

    # the board

    def board(self, picture, left, inside, depth):
        """Thick white walls with a mark for every row, and a floor as thick."""
        cr, width = picture.cr, picture.width
        full, bottom = width - 2 * left, depth + self.wall
        picture.cover(shapes.rounded_rectangle, left, 0, full, bottom, 2)
        plates.box(cr, "frame", left, 0, full, bottom, 2)
        for x in (left + 3, width - left - self.wall + 3):
            for row in range(1, depth // boards.CELL):
                plates.bar(cr, "black", x, row * boards.CELL - 1, self.wall - 6, 2)
        plates.bar(cr, "black", inside - 2, 0, boards.CELL * boards.COLUMNS + 4, depth + 2)
        for column in range(boards.COLUMNS):
            name = "board-stripe" if column % 2 else "board"
            plates.bar(cr, name, inside + column * boards.CELL, 0, boards.CELL, depth)

    # tiles

    def tile(self, picture, x, y, kind):
        """One tile: a face in its ring with a large mark, all in flat colours. The eighth is white
        from side to side, above a line."""
        cr = picture.cr
        picture.mask.rectangle(x, y, SIZE, SIZE)
        picture.mask.fill()
        if kind == 8:
            plates.bar(cr, "black", x, y, SIZE, SIZE)
            plates.bar(cr, "white", x, y, SIZE, SIZE - 1)
            return
        plates.bar(cr, "black", x, y, SIZE, SIZE)
        plates.box(cr, f"ring-{kind}", x, y, SIZE - 1, SIZE - 1, 1)
        plates.bar(cr, f"tile-{kind}", x + 2, y + 2, SIZE - 5, SIZE - 5)
        mark = sources.grids(sources.own(current.skin(), "marks.txt"))[str(kind)]
        cr.set_source_rgb(*colour(f"mark-{kind}"))
        for row, line in enumerate(mark):
            for column, sign in enumerate(line):
                if sign == "#":
                    cr.rectangle(x + 2 + column, y + 2 + row, 1, 1)
        cr.fill()

    def bar(self, cr, x, width, height, kind):
        """A bar of the statistics, in the colours of its tile."""
        plates.bar(cr, "black", x, 0, width, height)
        plates.bar(cr, f"ring-{kind}", x, 0, width - 1, height)
        plates.bar(cr, f"tile-{kind}", x + 1, 0, width - 3, height)
        if colour(f"tile-{kind}") == colour("black"):  # rungs, or it would be two thin lines
            for y in range(2, height, 4):
                plates.bar(cr, f"ring-{kind}", x, y, width - 1, 2)

    # titles

    def title(self, picture, text, large, kinds):
        """Heavy letters: a strong hue, and in the logo a thick white line round it."""
        if large:
            self._lined_title(picture, text, kinds, letters.Type(4.7, 5.6, 20, 14))
            return
        self.stroked_title(picture, text, kinds, letters.Type(2.8, 3.6, 11, 10),
                           ((11, "black", 0),))

    def _lined_title(self, picture, text, kinds, cut):
        """Letters half as thick as their cut; the rest is the lines that grow round them."""
        cut = letters.squeezed(text, cut, 512)
        place = ((picture.width - letters.width(text, cut)) // 2,
                 (titles.TITLE_DEPTH - round(cut.height)) // 2)
        inset = cut.pen // 4
        faces = letters.Ink(picture)
        x, y = place
        for letter in text:
            letters.draw(faces.cr, letter, x + inset, y + inset, cut._replace(pen=cut.pen // 2))
            x += letters.width(letter, cut) + cut.gap
        picture.stencil(grown(faces.sheet, inset + 4), "title-edge")
        for thickness, name in ((inset, "frame"), (2, "black")):
            picture.cr.set_source_rgb(*colour(name))
            picture.cr.mask_surface(spread(faces.sheet, thickness))
        self._title_layer(picture, text, kinds, cut, place, (cut.pen // 2, "black", 0))
