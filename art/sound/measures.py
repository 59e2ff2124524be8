"""Measures of what is heard. Sounds are arrays of frames by sides, full scale being 1."""

import numpy

RATE = 44100
TAPS, CHUNK = 8192, 1 << 16
GATE, GATE_BELOW, LOUDNESS_ZERO = -70.0, 10.0, -0.691   # LUFS, LU, LUFS (ITU-R BS.1770)
WINDOW = 8192
OVERSAMPLED = 4


def _response(b, a, turns):
    """What a filter of second order does to oscillations of so many turns a sample."""
    z = numpy.exp(-1j * turns)
    return (b[0] + b[1] * z + b[2] * z * z) / (1 + a[0] * z + a[1] * z * z)


def _weights():
    """The filter of the loudness as an impulse response: the head lifts high tones by 4 dB, and
    what is very low is hardly heard."""
    turns = numpy.linspace(0, numpy.pi, TAPS // 2 + 1)
    turn, lift = numpy.tan(numpy.pi * 1681.97 / RATE), 10 ** (4.0 / 20)
    wide, middle = turn / 0.7072, lift ** 0.4997
    whole = 1 + wide + turn * turn
    shelf = _response([(lift + middle * wide + turn * turn) / whole,
                       2 * (turn * turn - lift) / whole,
                       (lift - middle * wide + turn * turn) / whole],
                      [2 * (turn * turn - 1) / whole, (1 - wide + turn * turn) / whole], turns)
    turn = numpy.tan(numpy.pi * 38.135 / RATE)
    wide = turn / 0.5003
    whole = 1 + wide + turn * turn
    rumble = _response([1, -2, 1],
                       [2 * (turn * turn - 1) / whole, (1 - wide + turn * turn) / whole], turns)
    return numpy.fft.irfft(shelf * rumble)


def weighed(sound):
    """The sound as the ear weighs it."""
    spectrum = numpy.fft.rfft(_weights(), CHUNK + TAPS)[:, None]
    out = numpy.zeros((len(sound) + TAPS + CHUNK, sound.shape[1]))
    for start in range(0, len(sound), CHUNK):
        part = numpy.fft.rfft(sound[start:start + CHUNK], CHUNK + TAPS, axis=0)
        out[start:start + CHUNK + TAPS] += numpy.fft.irfft(part * spectrum, axis=0)
    return out[:len(sound)]


def loudness(sound):
    """The loudness of the whole in LUFS, without its silent places."""
    step, power = RATE // 10, (weighed(sound) ** 2).sum(axis=1)
    tenths = power[:len(power) // step * step].reshape(-1, step).mean(axis=1)
    blocks = numpy.convolve(tenths, numpy.full(4, 0.25), "valid")

    def level(power):
        return LOUDNESS_ZERO + 10 * numpy.log10(numpy.maximum(power, 1e-12))

    heard = blocks[level(blocks) > GATE]
    return level(heard[level(heard) > level(heard.mean()) - GATE_BELOW].mean())


def true_peak(sound):
    """The highest point of the wave, which may lie between two samples."""
    highest, start = numpy.abs(sound).max(), 0
    for start in range(0, len(sound), WINDOW // 2):
        part = sound[start:start + WINDOW]
        if numpy.abs(part).max() < 0.7 * highest:
            continue
        spectrum = numpy.fft.rfft(part, axis=0)
        fine = numpy.fft.irfft(spectrum, OVERSAMPLED * len(part), axis=0) * OVERSAMPLED
        edge = OVERSAMPLED * (len(part) // 16)
        highest = max(highest, numpy.abs(fine[edge:-edge]).max())
    return highest


def spectrum(sound, window=WINDOW):
    """The mean power at each frequency, both sides together, and the frequencies."""
    shape, total, step = numpy.hanning(window)[:, None], 0, window // 2
    padded = numpy.concatenate([sound, numpy.zeros((window, sound.shape[1]))])
    for start in range(0, max(1, len(sound)), step):
        part = numpy.fft.rfft(padded[start:start + window] * shape, axis=0)
        total = total + (numpy.abs(part) ** 2).sum(axis=1)
    return total, numpy.fft.rfftfreq(window, 1 / RATE)


def share(sound, low, high):
    """The part of the energy that lies between two frequencies."""
    power, hertz = spectrum(sound)
    return power[(hertz >= low) & (hertz < high)].sum() / power.sum()
