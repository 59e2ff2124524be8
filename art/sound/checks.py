"""Finds what would sound wrong, or be too large, before anything is written.

Notes are looked at as they are written; tunes are played, and they and the effects measured.
"""

import itertools

import numpy

from . import measures, player
from .texts import Mistake

LARGEST = 400 * 1024
LONG = 4                        # a note of so many rows counts as part of the harmony
RUBBING = 3                     # two voices may be a half tone apart for fewer rows than this

RATE = measures.RATE
SOFTEST, LOUDEST = -18.0, -16.0     # of a section, in LUFS
HIGHEST = 10 ** (-1 / 20)           # true peak
KNEE = 0.75                         # where the game begins to bend what is louder
OVER_KNEE = 1e-5                    # the part of the time in play that may lie above it
AIR, AIR_FROM = (0.06, 0.10), 4000  # the part of a game's energy above so many Hz
DEEP, DEEP_TO = 0.30, 120           # at most so much of it lies below so many Hz
OFFSET = 0.002
FIRST = 0.1                         # seconds in which an effect has to be known
ALIKE_TONES, ALIKE_COLOUR = 0.6, 0.65
ROWS = ("Single.wav", "Double.wav", "Triple.wav", "Tetris.wav")
LANDED, SPEAKERS, ON_SPEAKERS = "Landed.wav", (300, 2000), 0.6
STANDS_OUT = 6                      # dB over the tune, in one third of an octave at least
EVERY = 0.37                        # seconds between two effects in play
LOW, OCTAVES, WINDOW = 100, 7, 16384


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


def _within(what, value, low, high):
    if not low <= value <= high:
        raise Mistake(f"{what}: {value:.4g} is not from {low:.4g} to {high:.4g}")


def bands(sound, parts):
    """The share of the power in each band of an octave / parts, from 100 Hz on."""
    power, hertz = measures.spectrum(sound, WINDOW)
    places = numpy.floor(parts * numpy.log2(numpy.maximum(hertz, 1) / LOW)).astype(int)
    return numpy.array([power[places == band].sum() for band in range(parts * OCTAVES)]) / power.sum()


def _start(effect):
    """The first moment of an effect, on both sides, at the length of a window."""
    sound = numpy.zeros((WINDOW, 2))
    part = effect[:int(FIRST * RATE)]
    # The middle of the window weighs most.
    sound[WINDOW // 2:WINDOW // 2 + len(part)] = part[:, None]
    return sound


def likeness(one, other, parts):
    """How alike two effects begin, 0 to 1, in bands of an octave / parts."""
    first, second = (numpy.sqrt(bands(_start(effect), parts)) for effect in (one, other))
    return first @ second / numpy.linalg.norm(first) / numpy.linalg.norm(second)


def effects(skin, found):
    """Stops if rows are not told apart at once or a landing is lost on small loudspeakers."""
    for one, other in itertools.combinations(ROWS, 2):
        for parts, most in ((12, ALIKE_TONES), (3, ALIKE_COLOUR)):
            _within(f"{skin}: {one} and {other} alike", likeness(found[one], found[other], parts),
                    0, most)
    landed = found[LANDED][:, None]
    _within(f"{skin}: {LANDED} on small loudspeakers", measures.share(landed, *SPEAKERS),
            ON_SPEAKERS, 1)
    for name, effect in found.items():
        _within(f"{skin}: offset of {name}", abs(effect.mean()), 0, OFFSET)


def _power(sound):
    return bands(sound, 3) * (sound ** 2).sum(axis=1).mean()


def _clear(skin, sound, found):
    """Stops if an effect has no place where it is heard over the tune."""
    tune = _power(sound)
    for name, effect in found.items():
        start = _power(_start(effect)) * WINDOW / min(len(effect), int(FIRST * RATE))
        _within(f"{skin}: {name} over the tune in dB", 10 * numpy.log10((start / tune).max()),
                STANDS_OUT, 99)


def _in_play(sound, found):
    """The part of the time that lies above the knee while effects sound over the tune."""
    played, names = sound.copy(), itertools.cycle(found)
    for place in numpy.arange(0, len(sound) - 3 * RATE, EVERY * RATE).astype(int):
        effect = found[next(names)]
        played[place:place + len(effect)] += effect[:, None]
    return (numpy.abs(played).max(axis=1) > KNEE).mean()


def heard(module, section):
    """A section as it sounds."""
    return numpy.array(player.section(module, section.first), float).reshape(-1, 2)


def tune(skin, module, sections, found):
    """Stops if a section is too soft, too loud or of a wrong colour, or covers the effects."""
    for section in sections:
        sound, name = heard(module, section), f"{skin}, {section.name}"
        _within(f"{name}: loudness", measures.loudness(sound), SOFTEST, LOUDEST)
        _within(f"{name}: true peak", measures.true_peak(sound), 0, HIGHEST)
        _within(f"{name}: peak", numpy.abs(sound).max(), 0, KNEE)
        _within(f"{name}: offset", numpy.abs(sound.mean(axis=0)).max(), 0, OFFSET)
        if section.name == "game":
            _within(f"{name}: air", measures.share(sound, AIR_FROM, RATE), *AIR)
            _within(f"{name}: depth", measures.share(sound, 0, DEEP_TO), 0, DEEP)
            _within(f"{name}: above the knee in play", _in_play(sound, found), 0, OVER_KNEE)
            _clear(skin, sound, found)


def samples(file):
    """The samples of an effect's file."""
    return numpy.frombuffer(file[44:], "<i2") / 32768
