"""Colour keys: which colour stands for "nothing here", and the proof that no art comes near it."""

import math

from . import sources

KEYS = [tuple(bytes.fromhex(line)) for line in sources.lines(sources.ART / "keys.txt")]
# How far all art has to stay from every key, as a distance in the room of the three channels. On
# a screen of few colours what lies nearer might be shown as the key, and so as a hole.
DISTANCE = 80


class KeyClash(Exception):
    """Art that a colour key would punch a hole into."""


def reduced(pixel):
    """What is left of a pixel on a screen of 16 bits."""
    red, green, blue = pixel
    return red >> 3, green >> 2, blue >> 3


def check(name, rows, mask):
    """Raises KeyClash if any pixel of the art could be taken for a key."""
    art = {pixel for row, line in zip(rows, mask) for pixel, kept in zip(row, line) if kept}
    coarse_keys = {reduced(key) for key in KEYS}
    for pixel in sorted(art):
        near = min(math.dist(pixel, key) for key in KEYS)
        if reduced(pixel) in coarse_keys or near < DISTANCE:
            raise KeyClash(f"{name}: art of colour {pixel} is too near to a colour key")


def strip():
    """The rows of the picture that tells the game the keys: they lead its bottom row."""
    keys = [KEYS[i % len(KEYS)] for i in range(4)]
    return [keys, keys]
