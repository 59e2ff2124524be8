"""The key caps of the key configuration, and the legends that are laid upon them."""

from . import letters, plates, sources
from .picture import Picture

CELL = 29
# The face of a cap lies in its body as on a real key: the front side is seen, below it.
FACE_LEFT, FACE_TOP, FACE_BOTTOM = 6, 4, 10
# A legend is drawn 10 pixels down in a cap; this is the middle of the face from there.
MIDDLE = 20
SPACING = 4
SINGLE = letters.Type(2, 2, 4, 0)
# Marks that fill but a small part of the height of a letter.
SMALL_MARKS = ".,;'`-"
MARK = letters.Type(3, 2.4, 5, 0)
PAIRED = letters.Type(1.5, 1.2, 4, 0)
WORD = letters.Type(0.75, 1, 2, 1)
LEGEND_NAMES = ("letter-top", "letter-bottom")
SIGN, SMALL_SIGN = 24, 18


def _legends():
    sheets = {}
    for line in sources.lines("legends.txt"):
        if line.startswith(" "):
            cells.append(line.split())
        else:
            cells = sheets[line] = []
    return sheets


LEGENDS = _legends()


def _cut(word, alone):
    if len(word) > 1:
        return letters.squeezed(word, WORD, CELL - 2)
    if word in SMALL_MARKS:
        return MARK
    return SINGLE if alone else PAIRED


def _height(word, alone):
    if word.startswith(":"):
        return SIGN if alone else SMALL_SIGN
    return _cut(word, alone).height


def _line(ink, word, x, y, alone):
    """One line of a legend, centred in the cell that begins at x."""
    if word.startswith(":"):
        size = _height(word, alone)
        letters.draw_sign(ink.cr, word[1:], x + (CELL - size) / 2, y, size, 3)
        return
    cut = _cut(word, alone)
    letters.draw(ink.cr, word, x + (CELL - letters.width(word, cut)) // 2, y, cut)


def _legend(ink, words, x):
    alone = len(words) == 1
    heights = [_height(word, alone) for word in words]
    y = MIDDLE - (sum(heights) + SPACING * (len(words) - 1)) // 2
    for word, height in zip(words, heights):
        _line(ink, word, x, y, alone)
        y += height + SPACING


def legends(sheet):
    """A painter of the legends of one sheet."""
    def paint(width, height):
        picture = Picture(width, height, "plate-dark")
        ink = letters.Ink(picture)
        for i, words in enumerate(LEGENDS[sheet]):
            _legend(ink, words, i * CELL)
        ink.outline(1, "plate-dark")
        ink.pour(0, height, LEGEND_NAMES)
        return picture
    return paint


def _cap(picture, x, width, height, look):
    """One key cap: its body, and on it the face that carries the legend."""
    body = look._replace(top=look.bottom, bottom=look.dark, sunken=False, glow="")
    plates.plate(picture, x, 0, width, height, body)
    plates.face(picture.cr, x + FACE_LEFT, FACE_TOP, width - 2 * FACE_LEFT,
                height - FACE_TOP - FACE_BOTTOM, look, plates.RADIUS)


def slot(width, height):
    """The button of a key: at rest without its legend, and lit while it waits for a key."""
    frame = width // 2
    picture = Picture(width, height)
    plates.require_readable(plates.REST, LEGEND_NAMES)
    _cap(picture, 0, frame, height, plates.REST)
    _cap(picture, frame, frame, height, plates.ON)
    ink = letters.Ink(picture)
    y = FACE_TOP + 10
    for word in ("PRESS", "A KEY"):
        x = frame + (frame - letters.width(word, WORD)) // 2
        letters.draw(ink.cr, word, x, y, WORD)
        y += round(WORD.height) + SPACING + 2
    ink.pour(0, height, (plates.ON.ink, plates.ON.ink))
    return picture
