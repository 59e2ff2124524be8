"""Lettering and signs, drawn from the stroke lists in letters.txt and signs.txt."""

from functools import lru_cache
from typing import NamedTuple, Optional

import cairo

from . import colours, current, readable, shapes, sources
from .picture import grown, sheet

CAPITAL = 10


class Type(NamedTuple):
    """A cut of the letters. Even pens on whole steps give sharp edges."""

    across: float  # pixels for each step of the grid to the right
    down: float  # pixels for each step downwards
    pen: float = 2  # thickness of the upright strokes in pixels
    gap: float = 2  # pixels between neighbours
    bar: Optional[float] = None  # thickness of the level strokes, where it is another

    @property
    def level(self):
        """Thickness of the level strokes."""
        return self.pen if self.bar is None else self.bar

    @property
    def height(self):
        """Height of the capitals in pixels."""
        return CAPITAL * self.down + self.level


class Glyph(NamedTuple):
    """One letter: the size of its box in steps and its strokes, each (kind, points)."""

    width: float
    depth: float
    strokes: list


def _point(word):
    place, _, radius = word.partition("~")
    x, y = place.split(",")
    return float(x), float(y), float(radius or 0)


def stroke(line):
    """A stroke as (kind, points) from its text."""
    words = line.split()
    kind = words.pop(0) if words[0] in ("loop", "fill", "disc") else "line"
    if kind == "disc":
        x, y, _ = _point(words[0])
        return kind, [(x, y, float(words[1]))]
    return kind, [_point(word) for word in words]


@lru_cache(maxsize=None)
def load(path):
    """The glyphs of a stroke list, by name."""
    glyphs = {}
    for line in sources.lines(path):
        if line.startswith(" "):
            glyph.strokes.append(stroke(line))
        else:
            title, width, *depth = line.split()
            glyph = glyphs[title] = Glyph(float(width), float(depth[0] if depth else CAPITAL), [])
    return glyphs


def letter(name):
    """A letter, in the form of the skin if it has one."""
    own = sources.own(current.skin(), "letters.txt")
    shared = load(sources.ART / "letters.txt")
    return (load(own) if own.exists() else {}).get(name, shared.get(name))


def sign(name):
    """A small picture."""
    return load(sources.ART / "signs.txt")[name]


WORD_SPACE = Glyph(2, 0, [])


def _draw_stroke(cr, kind, points, cut):
    """Draws one stroke; the pen keeps its thickness however the letter is squeezed."""
    cr.save()
    cr.scale(cut.across, cut.down)
    if kind == "disc":
        x, y, radius = points[0]
        cr.arc(x, y, radius, 0, 6.2831853)
    else:
        shapes.polyline(cr, points, kind in ("loop", "fill"))
    cr.restore()
    if kind in ("fill", "disc"):
        cr.fill()
        return
    cr.save()
    cr.scale(cut.pen, cut.level)
    cr.stroke()
    cr.restore()


def _draw_glyph(cr, glyph, x, y, cut, boxed):
    """Draws one glyph whose body begins at x, y.

    A boxed glyph ends flat at the sides of its box; a pen with a round point stops there instead.
    """
    soft = boxed and current.craft().round_pen
    cr.save()
    cr.translate(x + cut.pen / 2, y + cut.level / 2)
    if boxed:
        cr.rectangle(-cut.pen / 2, -cut.level / 2, glyph.width * cut.across + cut.pen,
                     glyph.depth * cut.down + cut.level)
        cr.clip()
    cr.set_line_width(1)
    cr.set_line_join(cairo.LINE_JOIN_ROUND if soft else cairo.LINE_JOIN_MITER)
    cr.set_line_cap(cairo.LINE_CAP_ROUND if soft else cairo.LINE_CAP_BUTT)
    for kind, points in glyph.strokes:
        if soft and kind == "line":
            points = shapes.shortened(points, glyph.width, glyph.depth)
        _draw_stroke(cr, kind, points, cut)
    cr.restore()


def _glyphs(text):
    return [WORD_SPACE if name == " " else letter(name) for name in text]


def _across(glyph, cut):
    """Width of a glyph between its outer strokes: whole pixels, so that every stem is sharp."""
    return round(glyph.width * cut.across)


def width(text, cut):
    """Width of a line of text, given as a string or as a list of glyph names, in pixels."""
    return sum(_across(glyph, cut) + cut.pen + cut.gap for glyph in _glyphs(text)) - cut.gap


def squeezed(text, cut, most):
    """The cut, made narrower as far as a text needs to be no wider than some pixels."""
    while width(text, cut) > most:
        cut = cut._replace(across=cut.across - 0.05)
    return cut


def draw(cr, text, x, y, cut):
    """Draws a line of text from its left top corner, in the source of the context."""
    for glyph in _glyphs(text):
        across = _across(glyph, cut)
        step = across / glyph.width if glyph.width else cut.across
        _draw_glyph(cr, glyph, x, y, cut._replace(across=step), True)
        x += across + cut.pen + cut.gap


def draw_sign(cr, name, x, y, size, pen=2):
    """Draws a sign into the square of a size whose corner is x, y."""
    draw_glyph(cr, sign(name), x, y, size, pen)


def draw_glyph(cr, glyph, x, y, size, pen):
    """Draws a glyph on a field of 10 by 10 into the square of a size whose corner is x, y."""
    step = (size - pen) / CAPITAL
    _draw_glyph(cr, glyph, x, y, Type(step, step, pen), False)


def graded(cr, top, bottom, names):
    """Makes a gradient downwards through colours of the palette, evenly apart, the source."""
    gradient = cairo.LinearGradient(0, top, 0, bottom)
    for place, name in enumerate(names):
        gradient.add_color_stop_rgb(place / (len(names) - 1), *colours.colour(name))
    cr.set_source(gradient)


class Ink:
    """Lettering as a sheet of coverage, as large as the picture that it belongs to."""

    def __init__(self, picture):
        self.picture = picture
        self.sheet = sheet(picture.width, picture.height)
        self.cr = cairo.Context(self.sheet)

    def must_read(self, names):
        """Raises ValueError if the lettering would be hard to read in these colours."""
        readable.require(self.picture, self.sheet, names)

    def outline(self, thickness, name="ink-dark", dx=0, dy=0):
        """Draws a hard line round the lettering, and makes it part of the picture."""
        self.picture.stencil(grown(self.sheet, thickness), name, dx, dy)

    def shade(self, strength, dx=1, dy=1):
        """Draws a soft shadow of the lettering on the art."""
        self.picture.cr.set_source_rgba(0, 0, 0, strength)
        self.picture.cr.mask_surface(self.sheet, dx, dy)

    def pour(self, top, bottom, names):
        """Fills the lettering with a gradient downwards."""
        graded(self.picture.cr, top, bottom, names)
        self.picture.cr.mask_surface(self.sheet, 0, 0)
