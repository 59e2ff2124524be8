"""Reads the score: sections, their patterns, and the phrases and figures that these name."""

import re
from typing import Dict, List, NamedTuple, Optional

from . import pitch
from .texts import Mistake, pairs, settings, stanzas

LOUD, SOFT = 1.25, 0.62


class Tone(NamedTuple):
    """One note of a phrase. A pitch of None is a rest, slide means that it is slid to."""

    pitch: Optional[int]
    rows: int
    weight: float
    slide: bool


class Part(NamedTuple):
    """What one voice does in a pattern: who plays, how loud from start to end, and the rest."""

    voice: str
    player: str
    levels: tuple
    words: List[str]
    options: Dict[str, float]


class Pattern(NamedTuple):
    """A pattern: its name, two chords for each bar, and the parts."""

    name: str
    chords: List[tuple]
    parts: List[Part]


class Section(NamedTuple):
    """A piece of the tune that begins at an order and repeats itself; its level is in percent."""

    name: str
    first: int
    speed: int
    tempo: int
    bar: int
    level: int
    patterns: List[Pattern]


class Strip(NamedTuple):
    """Where a channel lies, from left (-100) to right (100), and its level in percent."""

    pan: int
    level: int


class Tune(NamedTuple):
    """The file of the tune, and the title that players show."""

    file: str
    title: str


class Score(NamedTuple):
    """The whole score."""

    tune: Tune
    desk: Dict[str, Strip]
    drums: Dict[str, tuple]
    sections: List[Section]


def _tone(word):
    """The note that a word such as "A5:3", "-:2", "/D6:2!" or "C5'" means."""
    found = re.fullmatch(r"(/?)(-|[A-G][#b]?\d)(?::(\d+))?([!']?)", word)
    if not found:
        raise Mistake(f"{word} is no note of a phrase")
    slide, name, rows, accent = found.groups()
    weight = {"!": LOUD, "'": SOFT, "": 1.0}[accent]
    sound = None if name == "-" else pitch.note(name)
    return Tone(sound, int(rows or 1), weight, bool(slide))


def _bars(lines):
    """The bars of a phrase; lines end where bars end."""
    return [[_tone(word) for word in bar.split()] for bar in " | ".join(lines).split("|")]


def phrases(folder):
    """All phrases by name."""
    return {words[0]: _bars(body) for words, body in stanzas(folder, "phrases.txt")}


def grooves(folder):
    """The drum bars: by name, what stands in each channel."""
    found = {}
    for words, body in stanzas(folder, "grooves.txt"):
        if words[0] == "groove":
            found[words[1]] = dict(line.split() for line in body)
    return found


def figures(folder):
    """The figures of bass, chords and arpeggios by name."""
    found = {}
    for words, body in stanzas(folder, "grooves.txt"):
        if words[0] == "figures":
            found.update(line.split() for line in body)
    return found


def _chords(words):
    """Two chords for each bar; a bar with one chord has it twice."""
    bars = [[pitch.chord(name) for name in bar.split()] for bar in " ".join(words).split("|")]
    return [(bar[0], bar[-1]) for bar in bars]


def _part(words):
    """A line of a pattern: voice, player, level or levels, words and options."""
    voice, player, level, *rest = words
    start, _, end = level.partition("-")
    plain = [word for word in rest if "=" not in word]
    options = settings(word for word in rest if "=" in word)
    return Part(voice, player, (int(start), int(end or start)), plain, options)


def _pattern(name, body):
    lines = [line.split() for line in body]
    chords = [_chords(words[1:]) for words in lines if words[0] == "harmony"]
    if len(chords) != 1:
        raise Mistake(f"pattern {name} needs one line of harmony")
    return Pattern(name, chords[0], [_part(words) for words in lines if words[0] != "harmony"])


def load(folder):
    """The whole score."""
    desk, drums, sections, tune = {}, {}, [], None
    for (kind, *words), body in stanzas(folder, "score.txt"):
        if kind == "tune":
            tune = Tune(**settings(words))
        elif kind == "channels":
            desk = {name: Strip(int(pan), int(level))
                    for name, pan, level in map(str.split, body)}
        elif kind == "drums":
            drums = {letter: (player, int(level), pitch.note(name))
                     for letter, player, level, name in map(str.split, body)}
        elif kind == "section":
            head = pairs(words[1:])
            sections.append(Section(words[0], head["first"], head["speed"], head["tempo"],
                                    head["bar"], head["level"], []))
        elif kind == "pattern":
            sections[-1].patterns.append(_pattern(" ".join(words), body))
        else:
            raise Mistake(f"{kind} means nothing in a score")
    if tune is None:
        raise Mistake(f"{folder}: the score does not say what the tune is called")
    return Score(tune, desk, drums, sections)
