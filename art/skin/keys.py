"""Colour keys: which colour stands for "nothing here"."""

from PIL import Image

from . import sources

KEYS = [tuple(bytes.fromhex(line)) for line in sources.lines(sources.ART / "keys.txt")]


def require_whole(name, art, mask):
    """Raises ValueError if art has the very colour of a key, so that the game would show a hole.
    korvane-skin cannot see that in the finished picture."""
    holes = {pixel for pixel, is_art in zip(art.getdata(), mask.getdata()) if is_art} & set(KEYS)
    if holes:
        raise ValueError(f"{name}: art of the colour of a key: {holes}")


def strip():
    """The picture that tells the game the keys: they lead its bottom row."""
    picture = Image.new("RGB", (4, 2))
    picture.putdata([KEYS[i % 4 % len(KEYS)] for i in range(8)])
    return picture
