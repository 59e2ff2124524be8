"""The sound effects: played by their voices, brought to one loudness and written as WAV."""

import io
import wave
from array import array

from . import loudness, waves
from .instruments import layers
from .texts import Mistake, settings, stanzas

RATE, FULL = 44100, 32767
TARGET = -20.5                  # loudness of an effect with loud=0, in dB
LOUDEST = 0.40                  # no peak may be higher, for several effects sound over the tune
DRIVE = 1.5                     # rounds the peaks where many tones begin together
LONGEST = 1.2                   # seconds; for the feast of four rows:
FEAST, LONGEST_FEAST = "Tetris.wav", 2.5
FADE_IN, FADE_OUT = 0.001, 0.03


def _played(lines, voices):
    """The layers of the lines "play": those of the voice on a note, at a time, at a level."""
    found = []
    for line in lines:
        kind, *words = line.split()
        if kind == "play":
            how = settings(words[1:])
            for shape, layer in voices[words[0]]:
                level = how.get("level", 1) * layer.get("level", 1)
                found.append((shape, {**layer, **how, "level": level}))
    return found


def _brought(samples, name, loud):
    """The samples at the loudness wanted, as whole numbers."""
    change = 10 ** ((TARGET + loud - loudness.heard(samples, RATE)) / 20)
    peak = change * max(map(abs, samples))
    if peak > LOUDEST:
        raise Mistake(f"{name}: its peak of {peak:.2f} is too high")
    return array("h", (round(FULL * change * value) for value in samples))


def _wav(samples):
    """The bytes of a WAV file."""
    out = io.BytesIO()
    with wave.open(out, "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples.tobytes())
    return out.getvalue()


def _effect(name, head, body, voices):
    if head["seconds"] > (LONGEST_FEAST if name == FEAST else LONGEST):
        raise Mistake(f"{name} is too long")
    samples = waves.mix(layers(body) + _played(body, voices), int(head["seconds"] * RATE), RATE)
    waves.shaped(samples, DRIVE)
    waves.fade(samples, int(FADE_IN * RATE), int(FADE_OUT * RATE))
    return _wav(_brought(samples, name, head["loud"]))


def skin(folder):
    """The skin that the effects belong to, by the name that players see."""
    return next(words[1] for words, _ in stanzas(folder, "effects.txt") if words[0] == "skin")


def load(folder):
    """All effects: their file names and bytes."""
    voices, found = {}, {}
    for (kind, name, *words), body in stanzas(folder, "effects.txt"):
        if kind == "skin":
            continue
        if kind == "voice":
            voices[name] = layers(body)
        elif kind == "effect":
            found[name] = _effect(name, settings(words), body, voices)
        else:
            raise Mistake(f"{kind} means nothing among the effects")
    return found
