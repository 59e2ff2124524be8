"""How pictures look to people who see fewer colours, and how far colours are apart for them."""

from functools import lru_cache

from .colours import linear

# What is left of red, green and blue light, in rows for red, green and blue: the full loss of one
# kind of cones, after Machado, Oliveira and Fernandes (2009), and of all colour.
SIGHTS = {
    "full": ((1, 0, 0), (0, 1, 0), (0, 0, 1)),
    "grey": ((0.2126, 0.7152, 0.0722),) * 3,
    "protanopia": ((0.152286, 1.052583, -0.204868), (0.114503, 0.786281, 0.099216),
                   (-0.003882, -0.048116, 1.051998)),
    "deuteranopia": ((0.367322, 0.860646, -0.227968), (0.280085, 0.672501, 0.047413),
                     (-0.011820, 0.042940, 0.968881)),
    "tritanopia": ((1.255528, -0.076749, -0.178779), (-0.078411, 0.930809, 0.147602),
                   (0.004733, 0.691367, 0.303900)),
}
# From linear light to the tristimulus values, each relative to white.
_TO_XYZ = ((0.43395, 0.37622, 0.18984), (0.21264, 0.71517, 0.07219), (0.01776, 0.10947, 0.87277))


def _product(matrix, vector):
    return tuple(sum(a * b for a, b in zip(row, vector)) for row in matrix)


def _light(pixel, sight):
    seen = _product(SIGHTS[sight], [linear(channel / 255) for channel in pixel])
    return tuple(min(max(value, 0.0), 1.0) for value in seen)


@lru_cache(maxsize=None)
def seen(pixel, sight):
    """A pixel, from 0 to 255 a channel, as it looks with a kind of sight."""
    return tuple(
        round(255 * (12.92 * v if v <= 0.0031308 else 1.055 * v ** (1 / 2.4) - 0.055))
        for v in _light(pixel, sight))


@lru_cache(maxsize=None)
def lab(pixel, sight):
    """A pixel in the room of colours where distances are as large as they look."""
    x, y, z = (v ** (1 / 3) if v > 0.008856 else 7.787 * v + 16 / 116
               for v in _product(_TO_XYZ, _light(pixel, sight)))
    return 116 * y - 16, 500 * (x - y), 200 * (y - z)
