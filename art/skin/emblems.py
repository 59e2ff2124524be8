"""The emblems of what is laid over a board, as paths round a point."""

import math


def star(cr, x, y, reach, points=5, depth=0.42, turn=-math.pi / 2):
    """A star with some points; depth is how near its inner corners are to the middle."""
    for i in range(2 * points):
        far = reach if i % 2 == 0 else reach * depth
        angle = turn + math.pi * i / points
        cr.line_to(x + far * math.cos(angle), y + far * math.sin(angle))
    cr.close_path()


def cup(cr, x, y, size):
    """A cup with two handles on its foot, as high as the size."""
    step = size / 20

    def at(dx, dy):
        return x + dx * step, y + dy * step

    cr.move_to(*at(-7, -10))
    cr.line_to(*at(7, -10))
    cr.curve_to(*at(7, -2), *at(5, 2), *at(1.6, 3.4))
    cr.line_to(*at(1.6, 6))
    cr.line_to(*at(5, 7.4))
    cr.line_to(*at(5, 10))
    cr.line_to(*at(-5, 10))
    cr.line_to(*at(-5, 7.4))
    cr.line_to(*at(-1.6, 6))
    cr.line_to(*at(-1.6, 3.4))
    cr.curve_to(*at(-5, 2), *at(-7, -2), *at(-7, -10))
    cr.close_path()


def handles(cr, x, y, size):
    """The line of the handles of such a cup, to be stroked."""
    step = size / 20
    for side in (-1, 1):
        cr.move_to(x + side * 6.6 * step, y - 8 * step)
        cr.curve_to(x + side * 13 * step, y - 9 * step, x + side * 11 * step, y + 1 * step,
                    x + side * 4.6 * step, y + 0.6 * step)


def rays(cr, x, y, reach, count=12):
    """Rays that leave a point, as wide as the gaps between them."""
    for i in range(count):
        angle = 2 * math.pi * i / count
        cr.move_to(x, y)
        for side in (-0.25, 0.25):
            turn = angle + side * 2 * math.pi / count
            cr.line_to(x + reach * math.cos(turn), y + reach * math.sin(turn))
        cr.close_path()


def crack(cr, x, y, size):
    """A crack through the middle of a square of the size, to be stroked."""
    step = size / 10
    for dx, dy in ((0.6, -5), (-1, -2.4), (1.3, -0.4), (-0.8, 2), (0.4, 5)):
        cr.line_to(x + dx * step, y + dy * step)
