"""Plates with bevels, which most pictures of a skin are made of."""

from typing import NamedTuple

import cairo

from . import current, shapes
from .colours import colour


class Look(NamedTuple):
    """Colours of a plate, by their names in the palette, and its state."""

    top: str
    bottom: str
    light: str
    dark: str
    ink: str
    sunken: bool = False
    glow: str = ""
    enabled: bool = True


REST = Look("plate-top", "plate-bottom", "plate-light", "plate-dark", "plate-ink")
ON = Look("lamp-top", "lamp-bottom", "lamp-light", "lamp-dark", "lamp-ink", True, "lamp-glow")
OFF = Look("off-top", "off-bottom", "off-light", "off-dark", "off-ink", enabled=False)
OFF_ON = Look("ember-top", "ember-bottom", "ember-light", "ember-dark", "ember-ink", True,
              enabled=False)
START = Look("start-top", "start-bottom", "start-light", "start-dark", "start-ink",
             glow="start-glow")
FRAME = Look("frame", "frame-face", "frame-light", "frame-dark", "plate-ink")
# Lit but not pressed: for pictures that announce something good.
LIT = ON._replace(sunken=False)


def downwards(y, height, top, bottom):
    """A gradient between two colours of the palette."""
    gradient = cairo.LinearGradient(0, y, 0, y + height)
    gradient.add_color_stop_rgb(0, *colour(top))
    gradient.add_color_stop_rgb(1, *colour(bottom))
    return gradient


def bar(cr, name, x, y, width, height):
    """A rectangle in one colour of the palette."""
    cr.set_source_rgb(*colour(name))
    cr.rectangle(x, y, width, height)
    cr.fill()


def box(cr, name, x, y, width, height, radius):
    """A rectangle with round corners in one colour of the palette."""
    shapes.rounded_rectangle(cr, x, y, width, height, radius)
    cr.set_source_rgb(*colour(name))
    cr.fill()


def line(cr, name, x, y, width, height, radius, thickness, dash=()):
    """A line that follows the inside of a rectangle with round corners."""
    cr.save()
    cr.set_line_width(thickness)
    cr.set_dash(dash)
    cr.set_source_rgb(*colour(name))
    shapes.rounded_rectangle(cr, x + thickness / 2, y + thickness / 2, width - thickness,
                             height - thickness, max(radius - thickness / 2, 0.5))
    cr.stroke()
    cr.restore()


def _sides(x, y, width, height):
    """The edges of a rectangle towards the light and those away from it, as two polygons."""
    reach = min(width, height) / 2
    right, bottom = x + width, y + height
    mitre = ((right - reach, y + reach), (x + reach, bottom - reach))
    lit = ((x, bottom), (x, y), (right, y), *mitre)
    shaded = ((right, y), (right, bottom), (x, bottom), *reversed(mitre))
    return lit, shaded


def edge(cr, x, y, width, height, radius, names, strength):
    """A line of one pixel inside a rectangle, in one colour towards the light and in another."""
    cr.set_line_width(1)
    for side, name in zip(_sides(x, y, width, height), names):
        cr.save()
        for point in side:
            cr.line_to(*point)
        cr.close_path()
        cr.clip()
        cr.set_source_rgba(*colour(name), strength)
        shapes.rounded_rectangle(cr, x + 0.5, y + 0.5, width - 1, height - 1, radius)
        cr.stroke()
        cr.restore()


def bevel(cr, x, y, width, height, look, radius):
    """Two lines of bevel just inside a rectangle, the outer one the stronger."""
    names = (look.dark, look.light) if look.sunken else (look.light, look.dark)
    for inset, strength in ((0, 0.85), (1, 0.3)):
        edge(cr, x + inset, y + inset, width - 2 * inset, height - 2 * inset,
             max(radius - inset, 1), names, strength)


def plate(picture, x, y, width, height, look, radius=None, thickness=1):
    """A plate with a dark line round it. Both become part of the picture."""
    radius = current.craft().radius if radius is None else radius
    picture.cover(shapes.rounded_rectangle, x, y, width, height, radius)
    current.craft().plate(picture.cr, x, y, width, height, look, radius, thickness)
