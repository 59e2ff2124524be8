"""The recording of what the program plays, and the sounds to find in it. SDL's "disk" driver writes
the recording."""

import ctypes
import functools
import wave

import numpy

RATE, CHANNELS = 44100, 2
FRAME_BYTES = 2 * CHANNELS


def one_side(samples):
    """The mean of both channels of interleaved samples."""
    return samples.reshape(-1, CHANNELS).mean(axis=1, dtype=float)


def numbers(data):
    return numpy.frombuffer(data, "<i2") / 32768


class Recording:
    """What has been played so far: raw 16-bit frames in a file that grows as time passes."""

    def __init__(self, file):
        self.file = file

    def length(self):
        """In frames."""
        return self.file.stat().st_size // FRAME_BYTES if self.file.exists() else 0

    def part(self, first, last):
        with open(self.file, "rb") as file:
            file.seek(first * FRAME_BYTES)
            data = file.read((last - first) * FRAME_BYTES)
        return one_side(numbers(data))


@functools.cache
def effect(file):
    """The sound of a WAV file."""
    with wave.open(str(file)) as sound:
        form = sound.getnchannels(), sound.getsampwidth(), sound.getframerate()
        if form != (1, 2, RATE):
            raise ValueError(f"{file}: not one channel of 16 bits at the recording's rate")
        return numbers(sound.readframes(sound.getnframes()))


@functools.cache
def music(file, order, seconds):
    """The first seconds of a module from one of its orders on, as libopenmpt renders them."""
    player = ctypes.CDLL("libopenmpt.so.0")
    player.openmpt_module_create_from_memory2.restype = ctypes.c_void_p
    player.openmpt_module_read_interleaved_float_stereo.restype = ctypes.c_size_t
    data = file.read_bytes()
    module = ctypes.c_void_p(player.openmpt_module_create_from_memory2(
        data, ctypes.c_size_t(len(data)), *9 * [None]))
    if not module:
        raise ValueError(f"{file}: no module")
    player.openmpt_module_set_position_order_row(module, order, 0)
    samples = numpy.empty(seconds * RATE * CHANNELS, numpy.float32)
    player.openmpt_module_read_interleaved_float_stereo(
        module, RATE, ctypes.c_size_t(seconds * RATE), samples.ctypes.data_as(ctypes.c_void_p))
    player.openmpt_module_destroy(module)
    return one_side(samples)


def likeness(heard, sound):
    """How much the recording resembles the sound, from each frame on: 1 for the same shape at any
    loudness, about 0 for another sound."""
    if len(heard) < len(sound):
        return numpy.zeros(1)
    size = 1 << (len(heard) + len(sound)).bit_length()
    product = numpy.fft.irfft(numpy.fft.rfft(heard, size)
                              * numpy.conj(numpy.fft.rfft(sound, size)), size)
    energy = numpy.concatenate([[0], numpy.cumsum(heard ** 2)])
    places = len(heard) - len(sound) + 1
    loudness = numpy.sqrt((energy[len(sound):] - energy[:places]) * numpy.dot(sound, sound))
    return product[:places] / numpy.maximum(loudness, 1e-9)
