"""Puts the arranged sections together as one module."""

from . import arrange, xm
from .texts import Mistake

PAN_MIDDLE, PAN_WIDTH = 128, 1.27
SLIDE_SPEED = 3
EMPTY = (0, 0, 0, 0, 0)


def _cell(event, numbers):
    """An event as the five numbers of a cell: note, instrument, volume, effect, its value."""
    if event is None:
        return EMPTY
    if event.pitch is None:
        return (xm.KEY_OFF, 0, 0, 0, 0)
    note = event.pitch - xm.LOWEST
    if event.slide:
        return (note, 0, xm.SLIDE + SLIDE_SPEED, 0, 0)
    pan = round(PAN_MIDDLE + PAN_WIDTH * event.pan)
    return (note, numbers[event.player], xm.VOLUME + event.volume, xm.PAN, pan)


def _command(rows, row, effect, value):
    """Writes an effect into a row where a channel has none yet."""
    for place, cell in enumerate(rows[row]):
        if cell[3] == 0:
            rows[row][place] = cell[:3] + (effect, value)
            return
    raise Mistake(f"no channel is free for effect {effect:X}")


def _rows(line, numbers):
    channels = list(line.channels.values())
    return [[_cell(channel.get(row), numbers) for channel in channels]
            for row in range(line.rows)]


def _cut(line, rows):
    """The rows of a section, pattern by pattern."""
    start = 0
    for pattern in line.section.patterns:
        length = line.bar * len(pattern.chords)
        yield tuple(map(tuple, rows[start:start + length]))
        start += length


def build(title, lines, instruments):
    """The module of arranged sections that follow each other."""
    numbers = {made.name: place for place, made in enumerate(instruments, 1)}
    orders, patterns = [], {}
    for line in lines:
        section = line.section
        if section.first != len(orders):
            raise Mistake(f"{section.name} begins at {len(orders)}, not at {section.first}")
        rows = _rows(line, numbers)
        _command(rows, 0, xm.SPEED, section.speed)
        _command(rows, 0, xm.SPEED, section.tempo)
        _command(rows, -1, xm.JUMP, section.first)
        for pattern in _cut(line, rows):
            orders.append(patterns.setdefault(pattern, len(patterns)))
    first = lines[0].section
    return xm.encode(title, orders, list(patterns), instruments, first.speed, first.tempo)


def arranged(score, texts):
    """The timelines of all sections."""
    return [arrange.arrange(section, score.desk, score.drums, texts)
            for section in score.sections]
