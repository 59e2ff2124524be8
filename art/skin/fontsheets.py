"""The two pictures of the game's lettering: one cell of 16 by 16 pixels after another."""

from . import letters
from .picture import Picture

CELL = 16
# Characters stand 14 pixels apart, so the right two columns of a cell have to stay empty.
ADVANCE = 14
# Alone in its cell, the I needs serifs to hold its place.
CAPITALS = [*"ABCDEFGH", "I-wide", *"JKLMNOPQRSTUVWXYZ"]
NUMBERS = "0123456789:;<=>?@"
CUT = letters.Type(1, 1)
TOP = 2


def sheet_of(characters, width, height):
    """One row of cells, each with a white letter in a dark line."""
    picture = Picture(width, height, "ink-dark")
    ink = letters.Ink(picture)
    for i, character in enumerate(characters):
        body = letters.width([character], CUT)
        letters.draw(ink.cr, [character], i * CELL + (ADVANCE - body) // 2, TOP, CUT)
    ink.outline(1)
    ink.pour(TOP, TOP + CUT.height, ("letter-top", "letter-top", "letter-bottom"))
    return picture


def capitals(width, height):
    """A to Z."""
    return sheet_of(CAPITALS, width, height)


def numbers(width, height):
    """The digits and the signs after them."""
    return sheet_of(NUMBERS, width, height)
