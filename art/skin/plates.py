"""The one bevel of the skin: raised plates, sunken displays and steel frames."""

from typing import NamedTuple

import cairo

from . import shapes
from .colours import colour, contrast

RADIUS = 5


class Look(NamedTuple):
    """Colours of a plate, by their names in the palette."""

    top: str
    bottom: str
    light: str
    dark: str
    ink: str
    sunken: bool = False
    glow: str = ""


REST = Look("plate-top", "plate-bottom", "plate-light", "plate-dark", "plate-ink")
ON = Look("lamp-top", "lamp-bottom", "lamp-light", "lamp-dark", "lamp-ink", True, "lamp-glow")
OFF = Look("off-top", "off-bottom", "off-light", "off-dark", "off-ink")
OFF_ON = Look("ember-top", "ember-bottom", "ember-light", "ember-dark", "ember-ink", True)
STEEL = Look("steel", "steel-face", "steel-light", "steel-dark", "letter-top")
# A lit plate that still stands up, for the pictures that announce something good.
LIT = ON._replace(sunken=False)
READABLE = 4.5


def _downwards(y, height, top, bottom):
    gradient = cairo.LinearGradient(0, y, 0, y + height)
    gradient.add_color_stop_rgb(0, *colour(top))
    gradient.add_color_stop_rgb(1, *colour(bottom))
    return gradient


def _sides(x, y, width, height):
    """The two halves of a rectangle, mitred at the corners: towards the light, and away from it."""
    reach = min(width, height) / 2
    right, bottom = x + width, y + height
    mitre = ((right - reach, y + reach), (x + reach, bottom - reach))
    lit = ((x, bottom), (x, y), (right, y), *mitre)
    shaded = ((right, y), (right, bottom), (x, bottom), *reversed(mitre))
    return lit, shaded


def _edge(cr, x, y, width, height, radius, names, strength):
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


def bevel(cr, x, y, width, height, look, radius=RADIUS):
    """Two lines of bevel just inside a rectangle, the outer one the stronger."""
    names = (look.dark, look.light) if look.sunken else (look.light, look.dark)
    for inset, strength in ((0, 0.85), (1, 0.3)):
        _edge(cr, x + inset, y + inset, width - 2 * inset, height - 2 * inset,
              max(radius - inset, 1), names, strength)


def _inner_glow(cr, x, y, width, height, name):
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


def _sheen(cr, x, y, width, height):
    """The reflection of the light over the upper half of a polished plate."""
    gradient = cairo.LinearGradient(0, y, 0, y + height / 2)
    gradient.add_color_stop_rgba(0, 1, 1, 1, 0.11)
    gradient.add_color_stop_rgba(1, 1, 1, 1, 0.03)
    cr.set_source(gradient)
    cr.rectangle(x, y, width, height / 2 - 1)
    cr.fill()


def plate(picture, x, y, width, height, look, radius=RADIUS, line=1):
    """A plate with a dark line round it; it belongs to the picture as a whole."""
    picture.cover(shapes.rounded_rectangle, x, y, width, height, radius)
    face(picture.cr, x + line, y + line, width - 2 * line, height - 2 * line, look,
         max(radius - line, 1))


def face(cr, x, y, width, height, look, radius=RADIUS - 1):
    """The face of a plate with its bevel, without the line."""
    cr.save()
    shapes.rounded_rectangle(cr, x, y, width, height, radius)
    cr.clip()
    cr.set_source(_downwards(y, height, look.top, look.bottom))
    cr.paint()
    if look.glow:
        _inner_glow(cr, x, y, width, height, look.glow)
    if not look.sunken:
        _sheen(cr, x, y, width, height)
    cr.restore()
    bevel(cr, x, y, width, height, look, radius)


def display(cr, x, y, width, height, rim="steel-light", radius=2):
    """A dark glass let into what is there: its rim is shaded above and lit below."""
    shapes.rounded_rectangle(cr, x, y, width, height, radius)
    cr.set_source_rgb(*colour("glass"))
    cr.fill()
    _edge(cr, x - 1, y - 1, width + 2, height + 2, radius + 1, ("ink-dark", rim), 0.6)


def require_readable(look, names):
    """Raises ValueError if lettering in any of some colours is hard to read on a plate."""
    for name in names:
        for ground in (look.top, look.bottom):
            reached = contrast(colour(name), colour(ground))
            if reached < READABLE:
                raise ValueError(f"{name} on {ground}: contrast {reached:.1f}")
