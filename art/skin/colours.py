"""Calculations with colours. A colour is a triple of red, green, blue from 0 to 1."""

from functools import lru_cache

from .current import colour  # noqa: F401  (painters take it from here)

WHITE = (1.0, 1.0, 1.0)
BLACK = (0.0, 0.0, 0.0)


def mix(first, second, part):
    """A colour between two others; part 0 is the first, 1 the second."""
    return tuple(a + (b - a) * part for a, b in zip(first, second))


def linear(channel):
    """The light that a channel stands for."""
    return channel / 12.92 if channel <= 0.04045 else ((channel + 0.055) / 1.055) ** 2.4


@lru_cache(maxsize=None)
def luminance(value):
    """Relative luminance, as the Web Content Accessibility Guidelines define it."""
    return sum(weight * linear(c) for weight, c in zip((0.2126, 0.7152, 0.0722), value))


def contrast(first, second):
    """Contrast of two colours, from 1 (none) to 21 (black on white)."""
    low, high = sorted((luminance(first), luminance(second)))
    return (high + 0.05) / (low + 0.05)
