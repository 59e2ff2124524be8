"""What every craft has to know, with the values that most skins share."""

from .. import letters, shapes
from ..picture import Picture


class Lettering:
    """The lettering of the game: how it is cut, and where it stands in its cell."""

    def __init__(self, cut, top, halo, capitals, numbers):
        self.cut, self.top, self.halo = cut, top, halo
        self.capitals, self.numbers = capitals, numbers


class Craft:
    """The measures of a skin. Its painters come with the crafts that are built on this one."""

    radius = 5         # of the corners of plates
    wall = 20          # thickness of the walls of a board, as far as they are seen
    round_pen = False  # whether the pen of the letters has a round point
    sign_pen = 2
    press = 1          # how far a pressed face moves away from the light
    outline = 2        # thickness of the line round what is laid over a board
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
        """Lays what a line of lettering casts on its plate, before the lettering itself."""

    def banner_relief(self, ink, look):
        """The same for the large lettering that lies over a board."""

    def legend_relief(self, ink):
        """The same for the legend of a key."""

    def cover_tile(self, picture, x, y, size):
        """A tile belongs to its picture but for the outermost pixel of each corner."""
        picture.mask.rectangle(x + 1, y, size - 2, size)
        picture.mask.rectangle(x, y + 1, size, size - 2)
        picture.mask.fill()

    def small_frame(self, width, height, wells):
        """A narrow frame round displays, given as (x, y, width, height)."""
        picture = Picture(width, height)
        picture.cover(shapes.rounded_rectangle, 0, 0, width, height, 4)
        self.panel(picture.cr, 0, 0, width, height, 4)
        for well in wells:
            self.well(picture.cr, *well)
        return picture
