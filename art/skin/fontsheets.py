"""The two pictures of the game's characters, in cells of 16 by 16 pixels."""

from . import letters
from .current import craft
from .picture import Picture

CELL = 16
# Characters stand 14 pixels apart, so the right two columns of a cell have to stay empty. One
# pixel on each side of a letter belongs to its outline.
ADVANCE = 14
WIDEST = ADVANCE - 2
# In a cell of its own, an I without serifs would look lost.
CAPITALS = [*"ABCDEFGH", "I-wide", *"JKLMNOPQRSTUVWXYZ"]
# Characters with so many strokes that a thick pen would close their gaps, with their pens.
CROWDED = {"W": 2, "@": 1}
NUMBERS = "0123456789:;<=>?@"


def _cut(character, cut):
    """The cut of a character; all have the same height, however thick the pen."""
    pen = CROWDED.get(character, cut.pen)
    bar = min(pen, cut.level)
    return cut._replace(pen=pen, bar=bar, down=(cut.height - bar) / letters.CAPITAL)


def sheet_of(characters, names, width, height):
    """One row of cells, each with a letter in its outline."""
    text = craft().lettering
    picture = Picture(width, height, "halo")
    ink = letters.Ink(picture)
    for i, character in enumerate(characters):
        cut = letters.squeezed([character], _cut(character, text.cut), WIDEST)
        body = letters.width([character], cut)
        letters.draw(ink.cr, [character], i * CELL + (ADVANCE - body) // 2, text.top, cut)
    ink.outline(1, "halo")
    ink.pour(text.top, text.top + text.cut.height, names)
    return picture


def capitals(width, height):
    """A to Z."""
    return sheet_of(CAPITALS, craft().lettering.capitals, width, height)


def numbers(width, height):
    """The digits and the signs after them."""
    return sheet_of(NUMBERS, craft().lettering.numbers, width, height)
