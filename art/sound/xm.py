"""Writes a tune as an XM module."""

import struct
from array import array

VERSION, HEADER = 0x0104, 276
INSTRUMENT, SAMPLE = 263, 40
LINEAR, LOOPED, WIDE = 1, 1, 16
ENVELOPE_ON, ENVELOPE_WAITS = 1, 2
POINTS = 12
FADE_OUT = 400
LOWEST = 11                     # the note that lies one below the first the format can name
KEY_OFF = 97
VOLUME, SLIDE = 0x10, 0xF0      # what the volume column means
PAN, JUMP, SPEED = 0x08, 0x0B, 0x0F


def _text(text, length):
    return text.encode("ascii")[:length].ljust(length, b" ")


def _cell(cell):
    """One cell, packed: a byte that says which of the five parts follow."""
    mask, parts = 0x80, []
    for bit, value in enumerate(cell):
        if value:
            mask |= 1 << bit
            parts.append(value)
        elif bit == 4 and cell[3]:
            mask |= 1 << bit
            parts.append(0)
    return bytes([mask] + parts)


def _pattern(rows):
    packed = b"".join(_cell(cell) for row in rows for cell in row)
    return struct.pack("<IBHH", 9, 0, len(rows), len(packed)) + packed


def _deltas(samples, bits):
    """The samples as differences, each from the one before."""
    code = "H" if bits == 16 else "B"
    mask, before, out = (1 << bits) - 1, 0, array(code)
    for value in samples:
        out.append((value - before) & mask)
        before = value
    return out.tobytes()


def _envelope(points):
    """Twelve points, of which the first are used."""
    filled = list(points) + [(0, 0)] * (POINTS - len(points))
    return b"".join(struct.pack("<HH", *point) for point in filled)


def _instrument(made):
    """The head of an instrument, the head of its one sample and the sample."""
    count, kind = len(made.envelope), 0
    if count:
        kind = ENVELOPE_ON | (ENVELOPE_WAITS if made.waits is not None else 0)
    sweep, depth, speed = made.vibrato
    head = struct.pack("<I22sBHI", INSTRUMENT, _text(made.name, 22), 0, 1, SAMPLE)
    head += bytes(96) + _envelope(made.envelope) + _envelope([])
    head += bytes([count, 0, made.waits or 0, 0, 0, 0, 0, 0, kind, 0, 0, sweep, depth, speed])
    head += struct.pack("<H22x", FADE_OUT)
    width = made.bits // 8
    key, fine = divmod(made.tuning + 64, 128)
    flags = (LOOPED if made.loop else 0) | (WIDE if made.bits == 16 else 0)
    size, loop = width * len(made.samples), width * made.loop
    head += struct.pack("<IIIBbBBbB22s", size, size - loop if loop else 0, loop, 64, fine - 64,
                        flags, 128, key, 0, _text(made.name, 22))
    return head + _deltas(made.samples, made.bits)


def encode(title, orders, patterns, instruments, speed, tempo):
    """The bytes of a module. A pattern is a list of rows of cells of five numbers each."""
    channels = len(patterns[0][0])
    head = _text("Extended Module: ", 17) + _text(title, 20) + b"\x1a" + _text("Korvane", 20)
    head += struct.pack("<HIHHHHHHHH", VERSION, HEADER, len(orders), 0, channels, len(patterns),
                        len(instruments), LINEAR, speed, tempo)
    head += bytes(orders).ljust(256, b"\0")
    return head + b"".join(map(_pattern, patterns)) + b"".join(map(_instrument, instruments))
