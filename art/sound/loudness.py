"""The loudness of a sound: its power after a filter with the sensitivity of the ear."""

import math

from . import waves

FRAME = 0.01
FLOOR = 0.1                     # frames this far below the loudest peak are silence


def _shelf(rate):
    """The filter that raises high tones by four dB, which is the effect of the head."""
    turn, lift = math.tan(math.pi * 1681.97 / rate), 10 ** (4.0 / 20)
    wide, middle = turn / 0.7072, lift ** 0.5
    whole = 1 + wide + turn * turn
    return ((lift + middle * wide + turn * turn) / whole, 2 * (turn * turn - lift) / whole,
            (lift - middle * wide + turn * turn) / whole, 2 * (turn * turn - 1) / whole,
            (1 - wide + turn * turn) / whole)


def _rumble(rate):
    """The filter that leaves out what is too low to be heard well."""
    turn = math.tan(math.pi * 38.14 / rate)
    wide = turn / 0.5
    whole = 1 + wide + turn * turn
    return (1.0, -2.0, 1.0, 2 * (turn * turn - 1) / whole, (1 - wide + turn * turn) / whole)


def heard(samples, rate):
    """The loudness in dB of the part that sounds, full scale being 1."""
    weighed = waves.filtered(waves.filtered(samples, _shelf(rate)), _rumble(rate))
    size, peak = int(FRAME * rate), max(map(abs, samples))
    sounding = []
    for start in range(0, len(samples), size):
        if max(map(abs, samples[start:start + size])) >= FLOOR * peak:
            sounding.extend(weighed[start:start + size])
    return 10 * math.log10(sum(x * x for x in sounding) / len(sounding))
