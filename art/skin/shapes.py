"""Paths that Cairo does not offer: rounded rectangles and polylines with round corners."""

import math

# With handles of this share of the radius, a Bezier curve is nearly a quarter circle.
ROUND = 0.5523


def rounded_rectangle(cr, x, y, width, height, radius):
    """Adds a rectangle with round corners to the path."""
    right, bottom = x + width - radius, y + height - radius
    cr.new_sub_path()
    cr.arc(right, y + radius, radius, -math.pi / 2, 0)
    cr.arc(right, bottom, radius, 0, math.pi / 2)
    cr.arc(x + radius, bottom, radius, math.pi / 2, math.pi)
    cr.arc(x + radius, y + radius, radius, math.pi, math.pi * 3 / 2)
    cr.close_path()


def _towards(start, end, distance):
    length = math.dist(start, end)
    part = distance / length if length else 0
    return start[0] + (end[0] - start[0]) * part, start[1] + (end[1] - start[1]) * part


def _corner(cr, before, point, after, radius):
    """Adds a round corner at a point between the sides from `before` and to `after`."""
    start, end = _towards(point, before, radius), _towards(point, after, radius)
    cr.line_to(*start)
    if radius:
        reach = radius * (1 - ROUND)
        cr.curve_to(*_towards(point, before, reach), *_towards(point, after, reach), *end)


def polyline(cr, points, closed):
    """Adds straight sides with round corners to the path. Points are (x, y, radius)."""
    places = [(x, y) for x, y, _ in points]
    radii = [radius for _, _, radius in points]
    last = len(points) - 1
    if closed:
        cr.move_to(*_towards(places[0], places[1], radii[0]))
        for i in [*range(1, last + 1), 0]:
            _corner(cr, places[i - 1], places[i], places[(i + 1) % len(points)], radii[i])
        cr.close_path()
        return
    cr.move_to(*places[0])
    for i in range(1, last):
        _corner(cr, places[i - 1], places[i], places[i + 1], radii[i])
    cr.line_to(*places[last])


def _inside(inner, outer, width, depth):
    """Where the way from a point inside a box to one outside leaves the box."""
    part = 1.0
    for start, end, most in zip(inner, outer, (width, depth)):
        if end < 0:
            part = min(part, start / (start - end))
        elif end > most:
            part = min(part, (most - start) / (end - start))
    part = max(part, 0.0)
    return (*(start + (end - start) * part for start, end in zip(inner, outer)), 0.0)


def shortened(points, width, depth):
    """A stroke without what lies outside a box."""
    points = list(points)
    for end, inner in ((0, 1), (-1, -2)):
        start = tuple(min(max(value, 0), most)
                      for value, most in zip(points[inner], (width, depth)))
        points[end] = _inside(start, points[end][:2], width, depth)
    return points
