"""Bitmap files: 24 bits a pixel, not compressed, the bottom row first."""

import struct

HEADERS = 14 + 40


def encode(rows):
    """The bytes of a bitmap file from rows, top first, of (red, green, blue)."""
    width, height = len(rows[0]), len(rows)
    padding = bytes(-width * 3 % 4)
    body = b"".join(
        b"".join(bytes((blue, green, red)) for red, green, blue in row) + padding
        for row in reversed(rows))
    file_header = struct.pack("<2sIHHI", b"BM", HEADERS + len(body), 0, 0, HEADERS)
    picture_header = struct.pack(
        "<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(body), 2835, 2835, 0, 0)
    return file_header + picture_header + body


def decode(data):
    """The rows of a bitmap file that `encode` made."""
    start, = struct.unpack_from("<I", data, 10)
    width, height = struct.unpack_from("<ii", data, 18)
    stride = width * 3 + -width * 3 % 4
    rows = []
    for y in reversed(range(height)):
        row = data[start + y * stride:start + y * stride + width * 3]
        rows.append(list(zip(row[2::3], row[1::3], row[0::3])))
    return rows
