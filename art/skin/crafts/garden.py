"""The garden of Lantern: the evening, what grows in it, and who lives there.

Places are those of the frame, unless they say otherwise.
"""

import math
import random

import cairo

from .. import plates, shapes, titles
from ..colours import colour

WIDTH, HEIGHT = 640, 480
LOGO_LEFT = 8
POST, BEAM = 20, 11  # of the pavilion, in the picture of the logo
# Lanterns that hang from the beam: middle and top in the picture of the logo, width, colour.
LANTERNS = ((44, 150, 30, 7), (78, 122, 22, 1), (52, 246, 24, 6), (576, 142, 34, 3),
            (536, 118, 22, 4), (590, 246, 24, 1), (548, 206, 20, 7))
HORIZON = 392


def evening(cr, left):
    """The sky above hills, water and a bridge; left is the frame's x of the picture's edge."""
    cr.save()
    cr.translate(-left, 0)
    sky = cairo.LinearGradient(0, 0, 0, HORIZON)
    for place, name in ((0, "sky-top"), (0.4, "sky-high"), (0.8, "sky-low"), (1, "sky-glow")):
        sky.add_color_stop_rgb(place, *colour(name))
    cr.set_source(sky)
    cr.paint()
    _hill(cr, "hill", ((-20, 384), (90, 352), (190, 382), (300, 366), (400, 388), (520, 344),
                       (660, 380)))
    _hill(cr, "hill-near", ((-20, 400), (80, 384), (200, 408), (330, 402), (470, 408), (580, 386),
                            (660, 402)))
    _water(cr)
    _bridge(cr)
    cr.restore()


def _hill(cr, name, ridge):
    shapes.polyline(cr, [(ridge[0][0], HEIGHT, 0), *((x, y, 40) for x, y in ridge),
                         (ridge[-1][0], HEIGHT, 0)], True)
    cr.set_source_rgb(*colour(name))
    cr.fill()


def _water(cr):
    """The pond, and the lamps that it mirrors."""
    cr.set_source(plates.downwards(418, 62, "water", "hill-near"))
    cr.rectangle(0, 418, WIDTH, 62)
    cr.fill()
    chance = random.Random(4)
    for _ in range(90):
        y = 420 + 58 * chance.random()
        reach = 4 + (y - 412) / 4
        cr.set_source_rgba(*colour("water-light"), 0.25 + 0.4 * chance.random())
        cr.rectangle(chance.random() * WIDTH, int(y), reach, 1)
        cr.fill()


def _bridge(cr):
    """An arched bridge with its railing."""
    cr.set_source_rgb(*colour("bridge"))
    cr.set_line_width(7)
    cr.move_to(60, 462)
    cr.curve_to(180, 414, 460, 414, 580, 462)
    cr.stroke()
    cr.set_line_width(3)
    cr.move_to(60, 440)
    cr.curve_to(180, 392, 460, 392, 580, 440)
    cr.stroke()
    for i in range(17):
        part = i / 16
        x = 60 + 520 * (0.12 * part + 0.88 * (3 * part ** 2 - 2 * part ** 3))
        y = 462 - 36 * 4 * part * (1 - part)
        cr.rectangle(x - 1, y - 24, 3, 24)
    cr.fill()


def fireflies(cr, left):
    """Specks of light between the hills and the sky."""
    chance = random.Random(21)
    for _ in range(34):
        x, y = chance.random() * WIDTH - left, 130 + 330 * chance.random()
        for reach, strength in ((4.5, 0.12), (2.4, 0.3), (1.1, 1)):
            cr.set_source_rgba(*colour("firefly"), strength)
            cr.arc(x, y, reach, 0, 2 * math.pi)
            cr.fill()


def _leaf(picture, x, y, length, turn, name):
    """A narrow leaf from its stalk."""
    for context in (picture.cr, picture.mask):
        context.save()
        context.translate(x, y)
        context.rotate(turn)
        context.move_to(0, 0)
        context.curve_to(length * 0.3, -length * 0.16, length * 0.7, -length * 0.1, length, 0)
        context.curve_to(length * 0.7, length * 0.1, length * 0.3, length * 0.14, 0, 0)
        context.restore()
    picture.mask.fill()
    picture.cr.set_source_rgb(*colour(name))
    picture.cr.fill()


def _bamboo(picture, x, lean, seed):
    """A stalk of bamboo with its leaves, in the picture of the logo."""
    chance = random.Random(seed)
    cr, mask = picture.cr, picture.mask
    for context in (cr, mask):
        context.set_line_width(5)
        context.move_to(x, HEIGHT)
        context.curve_to(x, 380, x + lean / 2, 300, x + lean, 200)
    cr.set_source_rgb(*colour("leaf"))
    cr.stroke()
    mask.stroke()
    for i in range(9):
        part = 0.15 + 0.85 * i / 8
        at = (x + lean * part ** 2, HEIGHT - 280 * part)
        for side in (-1, 1):
            turn = math.pi / 2 - side * (0.7 + 0.6 * chance.random())
            _leaf(picture, *at, 22 + 12 * chance.random(), turn,
                  "leaf" if chance.random() < 0.7 else "leaf-lit")


def _stone(picture, x, y):
    """A lantern of stone, in the picture of the logo."""
    light = colour("pane")
    for context in (picture.cr, picture.mask):
        for left, top, width, height in ((-13, 62, 26, 8), (-6, 34, 12, 28), (-12, 28, 24, 6),
                                         (-9, 12, 18, 16), (-3, -8, 6, 8)):
            context.rectangle(x + left, y + top, width, height)
        context.move_to(x - 19, y + 12)
        context.curve_to(x - 10, y + 8, x - 6, y - 1, x, y - 2)
        context.curve_to(x + 6, y - 1, x + 10, y + 8, x + 19, y + 12)
        context.close_path()
    picture.mask.fill()
    picture.cr.set_source_rgb(*colour("bridge"))
    picture.cr.fill()
    for dx in (-6, 1):
        picture.cr.set_source_rgb(*light)
        picture.cr.rectangle(x + dx, y + 15, 5, 10)
        picture.cr.fill()


def beside(picture):
    """The evening goes on beside the background, with bamboo and a lantern of stone."""
    cr = picture.cr
    cr.save()
    for x, across in titles.SIDES:
        picture.mask.rectangle(x, 0, across, picture.height)
        cr.rectangle(x, 0, across, picture.height)
    picture.mask.fill()
    cr.clip()
    evening(cr, LOGO_LEFT)
    cr.restore()
    for x, lean, seed in ((26, 26, 1), (44, -14, 2), (606, -34, 3), (590, 10, 4)):
        _bamboo(picture, x, lean, seed)
    _stone(picture, 86, 408)


def cat(picture):
    """A cat that watches from the right, in the picture of the logo."""
    x, y = 556, 478
    for context in (picture.cr, picture.mask):
        context.save()
        context.translate(x, y)
        context.move_to(-22, 0)
        context.curve_to(-28, -30, -16, -42, -12, -50)
        context.curve_to(-20, -58, -20, -70, -17, -80)
        context.line_to(-8, -72)
        context.line_to(6, -72)
        context.line_to(15, -80)
        context.curve_to(18, -70, 18, -58, 11, -50)
        context.curve_to(20, -40, 26, -28, 22, 0)
        context.close_path()
        context.new_sub_path()
        context.move_to(16, 0)
        context.curve_to(52, 4, 50, -34, 36, -40)
        context.curve_to(30, -42, 30, -34, 35, -32)
        context.curve_to(42, -26, 38, -10, 16, -12)
        context.close_path()
        context.restore()
    picture.mask.fill()
    picture.cr.set_source_rgb(*colour("bridge"))
    picture.cr.fill()
    picture.cr.set_source_rgb(*colour("firefly"))
    for dx in (-8, 6):
        picture.cr.save()
        picture.cr.translate(x + dx, y - 62)
        picture.cr.scale(3.4, 2.6)
        picture.cr.arc(0, 0, 1, 0, 2 * math.pi)
        picture.cr.restore()
        picture.cr.fill()
    picture.cr.set_source_rgb(*colour("bridge"))
    for dx in (-8, 6):
        picture.cr.rectangle(x + dx - 0.5, y - 65, 1.4, 6)
    picture.cr.fill()


def reeds(cr, width, height):
    """Leaves at both sides of a board, in the picture of one half."""
    chance = random.Random(8)
    for _ in range(60):
        x = chance.choice((0, 1)) * 206 + 24 * chance.random() - 6
        y, length = height * chance.random(), 18 + 14 * chance.random()
        cr.save()
        cr.translate(x, y)
        cr.rotate(math.pi / 2 + 1.6 * (chance.random() - 0.5))
        cr.move_to(0, 0)
        cr.curve_to(length * 0.3, -4, length * 0.7, -3, length, 0)
        cr.curve_to(length * 0.7, 3, length * 0.3, 4, 0, 0)
        cr.set_source_rgba(*colour("leaf" if chance.random() < 0.6 else "leaf-lit"), 0.7)
        cr.fill()
        cr.restore()


def sprig(cr, x, y):
    """A sprig where two of the values may be missing, so dark that they read on it."""
    cr.set_source_rgb(*colour("socket"))
    cr.set_line_width(2)
    cr.move_to(x, y + 52)
    cr.curve_to(x + 16, y + 20, x - 16, y - 6, x, y - 36)
    cr.stroke()
    for dx, dy, turn in ((2, 38, -0.5), (2, 30, 3.6), (3, 10, -0.6), (-3, -4, 3.7), (-1, -18, -0.7),
                         (0, -36, -1.5)):
        cr.save()
        cr.translate(x + dx, y + dy)
        cr.rotate(turn)
        cr.move_to(0, 0)
        cr.curve_to(8, -7, 16, -5, 24, 0)
        cr.curve_to(16, 5, 8, 5, 0, 0)
        cr.restore()
        cr.fill()
