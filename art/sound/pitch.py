"""Notes and chords. A note is a number of half tones, 60 is the C in the middle of a piano."""

import itertools
import re
from typing import NamedTuple, Tuple

from .texts import Mistake

STEPS = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}
SIGNS = {"": 0, "#": 1, "b": -1}
A4 = 69

# Half tones above the root, first the tones that the three chord voices sing. The bass has the
# root, so the voices leave it out where a chord has more tones than three.
QUALITIES = {
    "": (0, 4, 7), "m": (0, 3, 7), "dim": (0, 3, 6), "sus4": (0, 5, 7), "sus2": (0, 2, 7),
    "7": (4, 7, 10, 0), "m7": (3, 7, 10, 0), "maj7": (4, 7, 11, 0), "m7-5": (3, 6, 10, 0),
    "add9": (2, 4, 7, 0), "6": (4, 7, 9, 0), "m9": (3, 10, 14, 7, 0),
}
VOICES = 3


class Chord(NamedTuple):
    """A chord: what the voices sing, all its tones, and the tone of the bass, as 0 to 11."""

    name: str
    sung: Tuple[int, ...]
    tones: frozenset
    bass: int


def tone(letter, sign):
    """The tone from 0 to 11 that a letter with its sign means."""
    return (STEPS[letter] + SIGNS[sign]) % 12


def note(name):
    """The note that a name such as "C#5" means."""
    found = re.fullmatch(r"([A-G])([#b]?)(\d)", name)
    if not found:
        raise Mistake(f"{name} is no note")
    letter, sign, octave = found.groups()
    return 12 * (int(octave) + 1) + STEPS[letter] + SIGNS[sign]


def frequency(pitch):
    """Oscillations a second of a note, which may lie between two half tones."""
    return 440.0 * 2 ** ((pitch - A4) / 12)


def chord(name):
    """The chord that a symbol such as "Gm7" or "F/A" means."""
    found = re.fullmatch(r"([A-G])([#b]?)([a-z0-9-]*)(?:/([A-G])([#b]?))?", name)
    if not found or found.group(3) not in QUALITIES:
        raise Mistake(f"{name} is no chord")
    letter, sign, quality, low, low_sign = found.groups()
    root = tone(letter, sign)
    bass = tone(low, low_sign) if low else root
    parts = [(root + step) % 12 for step in QUALITIES[quality]]
    return Chord(name, tuple(parts[:VOICES]), frozenset(parts + [bass]), bass)


def above(low, wanted):
    """The lowest note from low upwards whose tone is the wanted one."""
    return low + (wanted - low) % 12


def stack(low, symbol, place):
    """The chord tone at a place, counted from 1, when all are piled up from the note low."""
    tones = sorted(above(low, part) for part in set(symbol.tones) | {symbol.bass})
    octaves, index = divmod(place - 1, len(tones))
    return tones[index] + 12 * octaves


def voicing(symbol, before, low, high):
    """The chord for three voices between two notes, each moving as little as it can.

    Without a chord before, the voices gather in the middle.
    """
    middle = (low + high) / 2
    before = before or (middle - 4, middle, middle + 4)
    places = [[n for n in range(low, high + 1) if n % 12 == part] for part in symbol.sung]
    ways = (tuple(sorted(way)) for way in itertools.product(*places))

    def cost(way):
        move = sum(abs(a - b) for a, b in zip(way, before))
        wide = max(0, way[-1] - way[0] - 12)
        away = abs(sum(way) / VOICES - middle) / 2
        return (move + 3 * wide + away, way)

    return min(ways, key=cost)
