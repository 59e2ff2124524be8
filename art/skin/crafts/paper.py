"""Wood and paper: plaques, and lanterns with a flame in them."""

import math
import random

import cairo

from .. import plates, shapes
from ..colours import BLACK, WHITE, colour, mix
from .craft import Craft


class Paper(Craft):
    """Plates of wood, plates and lanterns of paper."""

    def wood(self, cr, x, y, width, height, seed, names=("frame", "frame-face")):
        """A piece of wood whose grain runs along it, lit from above."""
        cr.save()
        cr.rectangle(x, y, width, height)
        cr.clip()
        along = width >= height
        gradient = cairo.LinearGradient(x, y, *((x, y + height) if along else (x + width, y)))
        for place, name in zip((0, 1), names):
            gradient.add_color_stop_rgb(place, *colour(name))
        cr.set_source(gradient)
        cr.paint()
        chance = random.Random(seed)
        cr.set_line_width(1)
        for _ in range(int((height if along else width) / 4) + 1):
            cr.set_source_rgba(*colour("grain"), 0.12 + 0.18 * chance.random())
            self._grain(cr, (x, y, width, height), along, chance)
        cr.restore()

    def _grain(self, cr, area, along, chance):
        """One wavering line of the grain."""
        x, y, width, height = area
        length, depth = (width, height) if along else (height, width)
        off, turn = chance.random() * depth, chance.random() * 7
        for step in range(0, int(length) + 9, 8):
            waver = off + 1.2 * math.sin(turn + step / 31)
            cr.line_to(*((x + step, y + waver) if along else (x + waver, y + step)))
        cr.stroke()

    def face(self, cr, x, y, width, height, look, radius):
        """Paper glows in the middle and has ribs; wood has its grain."""
        cr.save()
        shapes.rounded_rectangle(cr, x, y, width, height, radius)
        cr.clip()
        if look.sunken or look.glow:
            cr.set_source(plates.downwards(y, height, look.top, look.bottom))
            cr.paint()
            self._glow(cr, x, y, width, height, look)
        else:
            self.wood(cr, x, y, width, height, width * height, (look.top, look.bottom))
        cr.restore()
        plates.edge(cr, x, y, width, height, radius, (look.light, look.dark), 0.8)

    def _glow(self, cr, x, y, width, height, look):
        """The light of the lamp, and the shadows of the ribs across it."""
        if look.glow:
            cr.save()
            cr.translate(x + width / 2, y + height / 2)
            cr.scale(width / 2, height / 2)
            light = cairo.RadialGradient(0, 0, 0, 0, 0, 1.1)
            light.add_color_stop_rgba(0, *colour(look.glow), 0.8)
            light.add_color_stop_rgba(1, *colour(look.glow), 0)
            cr.set_source(light)
            cr.paint()
            cr.restore()
        cr.set_source_rgba(*colour(look.dark), 0.10)
        for line in range(int(y) + 5, int(y + height), 6):
            cr.rectangle(x, line, width, 1)
        cr.fill()

    def banner_relief(self, ink, look):
        """Light lettering has a dark line round it."""
        if not (look.sunken or look.glow):
            ink.outline(1, "halo")

    def relief(self, ink, look):
        """Lettering is burnt into wood."""
        if not (look.sunken or look.glow):
            ink.shade(0.5)

    def panel(self, cr, x, y, width, height, radius):
        """A board of wood."""
        plates.box(cr, "edge", x, y, width, height, radius)
        cr.save()
        shapes.rounded_rectangle(cr, x + 1, y + 1, width - 2, height - 2, radius - 1)
        cr.clip()
        self.wood(cr, x, y, width, height, width)
        cr.restore()
        plates.edge(cr, x + 1, y + 1, width - 2, height - 2, radius - 1,
                    ("frame-light", "frame-dark"), 0.8)

    def well(self, cr, x, y, width, height, radius=4):
        """A dark window in the wood."""
        plates.box(cr, "edge", x - 1, y - 1, width + 2, height + 2, radius + 1)
        plates.box(cr, "glass", x, y, width, height, radius)

    def lantern(self, picture, x, y, width, height, base):
        """A lantern of paper that hangs from a point above its middle."""
        cr = picture.cr
        cap = max(2, round(height * 0.08))
        for context in (cr, picture.mask):
            context.rectangle(round(x) - 1, y - cap * 2, 2, cap * 2)
            self._body(context, x, y + cap / 2, width, height - cap)
        cr.set_source_rgb(*mix(base, BLACK, 0.7))
        cr.fill()
        picture.mask.fill()
        inset = max(1, width / 40)
        self._body(cr, x, y + cap / 2, width - 2 * inset, height - cap)
        cr.save()
        cr.clip()
        self._paper(cr, x, y, width, height, base)
        cr.restore()
        for top, across in ((y, 0.5), (y + height - cap, 0.46)):
            for context in (cr, picture.mask):
                shapes.rounded_rectangle(context, x - width * across / 2, top, width * across, cap,
                                         cap / 3)
            cr.set_source(plates.downwards(top, cap, "frame-face", "frame-dark"))
            cr.fill()
            picture.mask.fill()

    def _body(self, cr, x, y, width, height):
        """The path of a lantern's paper, between its caps."""
        cr.new_sub_path()
        for side, start, end in ((-1, y, y + height), (1, y + height, y)):
            cr.line_to(x + side * width * 0.26, start)
            bulge = x + side * width * 0.58
            cr.curve_to(bulge, start + (end - start) * 0.1, bulge, start + (end - start) * 0.9,
                        x + side * width * 0.26, end)
        cr.close_path()

    def _paper(self, cr, x, y, width, height, base):
        """Paper with a flame behind it, and its ribs."""
        cr.save()
        cr.translate(x, y + height * 0.52)
        cr.scale(width / 2, height / 2)
        light = cairo.RadialGradient(0, 0, 0, 0, 0, 1.15)
        for place, value in ((0, mix(base, WHITE, 0.72)), (0.45, mix(base, WHITE, 0.26)),
                             (0.8, base), (1, mix(base, BLACK, 0.4))):
            light.add_color_stop_rgb(place, *value)
        cr.set_source(light)
        cr.paint()
        cr.restore()
        cr.set_line_width(1)
        cr.set_source_rgba(*mix(base, BLACK, 0.6), 0.35)
        ribs = max(3, round(height / 11))
        for rib in range(1, ribs):
            part = rib / ribs
            level = y + height * part
            cr.move_to(x - width / 2, level)
            cr.curve_to(x - width / 4, level + (part - 0.3) * 6, x + width / 4,
                        level + (part - 0.3) * 6, x + width / 2, level)
            cr.stroke()
