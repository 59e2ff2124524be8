"""The two pictures of the game's characters, in cells of 16 by 16 pixels."""

import cairo

from . import letters
from .current import craft
from .picture import Picture

CELL = 16
# Characters stand 14 pixels apart, so the right two columns of a cell have to stay empty.
ADVANCE = 14
WIDEST = 12
# Labels begin four pixels further left than the numbers below them: so letters keep to the right of
# their cells and numbers to the left, and both look as if they began on one line.
LETTERS_LEFT, NUMBERS_LEFT = 2, 0
# In a cell of its own, an I without serifs would look lost.
CAPITALS = [*"ABCDEFGH", "I-wide", *"JKLMNOPQRSTUVWXYZ"]
# Characters with so many strokes that a thick pen would close their gaps, with their pens.
CROWDED = {"W": 2, "@": 2}
NUMBERS = "0123456789:;<=>?@"


def _cut(character, cut):
    """The cut of a character; all have the same height, however thick the pen."""
    pen = CROWDED.get(character, cut.pen)
    bar = min(pen, cut.level)
    return cut._replace(pen=pen, bar=bar, down=(cut.height - bar) / letters.CAPITAL)


def sheet_of(characters, names, cut, top, first, width, height):
    """One row of cells, each with a character in its outline."""
    picture = Picture(width, height, "halo")
    ink = letters.Ink(picture)
    for i, character in enumerate(characters):
        narrow = letters.squeezed([character], _cut(character, cut), WIDEST)
        left = i * CELL + first + (WIDEST - letters.width([character], narrow)) // 2
        letters.draw(ink.cr, [character], left, top, narrow)
    ink.outline(1, "halo")
    picture.mask.set_operator(cairo.OPERATOR_CLEAR)
    for i in range(len(characters)):
        picture.mask.rectangle(i * CELL + ADVANCE, 0, CELL - ADVANCE, height)
    picture.mask.fill()
    ink.pour(top, top + cut.height, names)
    return picture


def capitals(width, height):
    """A to Z."""
    text = craft().lettering
    return sheet_of(CAPITALS, text.capitals, text.cut, text.top, LETTERS_LEFT, width, height)


def numbers(width, height):
    """The digits and the signs after them."""
    text = craft().lettering
    return sheet_of(NUMBERS, text.numbers, text.number_cut, 0, NUMBERS_LEFT, width, height)
