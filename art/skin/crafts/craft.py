"""The base of all crafts: measures and drawing that most skins share."""

import cairo

from .. import current, emblems, letters, plates, shapes, sources, titles
from ..colours import colour, mix
from ..picture import Picture, grown
from ..tiles import SIZE


class _Scratch:
    """A place to draw a tile that is part of a larger picture already."""

    def __init__(self, cr):
        self.cr = cr
        self.mask = cairo.Context(cairo.ImageSurface(cairo.FORMAT_A8, 1, 1))

    def cover(self, path, *arguments):
        """Nothing: what lies below belongs to the picture."""


class Lettering:
    """The lettering of the game: the cuts of letters and numbers, and where letters begin."""

    def __init__(self, cut, number_cut, top, capitals, numbers):
        self.cut, self.number_cut, self.top = cut, number_cut, top
        self.capitals, self.numbers = capitals, numbers


class Craft:
    """The measures of a skin. Derived crafts add the drawing."""

    radius = 5         # of the corners of plates
    wall = 20          # thickness of the walls of a board, as far as they are seen
    round_pen = False  # whether the pen of the letters has a round point
    sign_pen = 2
    press = 1          # how far a pressed face moves away from the light
    outline = 2        # thickness of the line round what is laid over a board
    logo_kinds = (1, 2, 3, 4, 5, 6, 7)  # the tiles that lend the letters of the logo their colours
    score_kinds = (1, 4)                # and the words of the title of the high scores
    button_cut = letters.Type(0.75, 1, 2, 2)
    heading_cut = letters.Type(0.75, 0.7, 2, 2)
    overlay_cuts = {
        "huge": letters.Type(1.6, 2, 5, 4, 4),
        "large": letters.Type(1.2, 1.4, 4, 3),
        "middle": letters.Type(0.9, 1.2, 3, 3),
        "small": letters.Type(0.8, 1, 2, 2),
        "stars": letters.Type(1.2, 1.2, 0, 5),
    }
    key_cuts = {
        "single": letters.Type(2, 2, 4, 0),
        "mark": letters.Type(3, 2.4, 5, 0),   # marks that fill but a part of the height
        "paired": letters.Type(1.5, 1.2, 4, 0),
        "word": letters.Type(0.75, 1, 2, 1),
    }

    def plate(self, cr, x, y, width, height, look, radius, thickness):
        """A face in a line."""
        plates.box(cr, self.line_of(look), x, y, width, height, radius)
        self.face(cr, x + thickness, y + thickness, width - 2 * thickness,
                  height - 2 * thickness, look, max(radius - thickness, 1))

    def line_of(self, look):
        """The colour of the line round a plate."""
        return "edge"

    def relief(self, ink, look):
        """Draws the shadow or edge that lettering has on its plate, before the lettering."""

    def banner_relief(self, ink, look):
        """The same for the large lettering over a board."""

    def cap(self, picture, x, width, height, look):
        """A key cap: its body, and on it the face that carries the legend."""
        body = look._replace(top=look.bottom, bottom=look.dark, sunken=False, glow="")
        plates.plate(picture, x, 0, width, height, body)
        self.face(picture.cr, x + 6, 4, width - 12, height - 14, look, self.radius)

    def small_frame(self, width, height, wells):
        """A narrow frame round displays, given as (x, y, width, height)."""
        picture = Picture(width, height)
        picture.cover(shapes.rounded_rectangle, 0, 0, width, height, 4)
        self.panel(picture.cr, 0, 0, width, height, 4)
        for well in wells:
            self.well(picture.cr, *well)
        return picture

    # what lies below the buttons and the texts

    def sides(self, picture):
        """What stands at both sides of the menu."""

    def column(self, picture, width, depth, side):
        """The plate behind the buttons of the left or the right player."""
        picture.cover(shapes.rounded_rectangle, 0, 0, width, depth, self.radius)
        plates.box(picture.cr, f"{side}-edge", 0, 0, width, depth, self.radius)
        plates.box(picture.cr, f"{side}-plate", 1, 1, width - 2, depth - 2, self.radius - 1)

    def small_tile(self, cr, x, y, size, name):
        """A cell of a figure that is a sign, not a part of the game."""
        plates.box(cr, name, x, y, size - 1, size - 1, 1)

    def table(self, picture):
        """The rows of the high scores, the first three with a medal, and the rule above them."""
        for i in range(titles.ROWS):
            y = titles.ROW_TOP + i * titles.ROW_PITCH
            name = titles.MEDALS[i] if i < len(titles.MEDALS) else "row"
            picture.cover(shapes.rounded_rectangle, titles.ROW_LEFT, y, titles.ROW_WIDTH,
                          titles.ROW_DEPTH, self.radius)
            self.row(picture.cr, titles.ROW_LEFT, y, titles.ROW_WIDTH, titles.ROW_DEPTH, name)
            if name != "row":
                self.medal(picture, titles.MEDAL_AT, y + titles.ROW_DEPTH / 2, name, str(i + 1))
        picture.mask.rectangle(titles.ROW_LEFT + 6, titles.RULE_TOP, titles.ROW_WIDTH - 12, 2)
        picture.mask.fill()
        plates.bar(picture.cr, "rule", titles.ROW_LEFT + 6, titles.RULE_TOP,
                   titles.ROW_WIDTH - 12, 2)

    def row(self, cr, x, y, width, height, name):
        """One row of the high scores."""
        plates.box(cr, f"{name}-edge", x, y, width, height, self.radius)
        plates.box(cr, f"{name}-plate", x + 1, y + 1, width - 2, height - 2, self.radius - 1)

    def medal(self, picture, x, y, name, place):
        """The medal of one of the first three, at the end of the row."""
        cr, reach = picture.cr, titles.MEDAL_REACH
        picture.cover(shapes.rounded_rectangle, x - reach, y - reach, 2 * reach, 2 * reach, reach)
        for inset, colour_name in ((0, "title-edge"), (1, f"{name}-edge")):
            cr.arc(x, y, reach - inset, 0, 7)
            cr.set_source_rgb(*colour(colour_name))
            cr.fill()
        cut = letters.Type(0.5, 0.8, 2, 1)
        cr.set_source_rgb(*colour("medal-ink"))
        letters.draw(cr, place, x - letters.width(place, cut) / 2, y - cut.height / 2, cut)

    # tiles

    def mark(self, cr, x, y, kind):
        """The mark on a tile, in its own colour; soft edges are half as strong."""
        mark = sources.grids(sources.own(current.skin(), "marks.txt"))[str(kind)]
        for row, line in enumerate(mark):
            for column, sign in enumerate(line):
                if sign != ".":
                    cr.set_source_rgba(*colour(f"mark-{kind}"), 1 if sign == "#" else 0.45)
                    cr.rectangle(x + 3 + column, y + 3 + row, 1, 1)
                    cr.fill()

    def gleam(self, picture, x, y, stops):
        """A tile that is graded downwards and open at both sides: a row of them is one bar. Stops
        are (place from 0 to 1, colour)."""
        picture.mask.rectangle(x, y, SIZE, SIZE)
        picture.mask.fill()
        light = cairo.LinearGradient(0, y, 0, y + SIZE)
        for place, name in stops:
            light.add_color_stop_rgb(place, *colour(name))
        picture.cr.set_source(light)
        picture.cr.rectangle(x, y, SIZE, SIZE)
        picture.cr.fill()

    # displays

    def socket(self, cr, x, y):
        """The place of a cell of the next figure."""
        plates.box(cr, "socket", x + 1, y + 1, 14, 14, 2)

    def base_line(self, cr, x, y, width):
        """The line that the bars of the chart stand on."""
        plates.bar(cr, "socket", x - 2, y, width + 3, 1)

    def bar_mark(self, cr, x, y, width, kind):
        """The colour of a figure below its bar."""
        plates.bar(cr, f"tile-{kind}", x, y + 1, width, 2)

    # what is laid over a board

    def dream(self, picture, floor):
        """The breath of the sleeping heap below an invitation."""
        for x, y, size in ((12, floor - 12, 0.5), (22, floor - 26, 0.7), (32, floor - 44, 0.9)):
            ink = letters.Ink(picture)
            letters.draw(ink.cr, "Z", x, y, letters.Type(size, size, 2, 0))
            ink.outline(1, "halo")
            ink.pour(y, y + 12, ("letter-bottom", "letter-bottom"))

    def emblem(self, picture, name, x, y, look):
        """The sign of a pause, of a lost or of a won game, round a point of a plate."""
        getattr(self, f"_{name}_emblem")(picture, x, y, look)

    def _pause_emblem(self, picture, x, y, look):
        for left in (x - 15, x + 5):
            plates.box(picture.cr, "edge", left - 1, y - 17, 12, 38, 3)
            plates.box(picture.cr, "amber-bottom", left, y - 16, 10, 36, 2)
            plates.box(picture.cr, "amber-top", left + 1, y - 15, 8, 17, 2)

    def _loser_emblem(self, picture, x, y, look):
        cr = picture.cr
        cr.save()
        cr.translate(round(x) - 20, round(y) - 17)
        cr.scale(2.5, 2.5)
        cr.translate(-3, 0)
        self.tile(_Scratch(cr), 3, 0, 7)
        cr.restore()
        for pen, name in ((6, look.top), (2, look.dark)):
            cr.set_source_rgb(*colour(name))
            cr.set_line_width(pen)
            emblems.crack(cr, round(x), round(y) + 3, 44)
            cr.stroke()

    def _winner_emblem(self, picture, x, y, look):
        cr = picture.cr
        cr.save()
        shapes.rounded_rectangle(cr, 3, 3, picture.width - 6, picture.height - 6, self.radius)
        cr.clip()
        emblems.rays(cr, x, y + 4, 140, 14)
        cr.set_source_rgba(*colour("rays"), 0.5)
        cr.fill()
        cr.restore()
        self.cup(cr, x, y + 4, 62)
        for dx, dy, reach in ((-54, -6, 9), (54, -6, 9), (-36, 20, 6), (36, 20, 6)):
            for name, grow in (("edge", 2), ("cup-light", 0)):
                emblems.star(cr, x + dx, y + dy, reach + grow)
                cr.set_source_rgb(*colour(name))
                cr.fill()

    def cup(self, cr, x, y, size):
        """The cup of the winner."""
        for grow, name in ((3, "edge"), (0, "cup")):
            cr.set_source_rgb(*colour(name))
            emblems.handles(cr, x, y, size)
            cr.set_line_width(size / 14 + 2 * grow)
            cr.stroke()
            emblems.cup(cr, x, y, size)
            cr.set_line_width(2 * grow)
            cr.fill_preserve()
            cr.stroke()
        gradient = cairo.LinearGradient(x - size / 3, y, x + size / 3, y)
        for place, name in ((0, "cup-dark"), (0.3, "cup-light"), (0.5, "cup"), (1, "cup-dark")):
            gradient.add_color_stop_rgb(place, *colour(name))
        cr.set_source(gradient)
        emblems.cup(cr, x, y, size)
        cr.fill()

    def stroked_title(self, picture, text, kinds, cut, layers, shadow=()):
        """A word in strokes that lie on each other, the wide ones below.

        Each layer is (thickness, ground, part): the colour of the tile, mixed by the part with a
        colour of the palette. The shadow is (name, shift); both have a border of four pixels.
        """
        cut = letters.squeezed(text, cut, 512)
        left = (picture.width - letters.width(text, cut)) // 2
        top = (titles.TITLE_DEPTH - round(cut.height)) // 2
        whole = letters.Ink(picture)
        letters.draw(whole.cr, text, left, top, cut)
        border = grown(whole.sheet, 4)
        if shadow:
            name, shift = shadow
            for step in range(1, shift + 1):
                picture.stencil(border, name, step, step)
        picture.stencil(border, "title-edge")
        for layer in layers:
            self._title_layer(picture, text, kinds, cut, (left, top), layer)

    def _title_layer(self, picture, text, kinds, cut, place, layer):
        thickness, ground, part = layer
        x, y = place
        kinds = iter(kinds)
        for letter in text:
            step = letters.width(letter, cut) + cut.gap
            if letter != " ":
                value = mix(colour(f"tile-{next(kinds)}"), colour(ground), part)
                self._title_letter(picture, letter, x, y, cut, thickness, value)
            x += step

    def _title_letter(self, picture, letter, x, y, cut, thickness, value):
        ink = letters.Ink(picture)
        inset = (cut.pen - thickness) / 2
        letters.draw(ink.cr, letter, x + inset, y + inset, cut._replace(pen=thickness))
        picture.cr.set_source_rgb(*value)
        picture.cr.mask_surface(ink.sheet, 0, 0)
