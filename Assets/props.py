"""The things of Brindle's world as low-poly models: mills, houses, trees, rocks, carts, men.

Every function returns a built mesh standing on the ground at the origin, ready for scene.place(). The
front looks at the viewer (towards -y) unless said otherwise; carts, oxen and men look along +x. Colours
are palette names. Sizes are metres; men are a little big beside the houses, so that they can be seen.
"""
import math

import scene

MILL_HUB = (0.0, -3.05, 9.3)  # the sails' axle: middle of the wheel, in the mill's own coordinates
MILL_SAIL = 5.6  # length of a sail
MILL_LEAN = math.radians(6)  # the wheel leans back


def windmill():
    """A timbered tower mill of eight sides with a gallery; its sails are apart (sails())."""
    m = scene.Model("windmill")
    m.prism((0, 0, -1.2), 3.35, 3.15, 2.6, 8, "stone", spin=math.pi / 8)
    m.prism((0, 0, 1.4), 3.3, 3.3, 0.22, 8, "stone_dark", spin=math.pi / 8)
    m.prism((0, 0, 1.6), 2.9, 1.95, 6.6, 8, "plaster", spin=math.pi / 8)
    _mill_timber(m)
    _mill_gallery(m)
    _mill_cap(m)
    m.box((0, -3.05, 0.55), (1.25, 0.3, 1.9), "timber")
    m.box((0, -3.2, 0.5), (1.0, 0.12, 1.7), "plank_light")
    m.box((0, -2.35, 5.0), (0.85, 0.3, 1.05), "timber", turn=(-0.14, 0, 0))
    m.box((0, -2.47, 5.0), (0.62, 0.12, 0.82), "window", turn=(-0.14, 0, 0))
    m.box((1.75, -1.75, 4.2), (0.3, 0.75, 0.95), "timber", turn=(0, 0.14, -math.pi / 4))
    m.box((1.85, -1.85, 4.2), (0.12, 0.52, 0.72), "window", turn=(0, 0.14, -math.pi / 4))
    return m.build(0.05)


def _mill_timber(m):
    for i in range(8):  # a post on each edge of the tower
        a = math.pi / 8 + i * math.pi / 4
        low, high = (2.93 * math.cos(a), 2.93 * math.sin(a), 1.6), (1.98 * math.cos(a), 1.98 * math.sin(a), 8.2)
        beam(m, low, high, 0.2, "timber")
    for z, r in ((3.4, 2.67), (5.9, 2.31), (8.1, 2.02)):
        for i in range(8):
            a, b = math.pi / 8 + i * math.pi / 4, math.pi / 8 + (i + 1) * math.pi / 4
            beam(m, (r * math.cos(a), r * math.sin(a), z), (r * math.cos(b), r * math.sin(b), z), 0.16, "timber")


def _mill_gallery(m):
    for i in range(8):
        a, b = math.pi / 8 + i * math.pi / 4, math.pi / 8 + (i + 1) * math.pi / 4
        inner = [(2.5 * math.cos(t), 2.5 * math.sin(t)) for t in (a, b)]
        outer = [(3.75 * math.cos(t), 3.75 * math.sin(t)) for t in (a, b)]
        deck = [(*inner[0], 2.9), (*inner[1], 2.9), (*outer[1], 2.9), (*outer[0], 2.9)]
        deck += [(x, y, 3.06) for x, y, _ in deck]
        m.add(deck, [(0, 1, 2, 3), (4, 7, 6, 5), (0, 4, 5, 1), (1, 5, 6, 2), (2, 6, 7, 3), (3, 7, 4, 0)], "plank")
        beam(m, (*outer[0], 3.95), (*outer[1], 3.95), 0.12, "plank_light")
        beam(m, (*outer[0], 3.0), (*outer[0], 4.0), 0.14, "timber")
        beam(m, (2.75 * math.cos(a), 2.75 * math.sin(a), 1.7), (3.6 * math.cos(a), 3.6 * math.sin(a), 2.9), 0.14, "timber")


def _mill_cap(m):
    m.prism((0, 0, 8.2), 2.2, 2.25, 0.35, 8, "timber", spin=math.pi / 8)
    m.prism((0, 0, 8.5), 2.4, 1.6, 1.2, 8, "roof", spin=math.pi / 8)
    m.prism((0, 0, 9.7), 1.6, 0.12, 1.25, 8, "roof", spin=math.pi / 8)
    m.box((0, -1.75, 9.2), (1.15, 1.3, 1.1), "plank")
    m.gable((0, -1.75, 9.75), (1.5, 1.15, 0.5), "roof_dark", overhang=0.1)
    m.prism((0, 0, 10.9), 0.14, 0.14, 0.3, 6, "gold")


def sails():
    """The mill's wheel in the plane y = 0 about the origin: four lattice sails with canvas."""
    m = scene.Model("sails")
    for i in range(4):
        a = i * math.pi / 2
        m.box(_spun((0, 0, MILL_SAIL / 2), a), (0.2, 0.2, MILL_SAIL), "timber", turn=(0, a, 0))
        m.box(_spun((0.62, 0.03, MILL_SAIL * 0.61), a), (0.95, 0.07, MILL_SAIL * 0.72), "canvas", turn=(0, a, 0))
        for k in range(6):
            z = MILL_SAIL * (0.25 + 0.144 * k)
            m.box(_spun((0.56, -0.05, z), a), (1.14, 0.08, 0.09), "timber", turn=(0, a, 0))
        m.box(_spun((1.09, -0.05, MILL_SAIL * 0.61), a), (0.09, 0.1, MILL_SAIL * 0.73), "timber", turn=(0, a, 0))
    m.prism((0, -0.35, 0), 0.42, 0.42, 0.7, 8, "timber", turn=(-math.pi / 2, 0, 0))
    m.prism((0, -0.5, 0), 0.2, 0.2, 0.3, 8, "gold", turn=(-math.pi / 2, 0, 0))
    return m.build(0.02)


def _spun(p, a):
    """About the y axis, the way Model.box turns."""
    return (p[0] * math.cos(a) + p[2] * math.sin(a), p[1], -p[0] * math.sin(a) + p[2] * math.cos(a))


def beam(m, p, q, thick, colour):
    """A square beam between two points."""
    d = [q[i] - p[i] for i in range(3)]
    length = math.sqrt(sum(c * c for c in d))
    yaw, pitch = math.atan2(d[1], d[0]), math.atan2(d[2], math.hypot(d[0], d[1]))
    centre = tuple((p[i] + q[i]) / 2 for i in range(3))
    m.box(centre, (length + thick * 0.6, thick, thick), colour, turn=(0, -pitch, yaw))


def house(seed=1, roof="roof", size=(4.4, 3.2)):
    """A half-timbered house with its door and windows in front."""
    m = scene.Model("house", seed)
    w, d = size
    m.box((0, 0, 0.0), (w + 0.25, d + 0.25, 1.0), "stone")
    m.box((0, 0, 1.5), (w, d, 2.2), "plaster")
    for x in (-w / 2, -w / 6, w / 6, w / 2):
        m.box((x, -d / 2, 1.5), (0.16, 0.12, 2.2), "timber")
    for y in (-d / 2, 0, d / 2):
        for x in (-w / 2, w / 2):
            m.box((x, y, 1.5), (0.12, 0.16, 2.2), "timber")
    for z in (0.6, 1.6, 2.52):
        m.box((0, -d / 2 - 0.02, z), (w + 0.1, 0.1, 0.14), "timber")
        m.box((0, 0, z), (w + 0.1, d + 0.02, 0.13), "timber")
    m.box((-w / 3, -d / 2 - 0.05, 1.15), (0.8, 0.12, 1.5), "plank_dark")
    for x in (0, w / 3):
        m.box((x, -d / 2 - 0.06, 2.05), (0.66, 0.1, 0.6), "timber")
        m.box((x, -d / 2 - 0.1, 2.05), (0.5, 0.1, 0.45), "window")
    m.gable((0, 0, 2.6), (w, d, 1.9), roof, 0.35, wall="plaster")
    m.box((w / 4, 0.5, 4.2), (0.55, 0.55, 1.6), "stone_dark")
    return m.build(0.04)


def round_tree(seed, colour="leaf", light="leaf_light"):
    m = scene.Model("round_tree", seed)
    r = m.random
    m.prism((0, 0, -0.4), 0.28, 0.16, 2.2, 6, "trunk")
    m.blob((0, 0, 2.9), r.uniform(1.45, 1.7), colour, squash=0.92)
    for _ in range(3):
        a = r.uniform(0, 6.28)
        m.blob((0.85 * math.cos(a), 0.85 * math.sin(a), r.uniform(2.2, 3.3)), r.uniform(0.8, 1.05), colour)
    m.blob((-0.45, -0.3, 3.75), r.uniform(0.85, 1.0), light)
    return m.build()


def dead_tree(seed=1):
    """A charred trunk with bare branches."""
    m = scene.Model("dead_tree", seed)
    m.prism((0, 0, -0.3), 0.34, 0.2, 2.0, 7, "log")
    m.prism((0, 0, 1.6), 0.2, 0.08, 1.7, 6, "log", turn=(0.12, -0.1, 0))
    for z, way, rise, long in ((1.3, 0.4, 0.9, 1.3), (1.7, 2.6, 0.8, 1.5), (2.2, 4.4, 1.0, 1.0), (2.5, 5.6, 0.9, 0.9), (2.7, 1.6, 1.1, 0.7)):
        tip = (long * math.cos(way), long * math.sin(way) * 0.7, z + rise)
        beam(m, (0, 0, z), tip, 0.13, "log")
        beam(m, tuple(0.6 * c for c in tip[:2]) + (z + 0.6 * rise,), (tip[0] * 0.7, tip[1] + 0.35, tip[2] + 0.35), 0.08, "log_light")
    return m.build(0.01)


def bones(seed):
    m = scene.Model("bones", seed)
    for i in range(4):
        x, y, a = m.random.uniform(-0.5, 0.5), m.random.uniform(-0.3, 0.3), m.random.uniform(0, 3)
        beam(m, (x, y, 0.06), (x + 0.5 * math.cos(a), y + 0.5 * math.sin(a), 0.1), 0.09, "quill_shade")
    m.blob((0.1, 0, 0.16), (0.2, 0.17, 0.17), "quill", rough=0.05)
    for side in (-1, 1):
        m.blob((0.1 + side * 0.08, -0.14, 0.19), 0.05, "ink", rough=0.02)
    return m.build()


def poplar(seed):
    m = scene.Model("poplar", seed)
    m.prism((0, 0, -0.3), 0.2, 0.14, 1.2, 6, "trunk")
    m.blob((0, 0, 3.6), (0.8, 0.8, 3.0), "leaf", rough=0.1)
    m.blob((-0.2, -0.2, 4.6), (0.55, 0.55, 2.1), "leaf_light", rough=0.1)
    return m.build()


def fir(seed):
    m = scene.Model("fir", seed)
    m.prism((0, 0, -0.3), 0.22, 0.16, 1.2, 6, "trunk")
    for i, (z, r) in enumerate(((0.6, 1.35), (1.7, 1.1), (2.8, 0.85), (3.8, 0.55))):
        m.prism((0, 0, z), r, 0.05, 1.9, 7, "fir" if i % 2 else "fir_dark", spin=m.random.uniform(0, 1))
    return m.build()


def bush(seed, colour="leaf_dark"):
    m = scene.Model("bush", seed)
    for i in range(4):
        a = i * 1.7 + m.random.uniform(-0.3, 0.3)
        m.blob((0.5 * math.cos(a), 0.4 * math.sin(a), 0.3), m.random.uniform(0.45, 0.65), colour, squash=0.85)
    m.blob((-0.1, -0.1, 0.65), 0.5, "leaf")
    return m.build()


def rock(seed, colour="rock"):
    m = scene.Model("rock", seed)
    m.blob((0, 0, 0.15), (0.8, 0.6, 0.5), colour, rough=0.2)
    m.blob((0.5, -0.25, 0.05), (0.35, 0.3, 0.28), "rock_dark", rough=0.2)
    return m.build(0.03)


def flowers(seed):
    m = scene.Model("flowers", seed)
    for _ in range(9):
        x, y, h = m.random.uniform(-0.8, 0.8), m.random.uniform(-0.5, 0.5), m.random.uniform(0.25, 0.5)
        m.prism((x, y, -0.1), 0.03, 0.03, h, 4, "leaf_dark")
        m.blob((x, y, h - 0.05), 0.11, m.random.choice(["flower_red", "flower_white", "gold"]), fine=0)
    return m.build()


def grass(seed):
    m = scene.Model("grass", seed)
    for _ in range(9):
        x, y = m.random.uniform(-0.45, 0.45), m.random.uniform(-0.3, 0.3)
        lean = m.random.uniform(-0.35, 0.35)
        m.prism((x, y, -0.08), 0.07, 0.0, m.random.uniform(0.35, 0.75), 4,
                m.random.choice(["meadow_dark", "meadow_light", "leaf"]), turn=(lean, lean * 0.6, 0))
    return m.build()


def reeds(seed):
    m = scene.Model("reeds", seed)
    for i in range(8):
        x, y, high = m.random.uniform(-0.5, 0.5), m.random.uniform(-0.25, 0.25), m.random.uniform(0.8, 1.35)
        lean = m.random.uniform(-0.16, 0.16)
        m.prism((x, y, -0.3), 0.05, 0.02, high + 0.3, 4, m.random.choice(["meadow_dark", "leaf"]), turn=(lean, lean, 0))
        if i % 2:
            m.prism((x + lean * high * 0.8, y - lean * high * 0.8, high - 0.32), 0.07, 0.06, 0.3, 6, "timber", turn=(lean, lean, 0))
    return m.build()


def haystack(seed=1):
    m = scene.Model("haystack", seed)
    m.prism((0, 0, -0.1), 1.0, 1.15, 0.8, 9, "thatch")
    m.prism((0, 0, 0.7), 1.2, 0.1, 1.1, 9, "wheat")
    return m.build(0.06)


def fence(length=4.0):
    """A rail fence along x from the origin."""
    m = scene.Model(f"fence{length}")
    posts = max(2, round(length / 1.3) + 1)
    for i in range(posts):
        m.box((length * i / (posts - 1), 0, 0.42), (0.14, 0.14, 1.1), "plank_dark")
    for z in (0.4, 0.8):
        m.box((length / 2, -0.09, z), (length + 0.2, 0.07, 0.13), "plank_light")
    return m.build(0.02)


def cart(cover="canvas", band="paint_red", spin=0.0, opened=0.0):
    """A covered wagon that rolls along +x; the shaft reaches to x = 2.6.

    spin: how far its wheels have turned, radians; opened: how much of its cover is rolled back, 0 to 1.
    """
    m = scene.Model("cart", cover + band)
    m.box((0, 0, 0.95), (2.9, 1.3, 0.14), "plank")
    for y in (-0.68, 0.68):
        m.box((0, y, 1.25), (2.95, 0.1, 0.55), "plank_light")
        m.box((0, y * 1.04, 1.47), (3.0, 0.1, 0.12), band)
    for x in (-1.45, 1.45):
        m.box((x, 0, 1.2), (0.1, 1.3, 0.45), "plank")
    n = 7
    for i in range(n):
        a, b = math.pi * i / n, math.pi * (i + 1) / n
        arc = [(x, 0.74 * math.cos(t) * 1.02, 1.5 + 0.95 * math.sin(t)) for t in (a, b) for x in (-1.4, 1.4 - 2.45 * opened)]
        m.add(arc, [(0, 1, 3, 2)], cover)
        for x in (-1.42, 0.0, 1.42):
            beam(m, (x, 0.77 * math.cos(a), 1.5 + 0.98 * math.sin(a)), (x, 0.77 * math.cos(b), 1.5 + 0.98 * math.sin(b)), 0.09, "plank_light")
        if opened:
            x = 1.4 - 2.45 * opened  # the roll of what is no longer spread
            beam(m, (x, 0.8 * math.cos(a), 1.5 + math.sin(a)), (x, 0.8 * math.cos(b), 1.5 + math.sin(b)), 0.14 + 0.14 * opened, cover)
    for x, tip in ((-1.38, 0.25), (1.38, -0.25))[:1 if opened else 2]:
        end = [(x, 0.74 * math.cos(math.pi * i / n), 1.5 + 0.95 * math.sin(math.pi * i / n)) for i in range(n + 1)]
        m.add(end, [tuple(range(n + 1))], "soil")
    for x in (-0.95, 0.95):
        for y in (-0.85, 0.85):
            m.wheel((x, y, 0.62), 0.62, "timber", rim=0.12, width=0.14, spin=spin)
    beam(m, (1.4, 0, 0.75), (3.6, 0, 0.85), 0.11, "timber")
    return m.build(0.015)


def ox(colour="ox", patch="ox_light", stride=None):
    """A brindled ox that looks along +x; stride: how far through its step it is, 0 to 1, none where it stands."""
    m = scene.Model("ox", colour)
    m.blob((0, 0, 1.05), (0.98, 0.46, 0.5), colour, rough=0.04)
    m.blob((0.62, 0, 1.22), (0.45, 0.4, 0.5), colour, rough=0.04)
    m.blob((-0.45, 0, 1.12), (0.4, 0.47, 0.45), patch, rough=0.05)
    for x in (-0.62, 0.6):
        for y in (-0.24, 0.24):
            if stride is None:
                m.prism((x, y, 0), 0.1, 0.16, 0.9, 6, colour)
                continue
            step = 2 * math.pi * (stride + (0.5 if (x < 0) == (y < 0) else 0.0))
            beam(m, (x, y, 0.9), (x + 0.34 * math.sin(step), y, 0.16 * max(0.0, math.cos(step))), 0.24, colour)
    m.blob((1.18, 0, 1.3), (0.36, 0.22, 0.25), colour, rough=0.03)
    m.blob((1.45, 0, 1.2), (0.16, 0.17, 0.16), patch, rough=0.03)
    for y in (-1, 1):
        beam(m, (1.1, y * 0.18, 1.5), (1.2, y * 0.5, 1.68), 0.09, "horn")
        beam(m, (1.2, y * 0.5, 1.68), (1.32, y * 0.5, 1.9), 0.07, "horn")
    m.box((0.85, 0, 1.72), (0.14, 1.3, 0.14), "timber")
    beam(m, (-0.95, 0, 1.25), (-1.1, 0, 0.6), 0.07, colour)
    return m.build(0.01)


def man(shirt="shirt_red", load=None, seed=1, hat="hat"):
    """A man who walks along +x, with a straw hat; load: "sack" on his shoulder, "staff" in his hand, or none."""
    m = scene.Model("man", f"{shirt}{load}{seed}{hat}")
    m.box((0.22, 0.13, 0.38), (0.2, 0.2, 0.8), "trousers", turn=(0, -0.45, 0))
    m.box((-0.2, -0.13, 0.38), (0.2, 0.2, 0.8), "trousers", turn=(0, 0.45, 0))
    m.prism((0, 0, 0.72), 0.26, 0.3, 0.66, 7, shirt)
    m.box((0, 0, 0.78), (0.5, 0.5, 0.1), "timber")
    m.blob((0.02, 0, 1.58), 0.21, "skin", rough=0.03)
    m.prism((0.02, 0, 1.66), 0.42, 0.4, 0.06, 9, hat)
    m.prism((0.02, 0, 1.7), 0.22, 0.17, 0.2, 7, hat)
    arm = 0.5 if load != "sack" else -2.2
    m.box((0.14, -0.33, 1.1), (0.15, 0.15, 0.55), shirt, turn=(0, -arm, 0))
    m.box((-0.1, 0.33, 1.1), (0.15, 0.15, 0.55), shirt, turn=(0, 0.4, 0))
    if load == "sack":
        m.blob((-0.15, -0.28, 1.55), (0.42, 0.26, 0.28), "canvas", rough=0.06)
    if load == "staff":
        beam(m, (0.42, -0.34, 0.0), (0.36, -0.34, 1.9), 0.06, "plank_light")
    return m.build(0.01)


def arch_bridge(length, width, rise, arches=2):
    """A stone bridge along x, its deck at z = 0 at both ends and rise in the middle, down to z = -3."""
    m = scene.Model("bridge")
    n = arches * 10
    xs = [length * (i / n - 0.5) for i in range(n + 1)]

    def deck(x):
        return rise * (1 - (2 * x / length) ** 2)

    def under(x):
        span = length / arches * 0.98
        u = ((x + length / 2) % (length / arches) - length / arches / 2) / (span / 2 * 0.86)
        return -3.0 if abs(u) >= 1 else min(deck(x) - 0.4, -2.6 + 3.35 * math.sqrt(1 - u * u))

    for i in range(n):
        a, b = xs[i], xs[i + 1]
        lows = (under(a + 1e-4), under(b - 1e-4))
        for side in (-1, 1):
            y = side * width / 2
            m.add([(a, y, lows[0]), (b, y, lows[1]), (b, y, deck(b)), (a, y, deck(a))], [(0, 1, 2, 3)], "stone_dark" if i % 3 == 1 else "stone")
            for z0, z1, half, colour in ((0.0, 0.62, 0.16, "stone"), (0.62, 0.76, 0.24, "stone_dark")):
                p = [(x, y + s * half, deck(x) + z) for z in (z0, z1) for x in (a, b) for s in (-1, 1)]
                m.add(p, [(0, 2, 3, 1), (4, 5, 7, 6), (0, 1, 5, 4), (2, 6, 7, 3), (0, 4, 6, 2), (1, 3, 7, 5)], colour)
        w = width / 2
        m.add([(a, -w, lows[0]), (b, -w, lows[1]), (b, w, lows[1]), (a, w, lows[0])], [(0, 1, 2, 3)], "stone_dark")
        m.add([(a, -w, deck(a)), (b, -w, deck(b)), (b, w, deck(b)), (a, w, deck(a))], [(0, 1, 2, 3)], "road")
    for x in (-length / 2, length / 2):
        for y in (-width / 2, width / 2):
            m.box((x, y, 0.2), (0.75, 0.75, 2.4), "stone")
            m.box((x, y, 1.45), (0.95, 0.95, 0.2), "stone_dark")
    return m.build(0.02)


def bunker():
    """The enemy's den: a squat house of logs behind spikes, with torn red banners."""
    m = scene.Model("bunker")
    for k in range(5):
        inset = 0.09 * k
        for side in (-1, 1):
            m.prism((-1.9 + inset, side * (1.45 - inset), 0.25 + 0.42 * k), 0.24, 0.24, 3.8 - 2 * inset, 7, "log", turn=(0, math.pi / 2, 0))
            m.prism((side * (1.75 - inset), 1.6 - inset, 0.25 + 0.42 * k), 0.24, 0.24, 3.2 - 2 * inset, 7, "log_light", turn=(math.pi / 2, 0, 0))
    m.box((0, 0, 1.1), (3.1, 2.5, 2.0), "ink")
    m.gable((0, 0, 2.2), (3.3, 2.6, 1.0), "log", 0.45, hip=0.35)
    m.box((0, -1.62, 0.8), (0.9, 0.2, 1.5), "ink")
    for i in range(15):  # a half ring of spikes
        a = math.pi * (1.04 + 0.92 * i / 14)
        if abs(i - 7) < 2:
            continue
        m.prism((3.3 * math.cos(a), 2.9 * math.sin(a), -0.2), 0.2, 0.17, 1.5, 6, "log_light" if i % 2 else "log", turn=(-0.12 * math.sin(a), 0.12 * math.cos(a), 0))
        m.prism((3.45 * math.cos(a), 3.05 * math.sin(a), 1.25), 0.17, 0.0, 0.5, 6, "plank_light", turn=(-0.12 * math.sin(a), 0.12 * math.cos(a), 0))
    for x, y, high in ((-2.0, 1.2, 5.4), (1.8, -0.9, 4.7)):
        m.prism((x, y, 0), 0.1, 0.07, high, 6, "log")
        wave = [(x + 0.25 * i, y - 0.12 * math.sin(i * 1.2), high - 0.1 - 0.05 * i) for i in range(8)]
        low = [(px, py, pz - 1.25 + 0.07 * i + (0.22 if i % 2 else 0)) for i, (px, py, pz) in enumerate(wave)]
        for i in range(7):
            m.add([wave[i], wave[i + 1], low[i + 1], low[i]], [(0, 1, 2, 3)], "enemy_red")
    return m.build(0.02)


def signpost(height=13.4, reach=9.3):
    """A tall post with an arm towards -x, for boards to hang from."""
    m = scene.Model("signpost")
    m.prism((0, 0, -0.5), 0.42, 0.3, height + 0.9, 8, "timber", spin=0.2)
    m.prism((0, 0, height + 0.4), 0.44, 0.05, 0.55, 8, "roof", spin=0.2)
    m.box((-reach / 2 + 0.5, 0, height - 0.45), (reach + 0.2, 0.34, 0.36), "plank")
    m.box((-reach + 0.42, 0, height - 0.45), (0.3, 0.42, 0.46), "plank_light")
    beam(m, (-0.05, -0.02, height - 2.0), (-1.6, -0.02, height - 0.55), 0.24, "plank")
    beam(m, (0.05, -0.02, height - 1.5), (0.95, -0.02, height - 0.6), 0.2, "plank")
    for i in range(6):
        a = i * 1.1
        m.blob((0.6 * math.cos(a), 0.6 * math.sin(a), 0.05), 0.34, "rock", rough=0.2, squash=0.7)
    return m.build(0.04)
