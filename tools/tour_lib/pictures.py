"""Pictures of the screen, and the pictures of a skin to find in them."""

import functools

import numpy
from PIL import Image


class Picture:
    """Rows of pixels, each of them red, green and blue from 0 to 255."""

    def __init__(self, pixels):
        self.pixels = pixels
        self.height, self.width, _ = pixels.shape

    def row(self, y):
        """The bytes of a row, three a pixel."""
        return self.pixels[y].tobytes()

    def part(self, left, top, width, height):
        return Picture(self.pixels[top : top + height, left : left + width])

    def shrunk(self, scale):
        """One pixel for each square of so many by so many."""
        return Picture(self.pixels[::scale, ::scale])

    def __eq__(self, other):
        return numpy.array_equal(self.pixels, other.pixels)

    def shows(self, sprite, x, y):
        area = self.part(x, y, sprite.width, sprite.height).pixels
        return (area.shape == sprite.pixels.shape
                and bool((area == sprite.pixels)[sprite.is_drawn].all()))

    def save(self, file):
        Image.fromarray(self.pixels).save(file)


class Sprite(Picture):
    """A picture of which all pixels are drawn but those in its key colour."""

    def __init__(self, picture, key):
        super().__init__(picture.pixels)
        self.key = key
        self.is_drawn = (self.pixels != key).any(axis=2)
        self.size = self.is_drawn.sum()

    def above(self, y):
        """The part above a row."""
        return Sprite(self.part(0, 0, self.width, y), self.key)


def read_picture(file):
    return Picture(numpy.array(Image.open(file).convert("RGB")))


class Skin:
    """The pictures of one skin, and text in its letters."""

    GLYPH = 16
    NARROW, WIDE = 14, 16  # from one character to the next

    def __init__(self, folder):
        self.folder = folder
        # As they stand in the file: the lowest row first.
        self.keys = read_picture(folder / "colorkey.bmp").pixels[::-1].reshape(-1, 3)

    @functools.cache
    def picture(self, name):
        return read_picture(self.folder / name)

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
