"""Plays a module with the library that the game plays it with, and in the same way."""

import ctypes
from array import array

LIBRARY = "libopenmpt.so.0"
RATE, CHANNELS, BLOCK = 44100, 2, 2048
FILTER_LENGTH, CUBIC = 3, 4     # the parameter of the filter between two points, and its value
LONGEST = 15 * 60               # seconds


def _library():
    """The library with the types of what is called."""
    found = ctypes.CDLL(LIBRARY)
    whole, module = ctypes.c_int32, ctypes.c_void_p
    for name, result, arguments in (
            ("create_from_memory", module, [ctypes.c_char_p, ctypes.c_size_t] + 3 * [module]),
            ("destroy", None, [module]),
            ("set_repeat_count", whole, [module, whole]),
            ("set_render_param", whole, [module, whole, whole]),
            ("set_position_order_row", ctypes.c_double, [module, whole, whole]),
            ("get_current_order", whole, [module]),
            ("read_interleaved_float_stereo", ctypes.c_size_t,
             [module, whole, ctypes.c_size_t, module])):
        function = getattr(found, "openmpt_module_" + name)
        function.restype, function.argtypes = result, arguments
    return found


def section(module, first, seconds=LONGEST):
    """What is heard from an order until the tune jumps back: numbers, left and right in turn."""
    library, heard = _library(), array("f")
    block = (ctypes.c_float * (BLOCK * CHANNELS))()
    opened = library.openmpt_module_create_from_memory(module, len(module), None, None, None)
    library.openmpt_module_set_repeat_count(opened, -1)
    library.openmpt_module_set_render_param(opened, FILTER_LENGTH, CUBIC)
    library.openmpt_module_set_position_order_row(opened, first, 0)
    before = first
    while before <= library.openmpt_module_get_current_order(opened):
        before = library.openmpt_module_get_current_order(opened)
        if len(heard) >= seconds * RATE * CHANNELS:
            break
        library.openmpt_module_read_interleaved_float_stereo(opened, RATE, BLOCK, block)
        heard.frombytes(bytes(block))
    library.openmpt_module_destroy(opened)
    return heard
