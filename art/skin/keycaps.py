"""The key caps of the key configuration, and the legends that are laid upon them."""

from . import letters, plates, sources
from .current import craft
from .picture import Picture

CELL = 29
# The face of a cap lies in its body as on a real key, whose front side is seen below the face.
FACE_LEFT, FACE_TOP, FACE_BOTTOM = 6, 4, 10
# A legend is drawn 10 pixels down in a cap; this is the middle of the face from there.
MIDDLE = 20
SPACING = 4
# Marks that fill only a small part of the height of a letter.
SMALL_MARKS = ".,;'`-"
# A nought that nobody takes for an O.
GLYPHS = {"0": ["0-key"]}
LEGEND_NAMES = ("pale-top", "pale-bottom")
SIGN, SMALL_SIGN = 24, 18


def _legends():
    sheets = {}
    for line in sources.lines(sources.ART / "legends.txt"):
        if line.startswith(" "):
            cells.append(line.split())
        else:
            cells = sheets[line] = []
    return sheets


LEGENDS = _legends()


def _cut(word, alone):
    if len(word) > 1:
        return letters.squeezed(word, craft().key_cuts["word"], CELL - 2)
    if word in SMALL_MARKS:
        return craft().key_cuts["mark"]
    return craft().key_cuts["single" if alone else "paired"]


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
    cut, glyphs = _cut(word, alone), GLYPHS.get(word, word)
    letters.draw(ink.cr, glyphs, x + (CELL - letters.width(glyphs, cut)) // 2, y, cut)


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
        if len(LEGENDS[sheet]) * CELL != width:
            raise ValueError(f"legends.txt has {len(LEGENDS[sheet])} keys, not {width // CELL}")
        picture = Picture(width, height, "legend-edge")
        ink = letters.Ink(picture)
        for i, words in enumerate(LEGENDS[sheet]):
            _legend(ink, words, i * CELL)
        ink.outline(1, "legend-edge")
        ink.pour(0, height, LEGEND_NAMES)
        return picture
    return paint


def cap(picture, text, x, y, width, height):
    """A lit key cap with its name, in another picture."""
    look = plates.ON
    picture.cr.save()
    picture.mask.save()
    picture.cr.translate(0, y)
    picture.mask.translate(0, y)
    craft().cap(picture, x, width, height, look)
    picture.mask.restore()
    picture.cr.restore()
    cut = letters.squeezed(text, craft().overlay_cuts["huge"], width - 2 * FACE_LEFT - 6)
    face = height - FACE_TOP - FACE_BOTTOM
    ink = letters.Ink(picture)
    letters.draw(ink.cr, text, x + (width - letters.width(text, cut)) // 2,
                 y + FACE_TOP + round((face - cut.height) / 2), cut)
    ink.must_read((look.ink,))
    ink.pour(y, y + height, (look.ink, look.ink))


def slot(width, height):
    """The button of a key: normal without its legend, and lit while it waits for a key."""
    frame = width // 2
    picture = Picture(width, height)
    craft().cap(picture, 0, frame, height, plates.REST)
    craft().cap(picture, frame, frame, height, plates.ON)
    _require_readable_legends(picture, frame)
    cut = craft().key_cuts["word"]
    ink = letters.Ink(picture)
    y = FACE_TOP + 10
    for word in ("PRESS", "A KEY"):
        x = frame + (frame - letters.width(word, cut)) // 2
        letters.draw(ink.cr, word, x, y, cut)
        y += round(cut.height) + SPACING + 2
    ink.must_read((plates.ON.ink,))
    ink.pour(0, height, (plates.ON.ink, plates.ON.ink))
    return picture


def _require_readable_legends(picture, frame):
    """The legends are pictures of their own that the game draws on the cap."""
    ink = letters.Ink(picture)
    ink.cr.rectangle((frame - CELL) / 2, FACE_TOP + 6, CELL, 30)
    ink.cr.fill()
    ink.must_read(LEGEND_NAMES)
