"""The base of all crafts: measures and drawing that most skins share."""

from .. import letters, plates, shapes
from ..colours import colour, mix
from ..picture import Picture, grown


class Lettering:
    """The lettering of the game: how it is cut, and where it stands in its cell."""

    def __init__(self, cut, top, capitals, numbers):
        self.cut, self.top = cut, top
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

    def stroked_title(self, picture, text, kinds, cut, layers, shadow=()):
        """A word in strokes that lie on each other, the wide ones below.

        Each layer is (thickness, ground, part): the colour of the tile, mixed by the part with a
        colour of the palette. The shadow is (name, shift); both have a border of four pixels.
        """
        cut = letters.squeezed(text, cut, 512)
        left = (picture.width - letters.width(text, cut)) // 2
        top = (picture.height - round(cut.height)) // 2
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
