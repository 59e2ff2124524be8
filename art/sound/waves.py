"""Layers of sound. Each function gives a list of samples that begins at zero."""

import math
import random
from array import array

from .pitch import frequency, note

RUMBLE = 25                     # Hz, below which nothing is heard
STARTS = 2048                   # points of a turn that are tried as the start of a wave


def _decays(layer, rate, speed=1.0):
    """The factor by which one sample after the other fades, and the part that stays."""
    decay = layer.get("decay", 0)
    factor = math.exp(-speed / (decay * rate)) if decay else 1.0
    return factor, layer.get("stay", 0.0)


def _partial(out, rate, pitch, level, factor, stay, phase=0.0):
    """Adds one oscillation that fades from its level to the part of it that stays."""
    turn = math.tau * pitch / rate
    moving, resting = level * (1 - stay), level * stay
    sin = math.sin
    for i in range(len(out)):
        out[i] += (moving + resting) * sin(turn * i + phase)
        moving *= factor


def _phases(levels):
    """Where in their turn the harmonics begin, so that the wave has no high peak and begins at zero.

    Each is the later in its turn the more power lies below it, which spreads the power over time.
    """
    whole = sum(level * level for level in levels.values())
    phases, bent, slope = {}, 0.0, 0.0
    for h, level in levels.items():
        phases[h] = bent
        slope += level * level / whole
        bent -= math.tau * slope

    def start(turn):
        return abs(sum(level * math.sin(phases[h] + h * turn) for h, level in levels.items()))

    shift = min((math.tau * step / STARTS for step in range(STARTS)), key=start)
    return {h: phase + h * shift for h, phase in phases.items()}


def harmonics(layer, length, rate):
    """A tone with a row of harmonics: count= of them, each weaker by slope=.

    With odd=1 every second one is left out, with tilt= the higher ones fade faster, with dull= less
    of them stays. beat= makes the tone run so many cycles more within span= cycles, for layers that
    drift against each other.
    """
    out = array("d", bytes(8 * length))
    base = frequency(note(layer["note"]))
    base *= 1 + layer.get("beat", 0) / layer.get("span", 1)
    step = 2 if layer.get("odd") else 1
    levels = {h: h ** -layer.get("slope", 1) for h in range(1, int(layer["count"]) + 1, step)}
    phases = _phases(levels)
    for h, level in levels.items():
        factor, stay = _decays(layer, rate, h ** layer.get("tilt", 0))
        stay = stay ** (1 + layer.get("dull", 0) * (h - 1))
        _partial(out, rate, base * h, level, factor, stay, phases[h])
    return out


def partials(layer, length, rate):
    """A tone of free partials, as bells have: set=ratio:level:fading,... counted from the note."""
    out = array("d", bytes(8 * length))
    base = frequency(note(layer["note"]))
    for entry in layer["set"].split(","):
        ratio, level, speed = map(float, entry.split(":"))
        factor, stay = _decays(layer, rate, speed)
        _partial(out, rate, base * ratio, level, factor, stay)
    return out


def glide(layer, length, rate):
    """An oscillation whose pitch runs from= to= (in Hz), most of the way within time= seconds."""
    out = array("d", bytes(8 * length))
    factor, stay = _decays(layer, rate)
    start, goal, time = layer["from"], layer["to"], layer["time"]
    slow, apart, level, phase = math.exp(-1 / (time * rate)), start - goal, 1.0 - stay, 0.0
    for i in range(length):
        out[i] = (level + stay) * math.sin(phase)
        phase += math.tau * (goal + apart) / rate
        apart *= slow
        level *= factor
    return out


def noise(layer, length, rate):
    """Noise between low= and high= (in Hz); seed= chooses which."""
    source = random.Random(int(layer.get("seed", 1)))
    out = array("d", (2 * source.random() - 1 for _ in range(length)))
    if "high" in layer:
        out = filtered(out, _pass(layer["high"] / rate, layer.get("peak", 0.71), False))
    if "low" in layer:
        out = filtered(out, _pass(layer["low"] / rate, layer.get("peak", 0.71), True))
    factor, stay = _decays(layer, rate)
    level = 1.0 - stay
    for i in range(length):
        out[i] *= level + stay
        level *= factor
    return out


def _pass(place, peak, high):
    """The factors of a filter of second order that lets through what is above or below a place."""
    turn = math.tau * min(place, 0.49)
    cosine, width = math.cos(turn), math.sin(turn) / (2 * peak)
    middle = -(1 + cosine) if high else 1 - cosine
    whole = 1 + width
    return (abs(middle) / 2 / whole, middle / whole, abs(middle) / 2 / whole,
            -2 * cosine / whole, (1 - width) / whole)


def filtered(samples, factors):
    """The samples sent through a filter of second order."""
    b0, b1, b2, a1, a2 = factors
    out = array("d", samples)
    x1 = x2 = y1 = y2 = 0.0
    for i, x in enumerate(samples):
        y = b0 * x + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2
        x2, x1, y2, y1 = x1, x, y1, y
        out[i] = y
    return out


KINDS = {"harmonics": harmonics, "partials": partials, "glide": glide, "noise": noise}


def mix(layers, length, rate):
    """All layers of a sound together; a layer may start later (at=) and swell up (rise=)."""
    out = array("d", bytes(8 * length))
    for kind, layer in layers:
        start = round(layer.get("at", 0) * rate)
        level, rise = layer.get("level", 1), max(1, layer.get("rise", 0) * rate)
        for i, value in enumerate(KINDS[kind](layer, length - start, rate)):
            out[start + i] += level * min(1, i / rise) * value
    return out


def fade(samples, first, last):
    """Fades the ends of the samples in and out over so many samples."""
    for i in range(first):
        samples[i] *= i / first
    for i in range(last):
        samples[-1 - i] *= i / last


def shaped(samples, drive):
    """Bends the peaks over, which adds warm harmonics; the more the higher the drive."""
    if drive:
        peak = max(map(abs, samples))
        for i, value in enumerate(samples):
            samples[i] = math.tanh(drive * value / peak)


def levelled(samples, loop, rate):
    """Takes away what lies off the middle line: of all that repeats, or below what is heard."""
    if loop == len(samples):
        middle = sum(samples) / loop
        samples[:] = array("d", (value - middle for value in samples))
    else:
        samples[:] = filtered(samples, _pass(RUMBLE / rate, 0.71, True))


def scaled(samples, top):
    """The samples made as loud as fits and rounded, the highest being top."""
    peak = max(map(abs, samples)) or 1.0
    return array("h", (round(top * value / peak) for value in samples))
