"""The current skin: its name, its palette and its craft.

All skins share the painters. These take colours by name from here, and leave to the craft what each
skin does in its own way.
"""

from . import sources

_skin = ""
_palette = {}
_craft = None


def from_hex(text):
    """The colour that six hexadecimal digits spell."""
    return tuple(int(text[i:i + 2], 16) / 255 for i in (0, 2, 4))


def choose(skin, craft):
    """Makes a skin the current one."""
    global _skin, _palette, _craft
    words = (line.split() for line in sources.lines(sources.own(skin, "palette.txt")))
    _palette = {name: from_hex(value) for name, value, *_ in words}
    _skin, _craft = skin, craft


def skin():
    """The name of the skin."""
    return _skin


def craft():
    """The craft of the skin."""
    return _craft


def colour(name):
    """A colour of the palette by its name: a triple of red, green, blue from 0 to 1."""
    return _palette[name]
