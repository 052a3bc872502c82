"""The valley of the start screen and of the title: river, bridge, roads with caravans, fields, woods, mills.

Runs inside Blender. land() is the height of the ground, so that whatever stands on it can be placed by two
numbers. Metres; the viewer stands at EYE and looks along +y, a little down.
"""
import bisect
import math
import random

from mathutils import Quaternion

import props
import scene

EYE, LOOK_DOWN, LENS = (0.0, -34.0, 14.0), math.radians(8.5), 40.0
HAZE = (45, 330, 0.80)  # from which distance to which one, and how much
MILL = (-10.6, 12.5)
MILL_TURN = math.radians(24)
WATER = -0.9
BRIDGE = (2.6, 22.0)
POST = (13.75, -1.0)
RIVER = [(-30, -5), (-6, -2.2), (8, 0.5), (22, 2.6), (34, 9), (48, 17), (64, 17), (84, 4), (108, 2), (140, 14), (190, 26), (260, 10)]
ROAD = [(-15, -9), (-9.5, -3), (-6.8, 4), (-5.6, 11), (-3.8, 18), (-1.6, 21.2), (2.6, 22), (7, 22.8), (12, 26), (16.5, 33),
        (24, 39), (31, 46), (33, 58), (28, 74), (30, 100)]
LANE = [(-5.9, 9), (-8, 8.6), (-10.4, 8.8)]
FIELDS = [(15, 27.5, 25, 34.5, 0.35), (-16, 27, -5, 37, -0.12), (-31, 30, -19, 42, -0.12), (-24, 47, -8, 58, 0.1), (40, 52, 56, 66, 0.2),
          (-52, 56, -34, 70, -0.2), (8, 74, 26, 92, 0.15)]


def between(knots, at):
    """A smooth curve through knots of (place, value)."""
    i = min(max(bisect.bisect_right(knots, (at, 1e9)) - 1, 0), len(knots) - 2)
    (a, p), (b, q) = knots[i], knots[i + 1]
    t = min(max((at - a) / (b - a), 0), 1)
    before = (q - knots[i - 1][1]) / (b - knots[i - 1][0]) if i > 0 else 0
    after = (knots[i + 2][1] - p) / (knots[i + 2][0] - a) if i + 2 < len(knots) else 0
    s = (b - a)
    return ((2 * t**3 - 3 * t**2 + 1) * p + (t**3 - 2 * t**2 + t) * s * before
            + (-2 * t**3 + 3 * t**2) * q + (t**3 - t**2) * s * after)


def river(y):
    return between(RIVER, y)


def river_width(y):
    return 2.5 + 0.02 * max(0.0, y)


def _smooth(a, b, v):
    t = min(max((v - a) / (b - a), 0), 1)
    return t * t * (3 - 2 * t)


def _waves(x, y):
    return (math.sin(x * 0.11 + 1.3) * math.cos(y * 0.09 + 0.4) + 0.5 * math.sin(x * 0.23 + y * 0.17)
            + 0.25 * math.sin(x * 0.51 - y * 0.37 + 2))


def land(x, y):
    """Height of the ground: meadows by the river, the mill's knoll, hills on both sides, ridges far off."""
    away = abs(x - river(y))
    h = 0.45 * _waves(x, y)
    h += 2.3 * math.exp(-((x - MILL[0]) ** 2 + (y - MILL[1]) ** 2) / 46)
    h += 9.0 * _smooth(26, 75, away - 0.05 * y) * (1 + 0.25 * math.sin(x * 0.06 + y * 0.03))
    far = _smooth(95, 230, y)
    h += far * (14 + 9 * math.sin(x * 0.028 + 0.6) + 5 * math.sin(x * 0.067 + y * 0.02)) * _smooth(4, 60, away)
    h += _smooth(230, 420, y) * (22 + 17 * math.sin(x * 0.013 + 2.2) + 7 * math.sin(x * 0.041))
    bank = _smooth(river_width(y) - 0.6, river_width(y) + 2.4, away)
    return -2.2 + (h + 2.2) * bank if y < 240 else h


def _along(path, step):
    """Points every step metres on a smooth curve through path, with their direction."""
    marks, total = [0.0], 0.0
    for p, q in zip(path, path[1:]):
        total += math.hypot(q[0] - p[0], q[1] - p[1])
        marks.append(total)
    xs, ys = [(m, p[0]) for m, p in zip(marks, path)], [(m, p[1]) for m, p in zip(marks, path)]
    out = []
    for i in range(int(total / step) + 1):
        s = i * step
        x, y = between(xs, s), between(ys, s)
        out.append((x, y, math.atan2(between(ys, s + 0.1) - y, between(xs, s + 0.1) - x)))
    return out


def on_road(distance):
    """A place on the road, metres from its start: (x, y, direction)."""
    return min(_along(ROAD, 0.5), key=lambda p, i=[0]: abs(_next(i) * 0.5 - distance))


def _next(counter):
    counter[0] += 1
    return counter[0] - 1


def _near_path(x, y, points, limit):
    return any((x - px) ** 2 + (y - py) ** 2 < limit * limit for px, py, _ in points)


def in_field(x, y, margin=0.0):
    for x0, y0, x1, y1, slant in FIELDS:
        u = x - slant * (y - y0)
        if x0 - margin < u < x1 + margin and y0 - margin < y < y1 + margin:
            return True
    return False


def _ground():
    """The land as triangles that look alike in size from the viewer's place."""
    r = random.Random("ground")
    m = scene.Model("ground")
    rows, y = [], -14.0
    while y < 520:
        rows.append(y)
        y += 0.62 + 0.0165 * (y + 14)
    columns = 110
    for y in rows:
        half = (y - EYE[1]) * 0.56 + 4
        jitter = half / columns * 0.55
        for i in range(columns + 1):
            px = half * (2 * i / columns - 1) + r.uniform(-jitter, jitter)
            py = y + r.uniform(-0.2, 0.2) * (0.62 + 0.0165 * (y + 14))
            m.points.append((px, py, land(px, py)))
    for j in range(len(rows) - 1):
        for i in range(columns):
            a = j * (columns + 1) + i
            b, c, d = a + 1, a + columns + 1, a + columns + 2
            for f in ((a, b, d), (a, d, c)) if (i + j) % 2 else ((a, b, c), (b, d, c)):
                m.faces.append(f)
                m.colours.append(_ground_colour([m.points[k] for k in f], r))
    return m.build()


def _ground_colour(corners, r):
    x, y, z = (sum(c[i] for c in corners) / 3 for i in range(3))
    if y > 300:
        return "far_hill"
    if abs(x - river(y)) < river_width(y) + 1.0 + r.uniform(0, 0.5) and y < 240:
        return "bank"
    v = math.sin(x * 0.19 + 0.7) * math.sin(y * 0.13) + 0.4 * math.sin(x * 0.4 + y * 0.3) + r.uniform(-0.28, 0.28)
    if v > 0.75:
        return "meadow_dry"
    return "meadow_light" if v > 0.25 else "meadow" if v > -0.45 else "meadow_dark"


def _river():
    scene.water_material()
    m = scene.Model("river")
    m.add([(-90, -20, WATER), (90, -20, WATER), (140, 236, WATER), (-140, 236, WATER)], [(0, 1, 2, 3)], "water")
    return m.build()


def _ribbon(name, path, width):
    """A road on the ground, with worn edges."""
    m = scene.Model(name)
    r = random.Random(name)
    points = _along(path, 0.7)
    offsets = (-width / 2 - 0.25, -width / 2 + 0.2, -width * 0.14, width * 0.14, width / 2 - 0.2, width / 2 + 0.25)
    for x, y, way in points:
        for o in offsets:
            wide = o + r.uniform(-0.12, 0.12)
            px, py = x - math.sin(way) * wide, y + math.cos(way) * wide
            lift = 0.015 if abs(o) > width / 2 else 0.10
            m.points.append((px, py, max(land(px, py), land(x, y) - 0.1) + lift))
    n = len(offsets)
    for i in range(len(points) - 1):
        x, y, _ = points[i]
        if math.hypot(x - BRIDGE[0], y - BRIDGE[1]) < 4.6:
            continue
        for k in range(n - 1):
            a = i * n + k
            m.faces.append((a, a + 1, a + n + 1, a + n))
            m.colours.append("road_edge" if k in (0, n - 2) else "road_edge" if k == 2 and r.random() < 0.75 else "road")
    return m.build()


def _field(number, rect):
    """Wheat or ploughed soil in rows that follow the land."""
    x0, y0, x1, y1, slant = rect
    m = scene.Model(f"field{number}")
    ripe = number % 3 != 2
    step = 0.75
    for i in range(int((x1 - x0) / step)):
        high = 0.62 if ripe else 0.2
        colour = ("wheat", "wheat_dark") if ripe else ("soil", "furrow")
        n = int((y1 - y0) / 1.2) + 1
        for k in range(n + 1):
            y = y0 + (y1 - y0) * k / n
            for du, up in ((0.02, 0.0), (0.2, high), (0.52, high * (1 + 0.1 * m.random.uniform(-1, 1))), (0.73, 0.0)):
                x = x0 + i * step + du + slant * (y - y0)
                m.points.append((x, y, land(x, y) + up + 0.03))
        base = i * (n + 1) * 4
        for k in range(n):
            for e in range(3):
                a = base + k * 4 + e
                m.faces.append((a, a + 1, a + 5, a + 4))
                m.colours.append(colour[0] if e == 1 else colour[1] if e == 2 else colour[0])
        m.faces.append((base, base + 1, base + 2, base + 3))
        m.colours.append(colour[1])
    return m.build()


def _stand(mesh, x, y, turn=0.0, scale=1.0, sink=0.0):
    return scene.place(mesh, (x, y, land(x, y) - sink), turn, scale)


def _free(x, y, roads, margin):
    return (abs(x - river(y)) > river_width(y) + margin and not _near_path(x, y, roads, margin + 0.8)
            and not in_field(x, y, 0.8) and math.hypot(x - MILL[0], y - MILL[1]) > 5.5)


def _calm(x, y):
    """Where the boards hang and around the mill's wheel no tree stands in the way."""
    depth = y - EYE[1]
    column, row = 400 + 889 * x / depth, 167 + 889 * (EYE[2] - land(x, y)) / depth
    return (column > 500 and row > 345) or (column < 330 and row > 240 and y < 40)


def _woods(roads):
    r = random.Random("woods")
    leafy = [props.round_tree(i, *c) for i, c in enumerate((("leaf", "leaf_light"), ("leaf_dark", "leaf"), ("leaf", "leaf_light"),
                                                            ("leaf_light", "meadow_light"), ("leaf_autumn", "wheat")))]
    firs, tall = [props.fir(i) for i in range(3)], [props.poplar(i) for i in range(2)]
    clumps = [(26, 30, 6, 26), (38, 38, 9, 36), (-36, 24, 7, 26), (-22, 62, 8, 26), (46, 78, 14, 50), (-48, 82, 16, 60), (-20, 100, 12, 40),
              (60, 120, 22, 70), (-80, 130, 26, 90), (20, 120, 8, 22), (-10, 150, 18, 60), (48, 165, 26, 80), (-120, 190, 30, 80),
              (110, 190, 34, 90), (-40, 200, 26, 70), (32, 62, 5, 10), (-30, 8, 5, 12)]
    for cx, cy, spread, count in clumps:
        for _ in range(count):
            x, y = r.gauss(cx, spread * 0.5), r.gauss(cy, spread * 0.5)
            kind = r.random()
            tree = r.choice(leafy[:4]) if kind < 0.58 else r.choice(firs) if kind < 0.9 else leafy[4]
            size, turn = r.uniform(0.8, 1.3), r.uniform(0, 6.28)
            if y > 12 and _free(x, y, roads, 1.5) and not _calm(x, y):
                _stand(tree, x, y, turn, size, 0.1)
    for k in range(9):  # a row along the river
        y = 40 + k * 6
        _stand(tall[k % 2], river(y) - river_width(y) - 2.2, y, k, 0.95 + 0.1 * (k % 3))
    for x0, y0, x1, y1, slant in FIELDS:  # hedgerows round the fields
        for k in range(int((y1 - y0) / 1.5)):
            y = y0 + k * 1.5 + r.uniform(-0.3, 0.3)
            x = x1 + 1.1 + slant * (y - y0)
            if not _near_path(x, y, roads, 2.0):
                _stand(props_bush(r), x, y, r.uniform(0, 6), r.uniform(0.9, 1.3))


_bushes = []


def props_bush(r):
    if not _bushes:
        _bushes.extend(props.bush(i, c) for i, c in enumerate(("leaf_dark", "leaf", "leaf_dark")))
    return r.choice(_bushes)


def _small_growth(roads):
    r = random.Random("small")
    tufts, blooms = [props.grass(i) for i in range(4)], [props.flowers(i) for i in range(3)]
    stones = [props.rock(i) for i in range(3)]
    for _ in range(520):
        y = -8 + 42 * r.random() ** 1.6
        x = r.uniform(-1, 1) * (y - EYE[1]) * 0.5
        if abs(x - river(y)) > river_width(y) + 1.2 and not _near_path(x, y, roads, 1.6) and not in_field(x, y, 0.3):
            pick = r.random()
            bloom = pick > (0.96 if _calm(x, y) else 0.84)
            what = r.choice(blooms) if bloom else r.choice(tufts)
            _stand(what, x, y, r.uniform(0, 6), r.uniform(0.7, 1.15))
    for _ in range(70):  # stones at the water's edge
        y = -8 + 50 * r.random() ** 1.4
        side = r.choice((-1, 1))
        x = river(y) + side * (river_width(y) + r.uniform(-0.6, 0.8))
        if abs(y - BRIDGE[1]) > 4:
            _stand(r.choice(stones), x, y, r.uniform(0, 6), r.uniform(0.35, 0.9))
    for _ in range(26):
        y = r.uniform(-4, 34)
        x = r.uniform(-1, 1) * (y - EYE[1]) * 0.5
        if _free(x, y, roads, 1.8) and not _calm(x, y):
            _stand(props_bush(r), x, y, r.uniform(0, 6), r.uniform(0.7, 1.2))


def _village():
    red, dark, straw = props.house(1, "roof"), props.house(2, "roof_dark", (5.2, 3.4)), props.house(3, "thatch", (3.8, 3.0))
    for mesh, x, y, turn, size in ((red, 19.5, 43, 0.35, 1.15), (straw, 26.5, 47, -0.4, 1.2), (dark, 35.5, 49, -0.2, 1.2),
                                   (red, 29, 54, 0.5, 1.2), (straw, 38, 60, 0.1, 1.2), (dark, 24, 58, 0.3, 1.2),
                                   (straw, -17.5, 17.5, 0.5, 1.05), (red, -28, 50, 0.4, 1.2), (dark, -36, 47, -0.2, 1.2),
                                   (straw, -40, 100, 0.3, 1.3), (red, -46, 104, -0.3, 1.3)):
        _stand(mesh, x, y, turn, size)
    stack = props.haystack()
    for x, y in ((-17, 43), (-13, 45), (27.5, 31), (-21.5, 12), (5, 96), (-29, 60)):
        _stand(stack, x, y, x, 1.1)


def _far_mills():
    tower, wheel = props.windmill(), props.sails()
    for x, y, turn, size, spin in ((41, 92, -0.3, 1.0, 0.5), (-44, 118, 0.3, 1.1, 1.0), (26, 150, -0.2, 1.2, 0.2)):
        body = _stand(tower, x, y, turn, size)
        stand_sails(wheel, body.location, turn, size, spin)


def stand_sails(wheel, base, turn, size, spin):
    """Puts a mill's wheel before its cap, spin radians on its way round."""
    x, y, z = (c * size for c in props.MILL_HUB)
    at = (base[0] + x * math.cos(turn) - y * math.sin(turn), base[1] + x * math.sin(turn) + y * math.cos(turn), base[2] + z)
    o = scene.place(wheel, at, 0, size)
    spin_sails(o, turn, spin)
    return o


def spin_sails(wheel, turn, spin):
    """Turns a standing wheel: turn is its mill's, spin its own way round, against the clock for the viewer."""
    wheel.rotation_mode = "QUATERNION"
    wheel.rotation_quaternion = (Quaternion((0, 0, 1), turn) @ Quaternion((1, 0, 0), -props.MILL_LEAN)
                                 @ Quaternion((0, 1, 0), -spin))


def _caravan(start, carts, roads_height):
    """Carts with their oxen and men, the last one at start metres of the road."""
    wagons = [props.cart("canvas", "paint_red"), props.cart("canvas", "cobalt")]
    beasts = [props.ox("ox", "ox_light"), props.ox("soil", "ox_light")]
    men = [props.man(c, l) for c, l in (("shirt_red", "staff"), ("shirt_blue", "sack"), ("shirt_green", None))]
    size = 1.12
    for k in range(carts):
        s = start + k * 8.6
        for mesh, ahead, aside in ((wagons[k % 2], 0, 0), (beasts[k % 2], 3.1, 0.42), (beasts[(k + 1) % 2], 3.1, -0.42), (men[k % 3], 4.9, -1.3),
                                   (men[(k + 1) % 3], -2.8, 0.5)):
            x, y, way = on_road(s + ahead * size)
            px, py = x - math.sin(way) * aside, y + math.cos(way) * aside
            tip = on_road(s + ahead * size + 1.0)
            lean = math.atan2(roads_height(tip[0], tip[1]) - roads_height(x, y), 1.0)
            o = scene.place(mesh, (px, py, roads_height(x, y) + 0.1), way, size)
            o.rotation_euler[1] = -lean * (0 if mesh.name.startswith("man") else 1)


def _bridge_angle():
    a, b = [min(_along(ROAD, 0.5), key=lambda p: abs(p[0] - BRIDGE[0] - d)) for d in (-3, 3)]
    return math.atan2(b[1] - a[1], b[0] - a[0])


BRIDGE_LENGTH, BRIDGE_RISE, BRIDGE_FOOT = 11.4, 1.35, 0.45


def _road_height(x, y):
    """Height of what one walks on: the bridge's deck or the ground."""
    d = math.hypot(x - BRIDGE[0], y - BRIDGE[1])
    if d < BRIDGE_LENGTH / 2:
        return BRIDGE_FOOT + BRIDGE_RISE * (1 - (2 * d / BRIDGE_LENGTH) ** 2)
    return land(x, y)


def build(post=True, caravans=((17.5, 1), (36.5, 2))):
    """Everything but the big mill and its wheel; caravans: (metres along the road of the last cart, carts)."""
    roads = _along(ROAD, 0.8) + _along(LANE, 0.8)
    for mesh in (_ground(), _river(), _ribbon("road", ROAD, 2.1), _ribbon("lane", LANE, 1.5)):
        scene.place(mesh)
    for number, rect in enumerate(FIELDS):
        scene.place(_field(number, rect))
    scene.place(props.arch_bridge(BRIDGE_LENGTH, 3.0, BRIDGE_RISE), (*BRIDGE, BRIDGE_FOOT), _bridge_angle())
    _woods(roads)
    _small_growth(roads)
    _village()
    _far_mills()
    for start, carts in caravans:
        _caravan(start, carts, _road_height)
    if post:
        _stand(props.signpost(), *POST)
    rail = props.fence(4.0)
    for k in range(3):
        _stand(rail, -18.5 + 4.1 * k, 5.2 - 0.7 * k, -0.17)


def build_mill():
    """The big mill's tower and its wheel, as two objects."""
    body = _stand(props.windmill(), *MILL, MILL_TURN, 1.0)
    return body, props.sails()
