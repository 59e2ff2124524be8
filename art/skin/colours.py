"""The palette and sums with colours. A colour is a triple of red, green, blue from 0 to 1."""

from . import sources


def from_hex(text):
    """The colour that six hexadecimal digits spell."""
    return tuple(int(text[i:i + 2], 16) / 255 for i in (0, 2, 4))


def _load():
    words = (line.split() for line in sources.lines("palette.txt"))
    return {name: from_hex(value) for name, value, *_ in words}


PALETTE = _load()
WHITE = (1.0, 1.0, 1.0)


def colour(name):
    """A colour of the palette by its name."""
    return PALETTE[name]


def mix(first, second, part):
    """A colour between two others; part 0 is the first, 1 the second."""
    return tuple(a + (b - a) * part for a, b in zip(first, second))


def luminance(value):
    """Relative luminance, as the rules for readable screens define it."""
    linear = (c / 12.92 if c <= 0.03928 else ((c + 0.055) / 1.055) ** 2.4 for c in value)
    return sum(weight * c for weight, c in zip((0.2126, 0.7152, 0.0722), linear))


def contrast(first, second):
    """Contrast of two colours, from 1 (none) to 21 (black on white)."""
    low, high = sorted((luminance(first), luminance(second)))
    return (high + 0.05) / (low + 0.05)
