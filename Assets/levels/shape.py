"""The shape of a level's land: how far every place of the map is from its shore, and from what people use.

Plain Python with numpy, for Blender and outside of it. Places are map units, y down, as in the level's description.
"""
import importlib
import math
import os
import random
import sys

import numpy

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

LEVELS = 5
CROWN, TRUNK = 84, 16  # what a tree covers above and beside its foot, units
PATH_MARGIN = 27  # no tree's foot stands nearer to an arc


def level(number):
    return importlib.import_module(f"level{number}")


def smooth_ring(corners, steps=10, wobble=5.0, seed="ring"):
    """The closed curve through the corners, roughened a little."""
    r = random.Random(f"{seed}{len(corners)}")
    waves = [(r.uniform(0, 6.28), r.randint(9, 15), 0.6), (r.uniform(0, 6.28), r.randint(22, 34), 0.4)]
    n, out = len(corners), []
    for i in range(n):
        p = [corners[(i + k - 1) % n] for k in range(4)]
        for s in range(steps):
            t = s / steps
            x, y = (_through([q[axis] for q in p], t) for axis in (0, 1))
            turn = 2 * math.pi * (i + t) / n
            push = wobble * sum(high * math.sin(count * turn + phase) for phase, count, high in waves)
            out.append((x + push, y + push * 0.7))
    return out


def smooth_line(knots, steps=12):
    """The open curve through the knots."""
    p = [knots[0], *knots, knots[-1]]
    out = []
    for i in range(len(knots) - 1):
        for s in range(steps):
            out.append(tuple(_through([q[axis] for q in p[i:i + 4]], s / steps) for axis in (0, 1)))
    return [*out, knots[-1]]


def _through(v, t):
    """Between v[1] and v[2] on the smooth curve through four values."""
    return 0.5 * (2 * v[1] + (v[2] - v[0]) * t + (2 * v[0] - 5 * v[1] + 4 * v[2] - v[3]) * t * t
                  + (3 * v[1] - v[0] - 3 * v[2] + v[3]) * t**3)


def distance_to_lines(x, y, lines):
    """Of every place of the arrays x and y from the nearest of the segments (a, b)."""
    best = numpy.full(x.shape, 1e9)
    for (ax, ay), (bx, by) in lines:
        dx, dy = bx - ax, by - ay
        t = numpy.clip(((x - ax) * dx + (y - ay) * dy) / max(dx * dx + dy * dy, 1e-9), 0, 1)
        numpy.minimum(best, (x - ax - t * dx) ** 2 + (y - ay - t * dy) ** 2, out=best)
    return numpy.sqrt(best)


def inside(x, y, ring):
    odd = numpy.zeros(x.shape, dtype=bool)
    for (ax, ay), (bx, by) in zip(ring, ring[1:] + ring[:1]):
        if ay != by:
            odd ^= ((ay > y) != (by > y)) & (x < (bx - ax) * (y - ay) / (by - ay) + ax)
    return odd


def shore(lv, x, y):
    """Distance from the shore, above 0 on land; x and y are arrays of places."""
    ring = smooth_ring(lv.LAND)
    away = distance_to_lines(x, y, list(zip(ring, ring[1:] + ring[:1])))
    away = numpy.where(inside(x, y, ring), away, -away)
    for width, knots in lv.RIVERS:
        line = smooth_line(knots)
        off = distance_to_lines(x, y, list(zip(line, line[1:])))
        wave = 4 * numpy.sin(y * 0.045 + x * 0.01) + 2 * numpy.sin(y * 0.11)
        away = _rounded(away, off - width / 2 - wave, 26.0)
    return away


def _rounded(a, b, size):
    """The smaller of two distances, its edges rounded over `size`: mouths of rivers have no horns."""
    return numpy.minimum(a, b) - numpy.maximum(size - abs(a - b), 0) ** 2 / (4 * size)


def all_arcs(lv):
    """Every arc as (p1, p2, type, price)."""
    return ([(a, b, 1, {}) for a, b in lv.ROADS] + [(a, b, 0, {}) for a, b in lv.GROUND] + list(lv.OTHER_ARCS))


def arc_lines(lv):
    return [(lv.POINTS[a][:2], lv.POINTS[b][:2]) for a, b, _, _ in all_arcs(lv)]


def near_line(x, y, lines):
    return float(distance_to_lines(numpy.array([float(x)]), numpy.array([float(y)]), lines)[0])


def trees(lv):
    """The level's trees as (x, y, kind, size, stands): stands is true where a man can walk behind it.

    They keep off arcs, buildings, the shore and each other.
    """
    r = random.Random(f"trees{lv.SIZE}{len(lv.POINTS)}")
    lines = arc_lines(lv)
    houses = [lv.POINTS[b["point"]][:2] for b in lv.BUILDINGS]
    found = []
    for cx, cy, spread, count in lv.WOODS:
        for _ in range(count * 14):
            if count <= 0:
                break
            x, y = r.gauss(cx, spread * 0.62), r.gauss(cy, spread * 0.5)
            size = r.uniform(0.72, 1.08)
            kind = r.choice(("leaf", "leaf", "deep", "fir", "fir", "gold", "light", "autumn"))
            kind = "dead" if waste(lv, x, y) < 1.05 else kind
            if not _fits(lv, x, y, size, lines, houses, found):
                continue
            behind = any(near_line(x, y - up, lines) < TRUNK + 10 for up in range(0, int(CROWN * size), 8))
            behind = behind or not _on_land(lv, x, y, size) or any(abs(hx - x) < 62 and -14 < y - hy < 110 for hx, hy in houses)
            found.append((round(x, 1), round(y, 1), kind, round(size, 2), behind))
            count -= 1
    return sorted(found, key=lambda tree: tree[1])


def _fits(lv, x, y, size, lines, houses, found):
    if not (16 < x < lv.SIZE[0] - 16 and 30 < y < lv.SIZE[1] - 8):
        return False
    if near_line(x, y, lines) < PATH_MARGIN or any(math.hypot(hx - x, (hy - y) * 1.25) < 84 for hx, hy in houses):
        return False
    if any(math.hypot(px - x, py - y) < 40 or (abs(px - x) < 27 * size + 14 and -8 < y - py < 76 * size) for px, py, _ in lv.POINTS):
        return False  # too near to a point, or its crown would hide it
    if any(near_line(x, y - up * size, lines) < 17 for up in (24, 44, 62)):
        return False  # its crown would hide a path
    if any(abs(fx - x) < w / 2 + 14 and -h / 2 - 10 < y - fy < h / 2 + 66 * size for fx, fy, w, h in lv.FIELDS):
        return False
    if any(math.hypot(fx - x, (fy - y) * 1.4) < 21 for fx, fy, *_ in found):
        return False
    return float(shore(lv, numpy.array([float(x)]), numpy.array([float(y)]))[0]) > 15


def waste(lv, x, y):
    """How far a place lies from burnt ground: below 1 on it. x and y are numbers or arrays."""
    near = 9.0 + 0.0 * x
    for wx, wy, radius in lv.WASTE:
        near = numpy.minimum(near, numpy.hypot(x - wx, (y - wy) * 1.25) / radius)
    return near


def _on_land(lv, x, y, size):
    """Whether the land lies behind the whole tree, so that it can be part of the land's picture."""
    crown = [(dx * 26 * size, up * size) for up in (20, 45, CROWN) for dx in (-1, 1)]
    return bool((shore(lv, numpy.array([x + dx for dx, _ in crown]), numpy.array([y - up for _, up in crown])) > 2).all())
