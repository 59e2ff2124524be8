"""A picture that is being painted: its art, and a mask of the pixels that belong to it.

The two are drawn separately. Art is drawn with smooth edges over a dark ground. In the end the mask
chooses for each pixel between art and the colour key, so that an edge never mixes the two.
"""

import math

import cairo
from PIL import Image

from . import bitmaps, colours

# The number of directions in which `spread` moves a sheet.
SPREAD_STEPS = 32


def sheet(width, height):
    """An empty surface of coverage, one byte a pixel."""
    return cairo.ImageSurface(cairo.FORMAT_A8, width, height)


def _table(surface, table):
    surface.flush()
    data = surface.get_data()
    data[:] = bytes(data).translate(table)
    surface.mark_dirty()


def hardened(surface, least=128):
    """A copy of a sheet in which each pixel is either fully covered, or not at all."""
    result = sheet(surface.get_width(), surface.get_height())
    cairo.Context(result).mask_surface(surface)
    _table(result, bytes(255 if value >= least else 0 for value in range(256)))
    return result


def grown(surface, steps, least=64):
    """A hard copy of a sheet, some pixels larger on all sides, with cut corners."""
    result = hardened(surface, least)
    for step in range(steps):
        source = result
        result = sheet(source.get_width(), source.get_height())
        cr = cairo.Context(result)
        reach = [(0, 0), (1, 0), (-1, 0), (0, 1), (0, -1)]
        if step % 2 == 0:
            reach += [(1, 1), (1, -1), (-1, 1), (-1, -1)]
        for dx, dy in reach:
            cr.mask_surface(source, dx, dy)
    return result


def spread(surface, reach):
    """A smooth copy of a sheet, some pixels larger on all sides, with round corners."""
    result = sheet(surface.get_width(), surface.get_height())
    cr = cairo.Context(result)
    cr.mask_surface(surface)
    for step in range(SPREAD_STEPS):
        angle = 2 * math.pi * step / SPREAD_STEPS
        cr.mask_surface(surface, reach * math.cos(angle), reach * math.sin(angle))
    return result


def rim(surface, dx, dy):
    """The part of a sheet that a shifted copy of it does not cover."""
    result = sheet(surface.get_width(), surface.get_height())
    cr = cairo.Context(result)
    cr.mask_surface(surface)
    cr.set_operator(cairo.OPERATOR_DEST_OUT)
    cr.mask_surface(surface, dx, dy)
    return result


def image(surface):
    """A surface of colours or of coverage as a picture of Pillow's."""
    surface.flush()
    mode, layout = (("L", "L") if surface.get_format() == cairo.FORMAT_A8 else ("RGB", "BGRX"))
    return Image.frombytes(mode, (surface.get_width(), surface.get_height()),
                           bytes(surface.get_data()), "raw", layout, surface.get_stride())


class Picture:
    """One picture, drawn with the contexts `cr` (art) and `mask`."""

    def __init__(self, width, height, ground="edge"):
        self.width, self.height = width, height
        self.is_dithered = False
        self.art = cairo.ImageSurface(cairo.FORMAT_RGB24, width, height)
        self.cr = cairo.Context(self.art)
        self.cr.set_source_rgb(*colours.colour(ground))
        self.cr.paint()
        self.sheet = sheet(width, height)
        self.mask = cairo.Context(self.sheet)

    def cover_all(self):
        """The whole rectangle belongs to the picture."""
        self.mask.paint()

    def cover(self, path, *arguments):
        """What a path encloses belongs to the picture."""
        path(self.mask, *arguments)
        self.mask.fill()

    def stencil(self, surface, name, dx=0, dy=0):
        """Adds the shape of a hard sheet, in one colour of the palette."""
        self.mask.mask_surface(surface, dx, dy)
        self.cr.set_source_rgb(*colours.colour(name))
        self.cr.mask_surface(surface, dx, dy)

    def pixels(self, key):
        """The finished picture, and a picture of its mask, which is 0 where the key shows. The key
        is (red, green, blue), from 0 to 255."""
        mask = image(hardened(self.sheet))
        art = image(self.art)
        if self.is_dithered:
            art = bitmaps.dithered(art)
        return Image.composite(art, Image.new("RGB", art.size, key), mask), mask
