"""Finds what would sound wrong, or be too large, before anything is written."""

from .texts import Mistake

LARGEST = 400 * 1024
LONG = 4                        # a note of so many rows counts as part of the harmony
RUBBING = 3                     # two voices may be a half tone apart for fewer rows than this


def size(made):
    """Stops if the module is too large."""
    if len(made) >= LARGEST:
        raise Mistake(f"the module has {len(made)} bytes")


def _place(line, row):
    """The pattern, bar and row of a row of the section, in words."""
    for pattern in line.section.patterns:
        rows = line.bar * len(pattern.chords)
        if row < rows:
            return f"{line.section.name}, {pattern.name}, bar {row // line.bar + 1}, row " \
                   f"{row % line.bar}"
        row -= rows
    raise Mistake("a note behind the end")


def _notes(line, channel):
    """The notes of a channel: first row, length and pitch."""
    events = sorted(line.channels[channel].items())
    ends = [row for row, _ in events[1:]] + [line.rows]
    return [(row, end - row, event.pitch) for (row, event), end in zip(events, ends)
            if event.pitch is not None]


def _sounding(line, channel):
    """The pitch that sounds in a channel at each row, None for silence."""
    rows = [None] * line.rows
    for first, length, note in _notes(line, channel):
        rows[first:first + length] = [note] * length
    return rows


def _against_chord(line, channel):
    """Stops at a long note that lies a half tone above a tone of the chord it is heard with."""
    for row, length, note in _notes(line, channel):
        chord = line.chord(row)
        if length >= LONG and note % 12 not in chord.tones and (note - 1) % 12 in chord.tones:
            raise Mistake(f"{_place(line, row)}: {channel} grates against {chord.name}")


def _against_voice(line, first, second):
    """Stops where two voices rub against each other for long."""
    run = 0
    for row, (one, other) in enumerate(zip(_sounding(line, first), _sounding(line, second))):
        # Only a half tone above the lower voice rubs; one below its octave is colour.
        rubs = one is not None and other is not None and abs(one - other) % 12 == 1
        run = run + 1 if rubs else 0
        if run >= RUBBING:
            raise Mistake(f"{_place(line, row)}: {first} rubs against {second}")


def harmony(line):
    """Stops if the voices of a section do not go together."""
    for channel in ("lead", "counter"):
        _against_chord(line, channel)
    for pair in (("lead", "counter"), ("lead", "bass"), ("counter", "bass")):
        _against_voice(line, *pair)
