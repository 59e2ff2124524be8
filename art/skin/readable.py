"""Proof that lettering can be read: its contrast with what really lies behind it."""

from . import colours

LEAST = 4.5
# What was measured since the last call of `worst`, as (contrast, ink).
_measured = []


def _box(sheet):
    """The rectangle of a sheet that holds something: left, top, right, bottom."""
    sheet.flush()
    data, stride = bytes(sheet.get_data()), sheet.get_stride()
    rows = [data[y * stride:y * stride + sheet.get_width()] for y in range(sheet.get_height())]
    used = [y for y, row in enumerate(rows) if any(row)]
    left = min(len(row) - len(row.lstrip(b"\0")) for row in rows if any(row))
    right = max(len(row.rstrip(b"\0")) for row in rows)
    return left, used[0], right, used[-1] + 1


def grounds(picture, box):
    """The colours of a rectangle of a picture, as far as the picture covers it."""
    left, top, right, bottom = box
    rows, mask = picture.pixels((0, 0, 0))
    return {rows[y][x] for y in range(top, bottom) for x in range(left, right) if mask[y][x]}


def worst_contrast(names, pixels):
    """The lowest contrast between any of some inks and any of some pixels."""
    return min(colours.contrast(colours.colour(name), tuple(channel / 255 for channel in pixel))
               for name in set(names) for pixel in pixels)


def require(picture, sheet, names):
    """Raises ValueError if lettering on a sheet is hard to read on the art of its picture."""
    pixels = grounds(picture, _box(sheet))
    if not pixels:
        return
    reached = worst_contrast(names, pixels)
    _measured.append(reached)
    if reached < LEAST:
        raise ValueError(f"{'/'.join(names)}: contrast {reached:.1f}")


def worst():
    """The lowest contrast that was measured since the last call."""
    result = min(_measured, default=None)
    _measured.clear()
    return result
