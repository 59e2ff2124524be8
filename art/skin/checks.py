"""What a finished skin has to fulfil: lettering that reads, and tiles that cannot be confused."""

import math
from itertools import combinations

from . import readable, sight
from .current import craft
from .tiles import KINDS, SIZE

# Where the lettering of the game lies on pictures that are drawn apart from it, as far as its cells
# are ever filled: on the ground of the menu and of the high scores, on the values of a half of the
# game screen, and on the display of the number of figures.
LABELS = (133, 181, 229, 277, 336)
TEXT_ROOM = (
    ("Background.bmp", [(9, 104, 514, 430)]),
    ("Game/Background.bmp", [box for top in LABELS for box in (
        (234, top, 312, top + 15), (237, top + 19, 308, top + 34))]),
    ("Game/statisticsframe.bmp", [(4, 44, 74, 59)]))
# How far two tiles have to be apart: their pictures, as the mean distance of the pixels that lie on
# each other, and their colours, as the distance of their means. Without any colour it is the mark
# that tells tiles apart, so there the pictures alone count.
LEAST_PICTURE = 10
LEAST_COLOUR = 5


def _contrasts(pictures):
    lettering = craft().lettering
    names = {*lettering.capitals, *lettering.numbers, "letter-top", "letter-bottom"}
    for file, boxes in TEXT_ROOM:
        pixels = {pixel for left, top, right, bottom in boxes
                  for row in pictures[file][top:bottom] for pixel in row[left:right]}
        reached = readable.worst_contrast(names, pixels)
        if reached < readable.LEAST:
            raise ValueError(f"{file}: the lettering of the game has contrast {reached:.1f}")
        yield f"lettering on {file}, lowest contrast {reached:.1f}"


def tile(pictures, kind):
    """The pixels of a tile, one after another."""
    left = (kind - 1) * SIZE
    return [pixel for row in pictures["Game/blocks.bmp"][1:-1]
            for pixel in row[left + 1:left + SIZE - 1]]


def _mean(points):
    return tuple(sum(values) / len(points) for values in zip(*points))


def distances(pictures, kind_of_sight):
    """How far the tiles are apart: {(one, other): (of the pictures, of the colours)}."""
    points = {kind: [sight.lab(pixel, kind_of_sight) for pixel in tile(pictures, kind)]
              for kind in range(1, KINDS + 1)}
    means = {kind: _mean(found) for kind, found in points.items()}
    return {(a, b): (sum(map(math.dist, points[a], points[b])) / len(points[a]),
                     math.dist(means[a], means[b]))
            for a, b in combinations(points, 2)}


def _tiles(pictures):
    for kind_of_sight in sight.SIGHTS:
        found = distances(pictures, kind_of_sight)
        words = []
        for i, (name, least) in enumerate((("pictures", LEAST_PICTURE), ("colours", LEAST_COLOUR))):
            pair = min(found, key=lambda tiles: found[tiles][i])
            reached = found[pair][i]
            words.append(f"{name} {reached:.1f} (tiles {pair[0]} and {pair[1]})")
            if reached < least and (kind_of_sight, name) != ("grey", "colours"):
                raise ValueError(f"{kind_of_sight}: {words[-1]} are too close")
        yield f"{kind_of_sight} sight, closest tiles: {', '.join(words)}"


def check(pictures):
    """Yields what was measured; raises ValueError if it is not enough."""
    yield from _contrasts(pictures)
    yield from _tiles(pictures)
