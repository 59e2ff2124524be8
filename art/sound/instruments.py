"""The instruments: their recordings and how they are played."""

import math
from array import array
from typing import List, NamedTuple, Optional, Tuple

from . import waves
from .pitch import frequency, note
from .texts import Mistake, settings, stanzas

# A player sounds one recording at 0.22 of full scale at most; the sum is checked when it is played.
LOUDEST_16, LOUDEST_8 = 32000, 126
# The rate at which a player sounds the C in the middle of the keyboard, before any tuning.
MIDDLE_RATE, MIDDLE = 8363, 60


class Instrument(NamedTuple):
    """An instrument. loop is the length of the end that repeats, in samples; 0 for none."""

    name: str
    samples: array
    bits: int
    loop: int
    tuning: int
    envelope: List[Tuple[int, int]]
    waits: Optional[int]
    vibrato: Tuple[int, int, int]


def layers(lines):
    """The lines of a stanza that are layers of sound."""
    found = []
    for line in lines:
        kind, *words = line.split()
        if kind in waves.KINDS:
            found.append((kind, settings(words)))
    return found


def _envelope(words):
    """The points tick:volume, and which of them has the star."""
    points, waits = [], None
    for place, word in enumerate(words):
        tick, volume = word.rstrip("*").split(":")
        points.append((int(tick), int(volume)))
        if word.endswith("*"):
            waits = place
    return points, waits


def _tuning(rate, pitch):
    """How far a recording lies from the middle rate, in 128ths of a half tone.

    Players know 16 steps in a half tone and drop what is finer, so the nearest step is chosen here.
    """
    return 8 * round(16 * (12 * math.log2(rate / MIDDLE_RATE) + MIDDLE - pitch))


def _recording(head, body):
    """The samples of an instrument, the length of its loop and its rate."""
    pitch = note(head["note"])
    if "loops" in head:
        points, loop = int(head["points"]), int(head["points"] * head["loops"])
        rate = frequency(pitch) * points
        length = loop + int(head["wait"]) * points
    else:
        rate, loop = head["rate"], 0
        length = int(head["seconds"] * rate)
    samples = waves.mix(layers(body), length, rate)
    waves.shaped(samples, head.get("drive", 0))
    waves.levelled(samples, loop, rate)
    if not loop:
        waves.fade(samples, 8, length // 8)
    return samples, loop, rate


def _instrument(words, body):
    """One instrument from its stanza."""
    name, head = words[0], settings(words[1:])
    samples, loop, rate = _recording(head, body)
    bits = int(head["bits"])
    if bits not in (8, 16):
        raise Mistake(f"{name}: {bits} bits")
    loud = waves.scaled(samples, LOUDEST_16 if bits == 16 else LOUDEST_8)
    envelope, waits, vibrato = [], None, (0, 0, 0)
    for line in body:
        kind, *rest = line.split()
        if kind == "envelope":
            envelope, waits = _envelope(rest)
        elif kind == "vibrato":
            vibrato = tuple(map(int, rest))
    return Instrument(name, loud, bits, loop, _tuning(rate, note(head["note"])), envelope, waits,
                      vibrato)


def load(folder):
    """All instruments in the order of their text."""
    return [_instrument(words, body) for words, body in stanzas(folder, "instruments.txt")]
