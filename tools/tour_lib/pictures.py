"""Pictures of the screen, and the pictures of a skin to find in them."""

import functools
import struct
import zlib


class Picture:
    """Rows of three-byte pixels: red, green, blue."""

    def __init__(self, width, height, pixels):
        self.width, self.height, self.pixels = width, height, pixels

    def at(self, x, y):
        return self.run(x, y, 1)

    def run(self, x, y, length):
        start = 3 * (y * self.width + x)
        return self.pixels[start : start + 3 * length]

    def part(self, left, top, width, height):
        rows = (self.run(left, y, width) for y in range(top, top + height))
        return Picture(width, height, b"".join(rows))

    def shrunk(self, scale):
        """Every so manyth pixel of every so manyth row."""
        size = 3 * self.width
        pixels = bytearray()
        for y in range(0, self.height, scale):
            row = self.pixels[y * size : (y + 1) * size]
            small = bytearray(size // scale)
            for channel in range(3):
                small[channel::3] = row[channel :: 3 * scale]
            pixels += small
        return Picture(self.width // scale, self.height // scale, bytes(pixels))

    def __eq__(self, other):
        return self.pixels == other.pixels

    def shows(self, sprite, x, y):
        return all(self.run(x + dx, y + dy, len(pixels) // 3) == pixels
                   for dx, dy, pixels in sprite.runs)

    def save(self, file):
        def chunk(kind, data):
            checked = kind + data
            return struct.pack(">I", len(data)) + checked + struct.pack(">I", zlib.crc32(checked))

        lines = b"".join(b"\0" + self.run(0, y, self.width) for y in range(self.height))
        file.write_bytes(b"\x89PNG\r\n\x1a\n"
                         + chunk(b"IHDR", struct.pack(">IIBBBBB", self.width, self.height,
                                                      8, 2, 0, 0, 0))
                         + chunk(b"IDAT", zlib.compress(lines)) + chunk(b"IEND", b""))


class Sprite:
    """The pixels of a picture that are drawn: all that do not have its key colour."""

    def __init__(self, picture, key):
        self.runs = []
        self.width = picture.width
        for y in range(picture.height):
            self.add_row(y, [picture.at(x, y) for x in range(picture.width)], key)
        self.size = sum(len(pixels) for _, _, pixels in self.runs)

    def add_row(self, y, row, key):
        run = []
        for x, pixel in enumerate([*row, key]):
            if pixel != key:
                run.append(pixel)
            elif run:
                self.runs.append((x - len(run), y, b"".join(run)))
                run = []


def read_bmp(file):
    """The picture of an uncompressed 24-bit file with its rows from the bottom up."""
    data = file.read_bytes()
    first, width, height, depth = (struct.unpack_from(code, data, offset)[0] for code, offset in
                                   (("<I", 10), ("<i", 18), ("<i", 22), ("<H", 28)))
    if depth != 24 or height < 0:
        raise ValueError(f"{file}: not a 24-bit picture from the bottom up")
    row_bytes = (3 * width + 3) // 4 * 4
    pixels = bytearray()
    for start in range(first + (height - 1) * row_bytes, first - 1, -row_bytes):
        row = bytearray(data[start : start + 3 * width])
        row[0::3], row[2::3] = row[2::3], row[0::3]
        pixels += row
    return Picture(width, height, bytes(pixels))


class Skin:
    """The pictures of one skin, and text in its letters."""

    GLYPH = 16
    NARROW, WIDE = 14, 16  # from one character to the next

    def __init__(self, folder):
        self.folder = folder
        keys = read_bmp(folder / "colorkey.bmp")
        # As they stand in the file: the lowest row first.
        self.keys = [keys.at(i % keys.width, keys.height - 1 - i // keys.width)
                     for i in range(keys.width * keys.height)]

    @functools.cache
    def picture(self, name):
        return read_bmp(self.folder / name)

    @functools.cache
    def sprite(self, name, frame=0, frames=1, key=0):
        """One of the equally wide frames that a picture consists of."""
        sheet = self.picture(name)
        width = sheet.width // frames
        return Sprite(sheet.part(frame * width, 0, width, sheet.height), self.keys[key])

    def glyph(self, character):
        if character.isdigit():
            return self.sprite("Numbers.bmp", int(character), 17)
        return self.sprite("Letters.bmp", ord(character) - ord("A"), 26)

    def shows_text(self, picture, text, x, y, advance):
        return all(character == " " or picture.shows(self.glyph(character), x + advance * i, y)
                   for i, character in enumerate(text))

    def number(self, picture, x, y):
        """The number that is to be read at a place; none without a digit there."""
        digits = ""
        while digit := self.digit(picture, x + self.NARROW * len(digits), y):
            digits += digit
        return int(digits) if digits else None

    def digit(self, picture, x, y):
        if x + self.GLYPH > picture.width:
            return ""
        shown = [digit for digit in "0123456789" if picture.shows(self.glyph(digit), x, y)]
        # One digit may be a part of another one.
        return max(shown, key=lambda digit: self.glyph(digit).size, default="")
