"""Turns the score into what each channel plays, row by row."""

from typing import NamedTuple

from . import pitch, score
from .texts import Mistake

CHORD_CHANNELS = ("low", "mid", "high")
CHORD_LOW, CHORD_HIGH = pitch.note("A3"), pitch.note("F5")
BASS_LOW, ARP_LOW = pitch.note("A1"), pitch.note("A4")
FULL = 64
ECHO_ROWS, ECHO_LEVEL = 3, 0.36
ARP_SWING = 52
OFF_BEAT = 0.74


class Event(NamedTuple):
    """What happens in a channel at a row. A pitch of None ends the note."""

    pitch: int
    player: str
    volume: int
    pan: int
    slide: bool = False


class Timeline:
    """A section while it is being arranged: events by channel and row."""

    def __init__(self, section, desk, drums):
        self.section, self.desk, self.drums = section, desk, drums
        self.bar = section.bar
        self.chords = [pair for pattern in section.patterns for pair in pattern.chords]
        self.rows = self.bar * len(self.chords)
        self.channels = {name: {} for name in desk}

    def chord(self, row):
        """The chord at a row; rows behind the end are those of the next round."""
        bar, step = divmod(row % self.rows, self.bar)
        return self.chords[bar][step >= self.bar // 2]

    def put(self, channel, row, note, player, volume, pan=None, slide=False):
        """Adds an event."""
        strip = self.desk[channel]
        level = volume * strip.level / 100 * self.section.level / 100
        self.channels[channel][row] = Event(note, player, max(1, min(FULL, round(level))),
                                            strip.pan if pan is None else pan, slide)

    def off(self, channel, row):
        """Ends whatever sounds in a channel, unless something starts there anyway."""
        self.channels[channel].setdefault(row, Event(None, "", 0, 0))


class Stretch(NamedTuple):
    """A part and its place: the timeline, the first row and the number of rows."""

    line: Timeline
    start: int
    rows: int
    part: score.Part

    def level(self, row):
        """The level at a row, on the way from the first to the last."""
        first, last = self.part.levels
        return first + (last - first) * (row - self.start) / self.rows

    def steps(self, figures):
        """The rows of the pattern with the sign that the figures of the part have there."""
        bar = self.line.bar
        names = self.part.words
        for index in range(self.rows // bar):
            figure = figures[names[index % len(names)]]
            if len(figure) != bar:
                raise Mistake(f"figure {names[index % len(names)]} does not fill a bar")
            for step, sign in enumerate(figure):
                yield self.start + index * bar + step, sign


def melody(stretch, phrases):
    """A written phrase, moved up by up= half tones."""
    line, part = stretch.line, stretch.part
    bars = phrases[part.words[0]]
    if len(bars) * line.bar != stretch.rows:
        raise Mistake(f"phrase {part.words[0]} has {len(bars)} bars")
    row = stretch.start
    for index, bar in enumerate(bars):
        if sum(tone.rows for tone in bar) != line.bar:
            raise Mistake(f"phrase {part.words[0]}, bar {index + 1} is not full")
        for tone in bar:
            if tone.pitch is None:
                line.off(part.voice, row)
            else:
                line.put(part.voice, row, tone.pitch + int(part.options.get("up", 0)),
                         part.player, stretch.level(row) * tone.weight, slide=tone.slide)
            row += tone.rows


def bass(stretch, figures):
    """The bass: digits are chord tones (8 the octave), ^ and v lead to the next chord."""
    line, part = stretch.line, stretch.part
    for row, sign in stretch.steps(figures):
        low = pitch.above(BASS_LOW, line.chord(row).bass)
        if sign == "-":
            line.off("bass", row)
        elif sign != ".":
            note = _bass_note(sign, low, line, row)
            weight = 1 if row % 4 == 0 else 0.86
            line.put("bass", row, note, part.player, stretch.level(row) * weight)


def _bass_note(sign, low, line, row):
    if sign in "^v":
        ahead = row + line.bar // 2 - row % (line.bar // 2)
        goal = pitch.above(BASS_LOW, line.chord(ahead).bass)
        return goal - 1 if sign == "^" else goal + 2
    if sign == "8":
        return low + 12
    place = {"1": 1, "3": 2, "5": 3}[sign]
    symbol = line.chord(row)
    triad = symbol._replace(tones=frozenset(symbol.sung))
    return pitch.stack(low, triad, place)


def chords(stretch, figures):
    """The chords for three voices: x strikes, - ends."""
    line, part, way, sung = stretch.line, stretch.part, None, None
    lift = int(part.options.get("up", 0))
    for row, sign in stretch.steps(figures):
        symbol = line.chord(row)
        if symbol is not sung:
            way = pitch.voicing(symbol, way, CHORD_LOW, CHORD_HIGH)
            sung = symbol
        for channel, note in zip(CHORD_CHANNELS, way):
            if sign in "xX":
                weight = 1 if sign == "X" or row % 4 == 0 else 0.85
                line.put(channel, row, note + lift, part.player, stretch.level(row) * weight)
            elif sign == "-":
                line.off(channel, row)


def arpeggio(stretch, figures):
    """Broken chords: digits count the chord tones upwards; they sound left and right in turn."""
    line, part, side = stretch.line, stretch.part, 1
    low = ARP_LOW + int(part.options.get("up", 0))
    for row, sign in stretch.steps(figures):
        if sign == "-":
            line.off("arp", row)
        elif sign != ".":
            side = -side
            level = stretch.level(row) * (1 if row % 4 == 0 else OFF_BEAT)
            note = pitch.stack(low, line.chord(row), int(sign))
            line.put("arp", row, note, part.player, level, side * ARP_SWING)


def drums(stretch, grooves):
    """The drums, a bar each; a star behind the name of a bar puts a crash at its start."""
    line, part = stretch.line, stretch.part
    names = part.words
    for index in range(stretch.rows // line.bar):
        name = names[index % len(names)]
        first = stretch.start + index * line.bar
        if name.endswith("*"):
            _hit(stretch, "extra", first, "*")
        for channel, letters in grooves[name.rstrip("*")].items():
            if len(letters) != line.bar:
                raise Mistake(f"groove {name} does not fill a bar")
            for step, letter in enumerate(letters):
                if letter != ".":
                    _hit(stretch, channel, first + step, letter)


def _hit(stretch, channel, row, letter):
    player, level, note = stretch.line.drums[letter]
    stretch.line.put(channel, row, note, player, level * stretch.level(row) / 100)


def echo(line, start, rows, delay):
    """Adds the echo: what the lead plays between two rows, later and softer."""
    lead, answer = line.channels["lead"], line.channels["echo"]
    for row in sorted(lead):
        if start <= row < start + rows and row + delay < line.rows:
            event, strip = lead[row], line.desk["echo"]
            volume = max(1, round(event.volume * ECHO_LEVEL * strip.level / 100))
            answer[row + delay] = event._replace(volume=volume, pan=strip.pan)


def _part(stretch, texts):
    phrases, grooves, figures = texts
    voice = stretch.part.voice
    if voice in ("lead", "counter", "extra") or stretch.part.words[0] in phrases:
        melody(stretch, phrases)
    elif voice == "drums":
        drums(stretch, grooves)
    elif voice in ("bass", "chords", "arp"):
        {"bass": bass, "chords": chords, "arp": arpeggio}[voice](stretch, figures)
    else:
        raise Mistake(f"nobody plays {voice}")


def _silence(line, pattern, start):
    """Ends notes at the start of a pattern that no part there goes on with."""
    playing = {part.voice for part in pattern.parts}
    if "chords" in playing:
        playing |= set(CHORD_CHANNELS)
    for channel in ("lead", "counter", "bass", "arp", *CHORD_CHANNELS):
        if channel not in playing or start == 0:
            line.off(channel, start)
    if start == 0:
        line.off("echo", start)
    elif "lead" not in playing:
        line.off("echo", start + ECHO_ROWS)


def arrange(section, desk, drum_map, texts):
    """The timeline of a section."""
    line, start = Timeline(section, desk, drum_map), 0
    for pattern in section.patterns:
        rows = line.bar * len(pattern.chords)
        for part in pattern.parts:
            stretch = Stretch(line, start, rows, part)
            _part(stretch, texts)
            if part.voice == "lead":
                echo(line, start, rows, int(part.options.get("echo", ECHO_ROWS)))
        _silence(line, pattern, start)
        start += rows
    return line
