"""Bitmap files: with a palette where the colours allow it, which makes them a third as large."""

from PIL import Image, ImageChops

DOTS_PER_INCH = (72, 72)  # what the files say; the game does not look at it
PALETTE = 256
# Ordered dither: the order in which the pixels of a square step up to the next brightness.
_ORDER = (0, 32, 8, 40, 2, 34, 10, 42, 48, 16, 56, 24, 50, 18, 58, 26, 12, 44, 4, 36, 14, 46, 6, 38,
          60, 28, 52, 20, 62, 30, 54, 22, 3, 35, 11, 43, 1, 33, 9, 41, 51, 19, 59, 27, 49, 17, 57,
          25, 15, 47, 7, 39, 13, 45, 5, 37, 63, 31, 55, 23, 61, 29, 53, 21)
_SIDE = 8


def dithered(picture):
    """A picture whose channels have 32 steps, as screens of 16 bits show them, without rings."""
    noise = Image.new("L", picture.size)
    square = Image.new("L", (_SIDE, _SIDE))
    square.putdata([order // 8 for order in _ORDER])
    for x in range(0, picture.width, _SIDE):
        for y in range(0, picture.height, _SIDE):
            noise.paste(square, (x, y))
    steps = [step & 0xF8 | step >> 5 for step in range(256)]
    return Image.merge("RGB", [ImageChops.add(channel, noise).point(steps)
                               for channel in picture.split()])


def _indexed(picture):
    """The same picture with a palette, or as it is if it has too many colours."""
    found = picture.getcolors(PALETTE)
    if found is None:
        return picture
    colours = sorted(colour for _, colour in found)
    place = {colour: index for index, colour in enumerate(colours)}
    result = Image.new("P", picture.size)
    result.putpalette([channel for colour in colours for channel in colour])
    result.putdata([place[colour] for colour in picture.getdata()])
    return result


def reduced(picture, mask):
    """A picture with so few colours that it has a palette; as it was where the mask is 0."""
    few = picture.quantize(PALETTE - 1, Image.Quantize.MEDIANCUT, dither=Image.Dither.NONE)
    return Image.composite(few.convert("RGB"), picture, mask)


def save(path, picture):
    """Writes a bitmap file."""
    path.parent.mkdir(parents=True, exist_ok=True)
    picture.save(path, dpi=DOTS_PER_INCH)


def write(path, picture):
    """Writes a bitmap file, with a palette if it can."""
    save(path, _indexed(picture))
