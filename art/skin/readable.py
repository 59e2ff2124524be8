"""Contrast of lettering with the plate that it is drawn on, as it can be measured while the two
are apart. In the finished picture nobody can tell which pixels are lettering."""

from . import colours, tool
from .picture import image

# What was measured since the last call of `worst`.
_measured = []


def _grounds(picture, sheet):
    """The colours that a picture has where a sheet of lettering holds something."""
    art, mask = picture.pixels((0, 0, 0))
    box = image(sheet).getbbox()
    return {pixel for pixel, is_covered in zip(art.crop(box).getdata(), mask.crop(box).getdata())
            if is_covered}


def require(picture, sheet, names):
    """Raises ValueError if lettering on a sheet is hard to read on the art of its picture."""
    grounds = _grounds(picture, sheet)
    if not grounds:
        return
    reached = min(colours.contrast(colours.colour(name), tuple(channel / 255 for channel in pixel))
                  for name in set(names) for pixel in grounds)
    _measured.append(reached)
    if reached < tool.catalogue()["leastContrast"]:
        raise ValueError(f"{'/'.join(names)}: contrast {reached:.1f}")


def worst():
    """The lowest contrast that was measured since the last call."""
    result = min(_measured, default=None)
    _measured.clear()
    return result
