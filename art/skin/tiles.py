"""Enamel tiles: the cells of the board, and the titles that are laid out of tiles."""

import cairo

from . import shapes, sources
from .colours import WHITE, colour, mix
from .picture import Picture

SIZE = 16
BLACK = (0.0, 0.0, 0.0)
RIM = 0.68  # how dark the rim of a full tile is
MARKS = sources.grids("marks.txt")
LETTERS = sources.grids("titles.txt")


def _slope(x, y, size, stops):
    """A gradient from the top left corner of a square to its bottom right one."""
    gradient = cairo.LinearGradient(x, y, x + size, y + size)
    for place, value in stops:
        gradient.add_color_stop_rgb(place, *value)
    return gradient


def _face(cr, x, y, size, base):
    """A tile without its mark: dark rim, bevel towards the light, face with a sheen.

    Small tiles make words that have to read as one shape: their rim is paler, and is left out on
    the sides that face the light.
    """
    rim, bevel = (1, 2) if size == SIZE else (0, 1)
    cr.set_source_rgb(*mix(base, BLACK, RIM * size / SIZE))
    cr.rectangle(x, y, size, size)
    cr.fill()
    light, dark = mix(base, WHITE, 0.55), mix(base, BLACK, 0.48)
    cr.set_source(_slope(x, y, size, ((0.0, mix(base, WHITE, 0.75)), (0.47, light),
                                      (0.53, dark), (1.0, mix(base, BLACK, 0.6)))))
    shapes.rounded_rectangle(cr, x + rim, y + rim, size - 1 - rim, size - 1 - rim, 1.5)
    cr.fill()
    cr.set_source(_slope(x, y, size, ((0.1, mix(base, WHITE, 0.26)), (0.5, base),
                                      (0.95, mix(base, BLACK, 0.16)))))
    inset, inner = rim + bevel, size - 1 - rim - 2 * bevel
    shapes.rounded_rectangle(cr, x + inset, y + inset, inner, inner, 1)
    cr.fill()


def _pixel(cr, x, y, value):
    cr.set_source_rgb(*value)
    cr.rectangle(x, y, 1, 1)
    cr.fill()


def _dots(mark):
    return sorted((c, r) for r, row in enumerate(mark) for c, sign in enumerate(row) if sign == "#")


def _engrave(cr, x, y, base, mark):
    """Cuts a mark into the face: dark in the groove, bright on the lip that faces the light."""
    dots = _dots(mark)
    for column, row in dots:
        _pixel(cr, x + column + 1, y + row + 1, mix(base, WHITE, 0.5))
    for column, row in dots:
        shaded = (column - 1, row - 1) not in dots
        _pixel(cr, x + column, y + row, mix(base, BLACK, 0.66 if shaded else 0.52))


def _raise(cr, x, y, base, mark):
    """Sets a mark upon the face: bright towards the light, with a shadow on the other side."""
    dots = _dots(mark)
    for column, row in dots:
        _pixel(cr, x + column + 1, y + row + 1, mix(base, BLACK, 0.6))
    for column, row in dots:
        lit = (column - 1, row) not in dots and (column, row - 1) not in dots
        _pixel(cr, x + column, y + row, mix(base, WHITE, 0.85 if lit else 0.3))


def tile(picture, x, y, kind):
    """One tile of the board; the outermost pixel of each corner stays free."""
    base = colour(f"tile-{kind}")
    picture.mask.rectangle(x + 1, y, SIZE - 2, SIZE)
    picture.mask.rectangle(x, y + 1, SIZE, SIZE - 2)
    picture.mask.fill()
    _face(picture.cr, x, y, SIZE, base)
    work = _raise if kind == 8 else _engrave
    work(picture.cr, x + 3, y + 3, base, MARKS[str(kind)])


def blocks(width, height):
    """The cells of the board: seven figures and the steel tile."""
    picture = Picture(width, height)
    for kind in range(1, 9):
        tile(picture, (kind - 1) * SIZE, 0, kind)
    return picture


def bars(width, height):
    """The bars of the statistics, one for each figure, in the colour of its tile."""
    picture = Picture(width, height)
    step = width // 7
    for i in range(7):
        base = colour(f"tile-{i + 1}")
        picture.mask.rectangle(i * step, 0, step - 1, height)
        picture.mask.fill()
        columns = [mix(base, BLACK, 0.25), mix(base, WHITE, 0.5), mix(base, WHITE, 0.18)]
        columns += [base] * (step - 6) + [mix(base, BLACK, 0.3), mix(base, BLACK, 0.6)]
        for column, value in enumerate(columns):
            picture.cr.set_source_rgb(*value)
            picture.cr.rectangle(i * step + column, 0, 1, height)
            picture.cr.fill()
    return picture


def _word_places(text, size, depth, kinds):
    """Where the tiles of a word lie, from its top left corner: (x, y, kind)."""
    left = 0
    kinds = iter(kinds)
    for letter in text:
        if letter == " ":
            left += 2 * size
            continue
        kind = next(kinds)
        rows = LETTERS[letter]
        for y, row in enumerate(rows):
            for x, sign in enumerate(row):
                if sign == "#":
                    yield left + x * size, y * size, kind
        left += len(rows[0]) * size + 2 * depth + 2


def _word_sides(picture, places, size, depth):
    """The sides of the tiles, falling away from the light, in a dark line."""
    for step in range(depth + 1):
        for x, y, _ in places:
            picture.mask.rectangle(x - 1 + step, y - 1 + step, size + 2, size + 2)
    picture.mask.fill()
    for step in range(depth, 0, -1):
        for x, y, kind in places:
            picture.cr.set_source_rgb(
                *mix(colour(f"tile-{kind}"), BLACK, 0.62 + 0.28 * step / depth))
            picture.cr.rectangle(x + step, y + step, size, size)
            picture.cr.fill()


def word(picture, text, size, depth, kinds):
    """Lays a word out of tiles in the middle of a picture; kinds has one tile for each letter."""
    places = list(_word_places(text, size, depth, kinds))
    right, bottom = (max(place[i] for place in places) + size + depth for i in (0, 1))
    left, top = (picture.width - right) // 2, (picture.height - bottom) // 2
    places = [(left + x, top + y, kind) for x, y, kind in places]
    _word_sides(picture, places, size, depth)
    for x, y, kind in places:
        fall = (y - top) / bottom
        base = mix(colour(f"tile-{kind}"), WHITE, 0.18 * (1 - fall))
        _face(picture.cr, x, y, size, mix(base, BLACK, 0.14 * fall))
