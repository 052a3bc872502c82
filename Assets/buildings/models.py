"""What stands on the level maps, each look as a function that puts its meshes into the scene round the origin.

Runs inside Blender. Fronts look at the viewer (-y), turned a little so that two walls are seen. Metres of the map.
"""
import math

import props
import scene
from looks import LOOKS, is_numbered

TURN = math.radians(-24)  # of houses: the right wall is seen too
HEIGHT = 1.55  # of a storey; the doors are for men who are drawn large


def put(mesh, x=0.0, y=0.0, z=0.0, turn=0.0, size=1.0):
    return scene.place(mesh, (x, y, z), turn, size)


def around(x, y, turn=TURN):
    """A place beside a turned house, by its own axes."""
    return x * math.cos(turn) - y * math.sin(turn), x * math.sin(turn) + y * math.cos(turn)


# Small things ---------------------------------------------------------------------------------------------------------

def stack_of_planks(seed=1, length=1.9):
    m = scene.Model("planks", seed)
    for row in range(3):
        for k in range(4 - row):
            m.box((m.random.uniform(-0.06, 0.06), (k - (3 - row) / 2) * 0.3, 0.09 + row * 0.16), (length, 0.26, 0.13),
                  m.random.choice(["plank", "plank_light"]))
    return m.build(0.02)


def stack_of_logs(seed=1, length=2.2, rows=3):
    m = scene.Model("logs", seed)
    for row in range(rows):
        for k in range(rows + 1 - row):
            at = (-length / 2, (k - (rows - row) / 2) * 0.46, 0.23 + row * 0.40)
            m.prism(at, 0.23, 0.22, length, 8, "trunk", turn=(0, math.pi / 2, 0))
            for x in (-length / 2 - 0.01, length / 2):
                m.prism((x, at[1], at[2]), 0.17, 0.17, 0.02, 8, "plank_light", turn=(0, math.pi / 2, 0))
    return m.build(0.02)


def sacks(seed=1, count=5, colour="canvas"):
    m = scene.Model("sacks", f"{seed}{colour}")
    for i in range(count):
        x, y = (i % 3 - 1) * 0.5 + m.random.uniform(-0.06, 0.06), (i // 3) * 0.45
        z = 0.24 if i < 4 else 0.62
        m.blob((x, y, z), (0.27, 0.24, 0.32), colour, rough=0.06)
        m.prism((x, y, z + 0.24), 0.09, 0.12, 0.14, 6, "rope")
    return m.build()


def crate(seed=1, size=0.6):
    m = scene.Model("crate", seed)
    m.box((0, 0, size / 2), (size, size, size), "plank")
    for s in (-1, 1):
        for z in (0.06, size - 0.06):
            m.box((0, s * size / 2, z), (size * 1.06, 0.07, 0.12), "plank_dark")
            m.box((s * size / 2, 0, z), (0.07, size * 1.06, 0.12), "plank_dark")
    return m.build(0.02)


def barrel(colour="plank"):
    m = scene.Model("barrel", colour)
    m.prism((0, 0, 0), 0.27, 0.34, 0.4, 10, colour)
    m.prism((0, 0, 0.4), 0.34, 0.27, 0.4, 10, colour)
    for z in (0.12, 0.62):
        m.prism((0, 0, z), 0.335, 0.335, 0.07, 10, "iron")
    return m.build(0.01)


def stone_block(seed=1, size=(0.8, 0.6, 0.5)):
    m = scene.Model("block", seed)
    m.box((0, 0, size[2] / 2), size, m.random.choice(["stone", "stone_dark"]))
    return m.build(0.05)


def heap(seed, colours, radius=0.9, count=14):
    """A heap of lumps: stone, ore, coal."""
    m = scene.Model("heap", f"{seed}{colours}")
    for i in range(count):
        a, d = i * 2.4, radius * math.sqrt((i + 0.5) / count)
        m.blob((d * math.cos(a), d * 0.8 * math.sin(a), 0.15 + 0.62 * (1 - d / radius)), m.random.uniform(0.2, 0.34), m.random.choice(colours), rough=0.22)
    return m.build(0.02)


def peg_and_board():
    """A builder's peg with a small board on it."""
    m = scene.Model("peg")
    m.box((0, 0, 0.6), (0.12, 0.12, 1.5), "timber")
    m.box((0, -0.09, 1.15), (0.95, 0.07, 0.55), "plank_light", turn=(0, 0.07, 0))
    props.beam(m, (-0.26, -0.14, 1.0), (0.26, -0.14, 1.32), 0.07, "timber")
    m.box((0.28, -0.14, 1.33), (0.26, 0.09, 0.16), "iron", turn=(0, -0.55, 0))
    return m.build(0.02)


def pole_flag(high=3.6, colour="paint_red"):
    m = scene.Model("flag", f"{high}{colour}")
    m.prism((0, 0, 0), 0.08, 0.06, high, 6, "timber")
    m.prism((0, 0, high), 0.11, 0.02, 0.2, 6, "gold")
    wave = [(0.24 * i, 0.10 * math.sin(i * 1.3), high - 0.12 - 0.05 * i) for i in range(6)]
    low = [(x, y, z - 0.85 + 0.11 * i) for i, (x, y, z) in enumerate(wave)]
    for i in range(5):
        m.add([wave[i], wave[i + 1], low[i + 1], low[i]], [(0, 1, 2, 3)], colour)
    return m.build(0.01)


# Houses ---------------------------------------------------------------------------------------------------------------

def plot(hint):
    """A place where something shall be built: pegs, a rope between them, planks, the builder's board, and a hint of what.

    hint is a function that puts it up at the place that it is given.
    """
    m = scene.Model("pegs")
    corners = [(-2.1, -1.7), (2.1, -1.7), (2.3, 1.7), (-2.3, 1.7)]
    for x, y in corners:
        m.box((x, y, 0.25), (0.14, 0.14, 0.8), "plank_dark")
    for (ax, ay), (bx, by) in zip(corners, corners[1:] + corners[:1]):
        props.beam(m, (ax, ay, 0.52), (bx, by, 0.52), 0.05, "rope")
    put(m.build(0.02))
    put(stack_of_planks(1), -0.7, 0.9, 0, 0.3)
    put(peg_and_board(), -1.2, -0.5)
    hint(0.85, -0.35)


def millstone():
    m = scene.Model("millstone")
    m.prism((0, 0, 0), 0.75, 0.75, 0.28, 14, "stone")
    m.prism((0, 0, 0.28), 0.2, 0.2, 0.02, 8, "ink")
    m.prism((0.95, 0.25, 0.1), 0.7, 0.7, 0.26, 14, "stone_dark", turn=(0, 0.9, 0.3))
    return m.build(0.04)


def hint_food(x, y):
    put(millstone(), x - 0.2, y)
    put(wheat_patch(1, 0.9, 0.6), x + 0.4, y + 1.1)


def hint_store(x, y):
    put(crate(1, 0.7), x, y)
    put(crate(2, 0.55), x + 0.75, y + 0.15, 0, 0.4)
    put(barrel(), x + 0.2, y + 0.9)


def hint_wood(x, y):
    put(stack_of_logs(1, 1.5, 2), x + 0.2, y + 0.3, 0, 0.15)


def hint_stone(x, y):
    put(heap(1, ("rock", "stone"), 0.7, 9), x, y + 0.6)
    put(stone_block(1), x + 0.8, y - 0.3, 0, 0.3)


def hint_iron(x, y):
    put(heap(1, ("log", "ink"), 0.65, 10), x, y + 0.6)
    put(ingots(1, 3), x + 0.6, y - 0.4, 0, 0.2)


def barn(size, wall, trim, cover, stone=0.5, hip=0.0, name="barn"):
    """A barn with a wide gate in its long front wall."""
    w, d, h = size
    m = scene.Model(name, f"{size}{wall}{cover}")
    m.box((0, 0, stone / 2), (w + 0.3, d + 0.3, stone), "stone")
    m.box((0, 0, stone + h / 2), (w, d, h), wall)
    for x in (-w / 2, -w * 0.24, w * 0.24, w / 2):
        m.box((x, -d / 2, stone + h / 2), (0.18, 0.14, h), trim)
    for y in (-d / 2, 0, d / 2):
        m.box((w / 2, y, stone + h / 2), (0.14, 0.18, h), trim)
    for z in (stone + 0.08, stone + h - 0.1):
        m.box((0, -d / 2 - 0.02, z), (w + 0.12, 0.12, 0.16), trim)
        m.box((w / 2 + 0.02, 0, z), (0.12, d + 0.12, 0.16), trim)
    gate = min(1.7, h - 0.15)
    m.box((0, -d / 2 - 0.05, stone + gate / 2), (1.7, 0.12, gate), "plank_dark")
    for x in (-0.43, 0.43):
        m.box((x, -d / 2 - 0.12, stone + gate / 2), (0.76, 0.08, gate - 0.12), "plank_light")
        props.beam(m, (x - 0.3, -d / 2 - 0.18, stone + 0.2), (x + 0.3, -d / 2 - 0.18, stone + gate - 0.2), 0.09, "plank_dark")
    m.gable((0, 0, stone + h), (w, d, d * 0.52), cover, 0.38, hip=hip, wall=wall)
    courses(m, (0, 0, stone + h), (w, d, d * 0.52), cover, 0.38, hip)
    m.box((w / 2 + 0.07, 0, stone + h + d * 0.14), (0.1, 0.7, 0.7), trim)
    m.box((w / 2 + 0.11, 0, stone + h + d * 0.14), (0.08, 0.5, 0.5), "window")
    return m.build(0.04)


def courses(m, at, size, colour, overhang=0.38, hip=0.0, rows=6):
    """The rows of a roof's covering, on a roof that gable() made of the same measures."""
    w, d, h = size[0] / 2 + overhang, size[1] / 2 + overhang, size[2]
    lean = math.atan2(h, d)
    for row in range(rows):
        t = row / rows
        for side in (-1, 1):
            y, z = side * d * (1 - t) - side * 0.06, h * t + 0.17
            n = max(4, round(2 * w * (1 - hip * t) / 0.42))
            for k in range(n):
                x = w * (1 - hip * t) * (2 * (k + 0.5 + (row % 2) * 0.25 - 0.12) / n - 1)
                m.box((at[0] + x, at[1] + y + m.random.uniform(-0.02, 0.02), at[2] + z), (2 * w * (1 - hip * t) / n - 0.03, 0.34, 0.07), colour,
                      turn=(-side * lean * 1.0 if side > 0 else lean, 0, m.random.uniform(-0.03, 0.03)))


def ramp(w=1.6, high=0.5, length=1.3):
    m = scene.Model("ramp", f"{w}{high}")
    m.add([(-w / 2, 0, high), (w / 2, 0, high), (w / 2, -length, 0.02), (-w / 2, -length, 0.02), (-w / 2, 0, 0), (w / 2, 0, 0)],
          [(0, 3, 2, 1), (0, 4, 3), (1, 2, 5), (4, 5, 2, 3), (0, 1, 5, 4)], "plank")
    for k in range(4):
        y = -length * (k + 0.5) / 4
        m.box((0, y, high * (1 + y / length) + 0.04), (w, 0.1, 0.06), "plank_light", turn=(math.atan2(high, length), 0, 0))
    return m.build(0.02)


def stood(mesh, x=0.0, y=0.0, z=0.0, turn=0.0, size=1.0):
    """Like put, by the axes of a turned house."""
    px, py = around(x, y)
    return put(mesh, px, py, z, TURN + turn, size)


def warehouse(level):
    if level == 0:
        return plot(hint_store)
    if level == 1:
        stood(barn((4.2, 2.9, 1.5), "plank", "plank_dark", "thatch", 0.35), 0, 0.2)
        stood(ramp(1.6, 0.35), 0, -1.35)
        stood(crate(1), 1.6, -1.75)
        stood(barrel(), -1.65, -1.7)
    elif level == 2:
        stood(barn((4.9, 3.1, 1.9), "plaster", "timber", "roof", 0.5), 0, 0.2)
        stood(ramp(1.7, 0.5), 0, -1.45)
        stood(crate(1), 1.75, -1.8)
        stood(crate(2, 0.5), 2.3, -1.65, 0, 0.4)
        stood(sacks(1, 4), -1.8, -1.8)
    else:
        stood(barn((5.4, 3.3, 2.5), "plaster", "timber", "slate", 0.7, hip=0.12), 0, 0.2)
        stood(ramp(1.7, 0.7), 0, -1.55)
        tower = scene.Model("hoist")
        tower.box((0, 0, 2.1), (1.5, 1.5, 4.2), "stone")
        tower.box((0, 0, 4.3), (1.75, 1.75, 0.22), "timber")
        tower.prism((0, 0, 4.4), 1.35, 0.05, 1.5, 4, "roof", spin=math.pi / 4)
        props.beam(tower, (0, -0.4, 3.7), (0, -1.7, 3.7), 0.16, "timber")
        props.beam(tower, (0, -1.55, 3.7), (0, -1.55, 2.1), 0.05, "rope")
        tower.box((0, -1.55, 1.85), (0.5, 0.5, 0.45), "plank_light")
        tower.box((0, -0.78, 2.6), (0.5, 0.1, 0.6), "window")
        stood(tower.build(0.04), -2.6, 0.1)
        stood(crate(1), 1.9, -1.9)
        stood(crate(2, 0.5), 2.45, -1.75, 0, 0.4)
        stood(barrel(), 1.5, -2.3)
        stood(pole_flag(2.2, "cobalt"), 2.4, 1.2, 3.2)


def mill_with_sails(x, y, size, turn, spin):
    put(props.windmill(), x, y, 0.6 * size, turn, size)
    hx, hy, hz = (c * size for c in props.MILL_HUB)
    at = (x + hx * math.cos(turn) - hy * math.sin(turn), y + hx * math.sin(turn) + hy * math.cos(turn), 0.6 * size + hz)
    from mathutils import Quaternion
    wheel = scene.place(props.sails(), at, 0, size)
    wheel.rotation_mode = "QUATERNION"
    wheel.rotation_quaternion = (Quaternion((0, 0, 1), turn) @ Quaternion((1, 0, 0), -props.MILL_LEAN) @ Quaternion((0, 1, 0), -spin))


def wheat_patch(seed=1, w=2.2, d=1.2):
    m = scene.Model("wheat_patch", seed)
    for i in range(int(w / 0.3)):
        for k in range(int(d / 0.3)):
            m.prism((i * 0.3 - w / 2, k * 0.3 - d / 2, 0), 0.13, 0.08, m.random.uniform(0.45, 0.65), 5, m.random.choice(["wheat", "wheat_dark"]),
                    turn=(m.random.uniform(-0.15, 0.15), m.random.uniform(-0.15, 0.15), 0))
    return m.build()


def food_mill(level, part):
    """part: of a quarter turn of its wheel, which looks the same after it."""
    if level == 0:
        return plot(hint_food)
    spin = 0.35 + part * math.pi / 2
    turn = math.radians(22)
    if level == 1:
        mill_with_sails(-0.1, 0.5, 0.46, turn, spin)
        put(wheat_patch(1, 1.8, 1.0), 1.7, -0.6, 0, 0.1)
        put(sacks(1, 4), -1.6, -1.2)
    elif level == 2:
        mill_with_sails(-0.3, 0.6, 0.55, turn, spin)
        put(wheat_patch(2, 2.2, 1.2), 1.9, -0.5, 0, 0.1)
        put(props.haystack(1), -2.1, -0.5, 0, 0, 0.8)
        put(sacks(1, 5), -0.9, -1.7)
    else:
        mill_with_sails(-0.7, 0.9, 0.62, turn, spin)
        put(props.house(3, "thatch", (3.0, 2.4)), 1.9, 0.5, 0, TURN, 0.75)
        put(wheat_patch(3, 1.8, 0.9), 1.7, -1.5, 0, 0.1)
        put(props.haystack(1), -2.6, -0.4, 0, 0, 0.9)
        put(sacks(1, 5), -0.7, -1.9)
        put(barrel(), 0.6, -1.7)


def shed(w=3.4, d=2.2, h=1.6, cover="thatch"):
    """A roof on posts, open on all sides."""
    m = scene.Model("shed", f"{w}{cover}")
    for x in (-w / 2, w / 2):
        for y in (-d / 2, d / 2):
            m.box((x, y, h / 2), (0.2, 0.2, h), "timber")
            props.beam(m, (x, y, h - 0.55), (x - math.copysign(0.5, x), y, h), 0.12, "timber")
    for y in (-d / 2, d / 2):
        m.box((0, y, h), (w + 0.3, 0.2, 0.2), "timber")
    m.gable((0, 0, h + 0.05), (w, d, d * 0.42), cover, 0.3)
    courses(m, (0, 0, h + 0.05), (w, d, d * 0.42), cover, 0.3, rows=4)
    return m.build(0.03)


def saw_bench():
    m = scene.Model("bench")
    for x in (-0.7, 0.7):
        for y in (-0.3, 0.3):
            m.box((x, y, 0.4), (0.14, 0.14, 0.8), "timber")
    m.box((0, 0, 0.82), (1.9, 0.8, 0.12), "plank")
    m.prism((-1.3, 0.1, 1.08), 0.2, 0.19, 2.2, 8, "trunk", turn=(0, math.pi / 2, 0))
    m.prism((0.25, -0.12, 1.0), 0.52, 0.52, 0.05, 16, "slate", turn=(math.pi / 2, 0, 0))
    return m.build(0.01)


def wood_mill(level, part):
    """part: of the eighth of a turn after which its wheel looks the same."""
    if level == 0:
        return plot(hint_wood)
    wheel = scene.Model("saw_wheel", level)
    wheel.wheel((0, 0, 0), 1.25 + 0.2 * level, "plank_dark", rim=0.2, width=0.5, spokes=8, hub="iron", sides=16)
    for i in range(8):
        a = i * math.pi / 4
        r = 1.2 + 0.2 * level
        wheel.box((r * math.cos(a), 0, r * math.sin(a)), (0.36, 0.62, 0.1), "plank_light", turn=(0, -a, 0))
    wheel = wheel.build(0.01)
    if level == 1:
        stood(shed(3.2, 2.2, 1.5, "thatch"), 0, 0.4)
        stood(saw_bench(), 0, 0.1)
        stood(stack_of_logs(1, 1.9, 2), -0.2, -1.5)
        stood(stack_of_planks(2, 1.5), 2.4, -0.7, 0, 1.2)
    elif level == 2:
        stood(barn((3.4, 2.4, 1.5), "plank_light", "plank_dark", "thatch", 0.4), -0.6, 0.7)
        stood(wheel, 1.6, -0.1, 1.25).rotation_euler[1] = part * math.pi / 4
        stood(shed(2.0, 1.8, 1.2, "plank"), -1.3, -1.1)
        stood(saw_bench(), -1.3, -1.2, 0, 0, 0.85)
        stood(stack_of_logs(1, 1.9, 3), 0.9, -1.7)
        stood(stack_of_planks(2, 1.5), 2.7, -1.2, 0, 1.2)
    else:
        stood(barn((4.2, 2.6, 2.1), "plaster", "timber", "roof", 0.6), -0.6, 0.8)
        stood(wheel, 1.95, 0.0, 1.45).rotation_euler[1] = part * math.pi / 4
        stood(shed(2.4, 1.9, 1.4, "roof_dark"), -1.4, -1.3)
        stood(saw_bench(), -1.4, -1.4, 0, 0, 0.95)
        stood(stack_of_logs(1, 2.1, 3), 0.9, -1.9)
        stood(stack_of_planks(2, 1.6), 2.9, -1.3, 0, 1.2)
        stood(stack_of_planks(3, 1.6), -3.2, -0.4, 0, 1.4)


def crane(high=3.4, reach=2.2, load="stone"):
    m = scene.Model("crane", f"{high}{reach}{load}")
    for a in (0.5, 2.6, 4.4):
        props.beam(m, (1.0 * math.cos(a), 1.0 * math.sin(a), 0), (0, 0, high * 0.72), 0.2, "timber")
    m.prism((0, 0, 0), 0.2, 0.16, high, 8, "plank_dark")
    props.beam(m, (-reach * 0.4, 0, high * 0.86), (reach, 0, high * 1.08), 0.22, "plank")
    props.beam(m, (0, 0, high), (reach * 0.7, 0, high * 1.02), 0.1, "rope")
    props.beam(m, (reach * 0.95, 0, high * 1.05), (reach * 0.95, 0, 1.25), 0.06, "rope")
    m.box((reach * 0.95, 0, 0.95), (0.75, 0.6, 0.55), load, turn=(0, 0, 0.4))
    m.box((-reach * 0.4, 0, high * 0.80), (0.5, 0.5, 0.5), "stone_dark")
    return m.build(0.03)


def quarry_wall(seed, w, high):
    """Rock with steps cut into it."""
    m = scene.Model("quarry", seed)
    n = max(3, round(w / 0.8))
    for i in range(n):
        x = (i + 0.5) * w / n - w / 2
        tall = high * m.random.uniform(0.75, 1.1) * (1 - 0.35 * abs(2 * x / w))
        m.blob((x, 0.25, tall * 0.38), (0.75, 0.6, tall * 0.62), m.random.choice(["rock", "rock_dark"]), rough=0.15)
        m.box((x, -0.45, tall * 0.22), (0.78, 0.7, tall * 0.44), "rock", turn=(0, 0, m.random.uniform(-0.2, 0.2)))
    return m.build(0.05)


def stone_mill(level):
    if level == 0:
        return plot(hint_stone)
    if level == 1:
        put(quarry_wall(1, 3.4, 1.7), -0.4, 1.1)
        put(crane(2.6, 1.7), -0.6, -0.1, 0, -0.35)
        for i, (x, y) in enumerate(((1.5, -0.9), (2.2, -0.6), (1.8, -0.2))):
            put(stone_block(i), x, y, 0, 0.2 * i)
    elif level == 2:
        put(quarry_wall(2, 4.4, 2.2), -0.5, 1.2)
        put(crane(3.2, 2.1), -0.7, -0.3, 0, -0.35)
        put(shed(1.9, 1.5, 1.2, "thatch"), 2.0, 0.5, 0, TURN)
        for i, (x, y, z) in enumerate(((1.3, -1.3, 0), (2.1, -1.1, 0), (1.7, -1.15, 0.5), (2.8, -0.9, 0))):
            put(stone_block(i), x, y, z, 0.15 * i)
        put(heap(1, ("rock", "stone"), 0.7, 10), -2.3, -0.8)
    else:
        put(quarry_wall(3, 5.2, 2.7), -0.4, 1.4)
        put(crane(3.8, 2.4), -0.9, -0.3, 0, -0.3)
        put(barn((2.4, 1.9, 1.3), "stone", "stone_dark", "slate", 0.3), 2.1, 0.4, 0, TURN)
        for i, (x, y, z) in enumerate(((0.9, -1.6, 0), (1.75, -1.5, 0), (1.3, -1.5, 0.5), (2.6, -1.3, 0), (2.2, -1.4, 0.5))):
            put(stone_block(i), x, y, z, 0.1 * i)
        put(heap(1, ("rock", "stone"), 0.9, 14), -2.7, -0.7)
        put(props.cart("stone", "plank_dark"), -1.3, -1.9, 0, 0.1, 0.55)


def furnace(high, wide, glow=True):
    m = scene.Model("furnace", f"{high}{wide}")
    m.prism((0, 0, 0), wide, wide * 0.72, high * 0.55, 8, "stone", spin=0.39)
    m.prism((0, 0, high * 0.55), wide * 0.76, wide * 0.76, 0.16, 8, "stone_dark", spin=0.39)
    m.prism((0, 0, high * 0.58), wide * 0.45, wide * 0.34, high * 0.5, 8, "roof_dark", spin=0.39)
    m.prism((0, 0, high * 1.06), wide * 0.44, wide * 0.44, 0.16, 8, "stone_dark", spin=0.39)
    m.box((0, -wide * 0.86, 0.5), (wide * 0.85, 0.4, 1.0), "stone_dark")
    m.box((0, -wide * 0.86 - 0.19, 0.42), (wide * 0.55, 0.06, 0.7), "fire" if glow else "ink")
    return m.build(0.04)


def ingots(seed=1, count=5):
    m = scene.Model("ingots", seed)
    for i in range(count):
        m.box(((i % 3 - 1) * 0.4 + (0.2 if i > 2 else 0), 0, 0.1 + 0.18 * (i // 3)), (0.34, 0.7, 0.16), "slate")
    return m.build(0.03)


def iron_mill(level):
    if level == 0:
        return plot(hint_iron)
    scene.material("fire", glow=6.0)
    if level == 1:
        put(furnace(2.9, 1.25), -0.4, 0.6)
        put(heap(1, ("log", "ink"), 0.7, 11), 1.5, -0.5)
        put(ingots(1, 3), -1.7, -1.0, 0, 0.2)
        put(shed(1.7, 1.4, 1.2, "thatch"), 1.6, 0.9, 0, TURN)
    elif level == 2:
        put(furnace(3.7, 1.45), -0.8, 0.7)
        put(barn((2.4, 2.0, 1.3), "stone", "timber", "roof_dark", 0.3), 1.7, 0.7, 0, TURN)
        put(heap(1, ("log", "ink"), 0.8, 13), 1.5, -1.3)
        put(ingots(1, 5), -1.3, -1.5, 0, 0.2)
        put(barrel("plank_dark"), -2.3, -0.4)
    else:
        put(furnace(4.5, 1.6), -1.1, 0.9)
        put(furnace(3.4, 1.1), 1.0, 1.5)
        put(barn((2.8, 2.2, 1.7), "stone", "timber", "slate", 0.3), 2.1, 0.1, 0, TURN)
        put(heap(1, ("log", "ink"), 0.9, 15), 1.1, -1.8)
        put(ingots(1, 5), -1.2, -1.8, 0, 0.2)
        put(ingots(2, 5), -2.2, -1.3, 0, 0.5)
        put(barrel("plank_dark"), -2.8, -0.1)


# Where levels begin and end -------------------------------------------------------------------------------------------

def tent(seed=1, size=(2.6, 2.8), cover="canvas", stripe="paint_red"):
    """A ridge tent, its mouth towards the viewer."""
    w, d = size
    h = w * 0.8
    m = scene.Model("tent", f"{seed}{stripe}")
    n = 6
    for side in (-1, 1):
        for i in range(n):
            y0, y1 = -d / 2 + d * i / n, -d / 2 + d * (i + 1) / n
            quad = [(side * w / 2, y0, 0), (side * w / 2, y1, 0), (0, y1, h), (0, y0, h)]
            m.add(quad, [(0, 1, 2, 3)], stripe if i % 2 == 0 else cover)
    m.add([(-w / 2, d / 2, 0), (w / 2, d / 2, 0), (0, d / 2, h)], [(0, 1, 2)], cover)
    for side in (-1, 1):
        m.add([(side * w / 2, -d / 2, 0), (side * w * 0.16, -d / 2, 0), (0, -d / 2, h)], [(0, 1, 2)], cover)
    m.add([(-w * 0.2, -d / 2 + 0.25, 0), (w * 0.2, -d / 2 + 0.25, 0), (0, -d / 2 + 0.25, h * 0.9)], [(0, 1, 2)], "ink")
    props.beam(m, (0, -d / 2 - 0.25, h + 0.02), (0, d / 2 + 0.25, h + 0.02), 0.12, "timber")
    for y in (-d / 2, d / 2):
        props.beam(m, (-0.14, y, h + 0.3), (0.14, y, h - 0.2), 0.08, "timber")
        props.beam(m, (0.14, y, h + 0.3), (-0.14, y, h - 0.2), 0.08, "timber")
    return m.build(0.01)


def campfire():
    scene.material("fire", glow=5.0)
    m = scene.Model("campfire")
    for i in range(7):
        a = i * 0.9
        m.blob((0.42 * math.cos(a), 0.42 * math.sin(a), 0.08), 0.14, "rock", rough=0.2)
    for i in range(4):
        a = i * 1.57 + 0.3
        props.beam(m, (0.3 * math.cos(a), 0.3 * math.sin(a), 0.05), (0, 0, 0.42), 0.1, "trunk")
    m.prism((0, 0, 0.12), 0.2, 0.02, 0.5, 6, "fire")
    return m.build(0.01)


def guide_post():
    m = scene.Model("guide_post")
    m.prism((0, 0, 0), 0.12, 0.09, 2.9, 6, "timber")
    for z, turn, colour in ((2.5, 0.1, "plank_light"), (2.0, -0.12, "plank")):
        points = [(-0.75, z - 0.2), (0.6, z - 0.2), (0.9, z), (0.6, z + 0.2), (-0.75, z + 0.2)]
        if turn < 0:
            points = [(-x, zz) for x, zz in reversed(points)]
        n = len(points)
        m.add([(x, y, zz) for y in (-0.18, -0.1) for x, zz in points],
              [tuple(range(n)), tuple(reversed(range(n, 2 * n)))] + [(i, (i + 1) % n, n + (i + 1) % n, n + i) for i in range(n)], colour)
    return m.build(0.02)


def start_point():
    """Tents behind, so that the caravan can stand before them."""
    put(tent(1, (2.7, 2.8)), -1.5, 2.2, 0, -0.3)
    put(tent(2, (2.1, 2.2), "canvas", "cobalt"), 1.1, 2.7, 0, 0.3)
    put(guide_post(), 2.7, 0.9)
    put(campfire(), 1.6, -1.3)
    put(crate(1, 0.5), -3.0, 0.9, 0, 0.3)
    put(crate(2, 0.42), -2.6, 0.6, 0, 0.1)
    put(sacks(1, 4), -0.1, 1.0)
    put(barrel(), 2.2, 1.6)
    put(pole_flag(4.1, "paint_red"), -0.1, 3.2)


def pillar(high, broken=0.0, roof="roof"):
    """A stone pillar with a lantern under its little roof; broken cuts that part of it off."""
    m = scene.Model("pillar", f"{high}{broken}{roof}")
    m.box((0, 0, 0.14), (1.0, 1.0, 0.28), "stone_dark")
    tall = high * (1 - broken)
    for k in range(max(1, round(tall / 0.42))):
        m.box((0, 0, 0.28 + 0.42 * k + 0.2), (0.8 - 0.02 * (k % 2), 0.8 - 0.02 * (k % 2), 0.40), "stone" if k % 2 else "stone_dark")
    if broken:
        m.box((0.1, 0.05, tall + 0.35), (0.5, 0.55, 0.3), "stone", turn=(0.2, 0.25, 0.5))
        return m.build(0.05)
    m.box((0, 0, high + 0.34), (1.0, 1.0, 0.16), "stone_dark")
    m.box((0, 0, high + 0.64), (0.4, 0.4, 0.46), "window")
    for x in (-0.24, 0.24):
        for y in (-0.24, 0.24):
            m.box((x, y, high + 0.64), (0.1, 0.1, 0.5), "timber")
    m.prism((0, 0, high + 0.88), 0.66, 0.04, 0.62, 4, roof, spin=math.pi / 4)
    return m.build(0.03)


def bridge(level):
    """A paved landing at the shore; from its pillars a bridge of planks leads to the right."""
    broken = level == 0
    scene.material("window", glow=1.2 if level else 0.0)
    ground = scene.Model("landing", level)
    ground.box((-0.3, 0, 0.06), (4.3, 3.0, 0.3), "stone_dark")
    for i in range(7):
        for k in range(5):
            if broken and (i * 5 + k * 3) % 7 == 2:
                continue
            ground.box((-2.1 + 0.6 * i, -1.16 + 0.58 * k, 0.2), (0.54, 0.52, 0.12), ground.random.choice(["stone", "stone", "stone_dark", "bank"]),
                       turn=(0, 0, ground.random.uniform(-0.05, 0.05)))
    put(ground.build(0.03))
    put(pillar(1.5), 1.5, 1.75)
    put(pillar(1.5, 0.62 if broken else 0.0), 1.5, -1.75)
    for y in (-1.6, 1.6):
        wall = scene.Model("wall", y)
        length = 2.3 if not (broken and y < 0) else 1.1
        for k in range(round(length / 0.45)):
            wall.box((0.75 - 0.45 * k, y, 0.42), (0.42, 0.4, 0.62 if k % 2 else 0.54), "stone" if k % 2 else "stone_dark")
        put(wall.build(0.05))
    deck = scene.Model("deck", level)
    for side in (-1, 1):
        deck.box((2.6, side * 0.85, -0.1), (2.2 if not broken or side > 0 else 0.9, 0.2, 0.22), "timber")
    for k in range(6):
        if broken and k in (1, 2, 4, 5):
            continue
        tilt = deck.random.uniform(-0.16, 0.16) if broken else 0
        deck.box((1.85 + 0.38 * k, 0, 0.16), (0.33, 2.3 if not broken else deck.random.uniform(1.4, 2.2), 0.12), deck.random.choice(["plank", "plank_light"]),
                 turn=(tilt, tilt * 0.5, tilt))
    put(deck.build(0.02))
    if broken:
        put(stack_of_planks(2, 1.4), -1.2, -0.9, 0.26, 0.5)
        put(heap(2, ("stone", "stone_dark"), 0.6, 9), 1.1, -2.3)
        bar = scene.Model("bar")
        for y in (-1.15, 1.15):
            bar.box((0.9, y, 0.75), (0.14, 0.14, 1.1), "timber")
        bar.box((0.86, 0, 1.05), (0.1, 2.7, 0.24), "paint_red")
        for k in range(3):
            bar.box((0.8, -0.9 + 0.9 * k, 1.05), (0.06, 0.42, 0.25), "cream")
        put(bar.build(0.02))
        put(peg_and_board(), -1.9, 0.7, 0.2)
    else:
        for y in (-1.75, 1.75):
            flag = put(pole_flag(1.5, "paint_red" if level == 1 else "gold"), 1.5, y, 2.9)
            flag.visible_shadow = False  # it would lie on the water, which moves under it


OX_PLACE, CART_PLACE, CARAVAN_SIZE = 1.35, -1.0, 0.72
SPOKES_A_RUN = 3  # that a wheel turns on in a run of the caravan: a whole number, or it would jump


def caravan(part):
    """The caravan that comes and goes: a wagon with an ox, to the right; part of a step of the ox."""
    put(props.cart("canvas", "paint_red", -SPOKES_A_RUN * part * math.pi / 4), CART_PLACE, 0, 0, 0, CARAVAN_SIZE)
    put(props.ox(stride=part), OX_PLACE, 0, 0, 0, CARAVAN_SIZE)


def caravan_opens(part):
    """The caravan that waits: its cover is rolled back, to the end at the last picture of the run."""
    frames = LOOKS["CaravanOpen"].frames
    put(props.cart("canvas", "paint_red", 0.0, part * frames / (frames - 1)), CART_PLACE, 0, 0, 0, CARAVAN_SIZE)
    put(props.ox(), OX_PLACE, 0, 0, 0, CARAVAN_SIZE)


def caravan_goods(level):
    """What lies on the opened wagon, more and more of it."""
    loads = [(barrel(), 0.3, 0.0), (crate(1, 0.5), 0.62, -0.22), (sacks(3, 1), 0.42, 0.02), (crate(2, 0.45), 0.6, 0.25), (barrel(), -0.1, 0.22),
             (sacks(4, 1), 0.82, 0.2)]
    for mesh, x, y in loads[:2 * (level + 1)]:
        put(mesh, CART_PLACE + x, y, 1.02 * CARAVAN_SIZE, 0.2, 0.85)


def flag(colour, part):
    """The flag of a level at the way out of it; part of a run of its waves."""
    m = scene.Model("level_flag", colour)
    high = 3.9
    m.prism((0, 0, 0), 0.09, 0.06, high, 6, "timber")
    m.prism((0, 0, high), 0.13, 0.02, 0.24, 6, "gold")
    rows = []
    for i in range(8):
        wave = 0.16 * min(1.0, i / 3) * math.sin(i * 0.95 - 2 * math.pi * part)
        top = (0.22 * i, wave, high - 0.1 - 0.03 * i + 0.35 * wave)
        rows.append((top, (top[0], top[1], top[2] - 1.3 + 0.04 * i)))
    for (a, b), (c, d) in zip(rows, rows[1:]):
        m.add([a, c, d, b], [(0, 1, 2, 3)], colour)
    put(m.build(0.005))


# The enemy ------------------------------------------------------------------------------------------------------------

def bunker():
    put(props.bunker(), 0, 0.4, 0, 0.12, 0.85)
    skull = scene.Model("skull_pole")
    skull.prism((0, 0, 0), 0.09, 0.07, 2.3, 6, "log")
    skull.blob((0, 0, 2.5), 0.26, "quill", rough=0.05)
    for x in (-0.1, 0.1):
        skull.blob((x, -0.22, 2.52), 0.075, "ink", rough=0.02)
    skull.box((0, -0.1, 2.27), (0.22, 0.22, 0.16), "quill")
    for side in (-1, 1):
        props.beam(skull, (side * 0.2, 0, 2.6), (side * 0.52, 0, 2.85), 0.1, "horn")
        props.beam(skull, (side * 0.52, 0, 2.85), (side * 0.58, 0, 3.15), 0.08, "horn")
    mesh = skull.build(0.01)
    put(mesh, -1.35, -2.0)
    put(mesh, 1.5, -1.95)
    put(heap(5, ("quill", "quill_shade", "log"), 0.45, 8), -2.5, -1.5, 0, 0, 0.8)


# Fences, idols, places of trade ----------------------------------------------------------------------------------------

def stakes(colour="plank", tip="plank_light", bind="rope", spikes=False):
    """A piece of a palisade, as wide as its picture; pieces stand side by side along any line."""
    m = scene.Model("stakes", f"{colour}{spikes}")
    for i in range(3):
        x, high = (i - 1) * 0.42, 1.75 + 0.12 * (i % 2)
        m.prism((x, 0.05 * (i % 2), -0.1), 0.22, 0.21, high, 7, colour, spin=i)
        m.prism((x, 0.05 * (i % 2), high - 0.12), 0.21, 0.02, 0.42, 7, tip, spin=i)
    for z in (0.55, 1.35):
        m.box((0, -0.2, z), (1.3, 0.1, 0.14), bind)
    if spikes:
        props.beam(m, (0, -0.1, 0.9), (0, -0.75, 1.25), 0.14, "horn")
        m.blob((0.0, -0.28, 1.36), 0.17, "quill", rough=0.05)
    return m.build(0.02)


def fence_tower(enemy=False):
    m = scene.Model("fence_tower", enemy)
    wood, light = ("log", "log_light") if enemy else ("timber", "plank")
    for x in (-0.5, 0.5):
        for y in (-0.5, 0.5):
            m.box((x, y, 1.3), (0.2, 0.2, 2.8), wood)
    m.box((0, 0, 1.0), (1.1, 1.1, 1.7), light)
    m.box((0, 0, 2.2), (1.5, 1.5, 0.16), wood)
    for s in (-1, 1):
        m.box((0, s * 0.7, 2.5), (1.5, 0.1, 0.45), light)
        m.box((s * 0.7, 0, 2.5), (0.1, 1.5, 0.45), light)
    m.prism((0, 0, 2.95), 1.15, 0.05, 0.9, 4, "enemy_shirt" if enemy else "roof", spin=math.pi / 4)
    if enemy:
        m.prism((0, 0, 3.6), 0.06, 0.04, 0.9, 5, "log")
        m.blob((0, 0, 4.5), 0.24, "quill", rough=0.05)
    return m.build(0.03)


def fence_site(enemy=False):
    """Pegs and a rope: a fence may stand here."""
    m = scene.Model("fence_site", enemy)
    for i in range(2):
        m.box((i * 0.62 - 0.31, 0, 0.25), (0.12, 0.12, 0.6), "log" if enemy else "plank_dark")
    props.beam(m, (-0.62, -0.04, 0.42), (0.62, -0.04, 0.42), 0.06, "enemy_red" if enemy else "rope")
    m.blob((0, 0.05, 0.02), (0.5, 0.3, 0.1), "soil", rough=0.2)
    return m.build(0.02)


def totem(level):
    """The idol: carved heads on a post, more of them with each level."""
    m = scene.Model("totem", level)
    m.prism((0, 0, 0), 0.95, 0.8, 0.3, 9, "stone_dark")
    colours = (("plank_dark", "paint_red"), ("plank", "cobalt"), ("plank_dark", "gold"))
    z = 0.3
    for k in range(max(1, level)):
        wood, paint = colours[k % 3]
        m.prism((0, 0, z), 0.52 - 0.03 * k, 0.5 - 0.03 * k, 1.15, 8, wood, spin=math.pi / 8)
        for x in (-0.2, 0.2):
            m.blob((x, -0.47, z + 0.72), 0.13, "cream", rough=0.03)
            m.blob((x, -0.57, z + 0.72), 0.065, "ink", rough=0.02)
        m.box((0, -0.5, z + 0.3), (0.52, 0.16, 0.2), "ink")
        for x in (-0.15, 0.0, 0.15):
            m.box((x, -0.57, z + 0.36), (0.1, 0.06, 0.1), "cream")
        m.box((0, -0.52, z + 0.95), (0.62, 0.14, 0.14), paint)
        m.prism((0, -0.5, z + 0.45), 0.12, 0.05, 0.22, 5, paint, turn=(0.5, 0, 0))
        z += 1.15
    for side in (-1, 1):
        m.box((side * 0.72, 0, z - 0.5), (0.75, 0.16, 0.5), "paint_red", turn=(0, side * 0.35, 0))
        m.box((side * 0.95, 0, z - 0.62), (0.3, 0.18, 0.3), "gold", turn=(0, side * 0.35, 0))
    m.prism((0, 0, z), 0.56, 0.3, 0.3, 8, "gold", spin=math.pi / 8)
    for i in range(5):
        a = math.pi * (0.15 + 0.175 * i)
        props.beam(m, (0.1 * math.cos(a), 0, z + 0.2), (0.75 * math.cos(a), 0, z + 0.25 + 0.75 * math.sin(a)), 0.13, ("paint_red", "cobalt", "gold", "cobalt", "paint_red")[i])
    put(m.build(0.03))
    for i in range(6):
        a = i * 1.05
        put(props.rock(i), 1.25 * math.cos(a), 1.05 * math.sin(a), 0, a, 0.3)
    put(props.flowers(1), 0.3, -1.3, 0, 0, 0.6)


def goods(step):
    """What lies before a warehouse, more of it with each of four steps; the stairs in the middle stay free."""
    put(sacks(3, 3), -2.5, -0.1, 0, 0.2, 1.3)
    if step >= 2:
        put(crate(1, 0.95), 2.0, 0.3, 0, 0.3)
        put(crate(2, 0.75), 3.0, -0.2, 0, -0.3)
    if step >= 3:
        put(stack_of_logs(2, 1.6, 2), -3.0, 1.1, 0, -0.4)
        put(crate(3, 0.7), 2.1, 0.3, 0.95, 0.7)
        put(barrel(), 1.7, -0.65, 0, 0, 1.2)
    if step >= 4:
        put(stone_block(1), 3.4, 0.9, 0, 0.2, 1.2)
        put(stone_block(2, (0.7, 0.55, 0.45)), 3.35, 0.9, 0.6, -0.2, 1.2)
        put(sacks(6, 5), -2.6, -0.75, 0, -0.1, 1.25)
        put(ingots(2, 5), 2.9, -1.0, 0, 0, 1.2)


def shop():
    """The market: striped awnings over tables of goods."""
    for x, stripe in ((-1.3, "paint_red"), (1.4, "cobalt")):
        m = scene.Model("stall", stripe)
        for px in (-1.0, 1.0):
            for py, high in ((-0.7, 1.6), (0.7, 2.1)):
                m.box((px, py, high / 2), (0.12, 0.12, high), "timber")
        for i in range(6):
            x0, x1 = -1.2 + 0.4 * i, -0.8 + 0.4 * i
            m.add([(x0, -0.95, 1.55), (x1, -0.95, 1.55), (x1, 0.9, 2.2), (x0, 0.9, 2.2)], [(0, 1, 2, 3)], stripe if i % 2 else "canvas")
            m.add([(x0, -0.95, 1.55), (x1, -0.95, 1.55), ((x0 + x1) / 2, -1.0, 1.25)], [(0, 1, 2)], stripe if i % 2 else "canvas")
        m.box((0, -0.45, 0.75), (2.1, 0.8, 0.12), "plank_light")
        for px in (-0.9, 0.9):
            m.box((px, -0.45, 0.36), (0.12, 0.6, 0.72), "plank_dark")
        for i in range(7):
            m.blob((-0.8 + 0.27 * i, -0.5 + 0.14 * (i % 2), 0.92), 0.14, ("leaf_light", "paint_red", "gold", "wheat")[(i + len(stripe)) % 4], rough=0.05)
        put(m.build(0.01), x, 0.3, 0, -0.12)
    put(sacks(1, 4), -0.2, -1.5)
    put(crate(1, 0.55), 1.6, -1.2)
    put(barrel(), 2.5, -0.9)
    put(pole_flag(3.2, "gold"), 0.1, 1.4)


def port():
    """A pier with a bollard, a lamp and goods."""
    m = scene.Model("pier")
    for k in range(11):
        m.box((-2.0 + 0.42 * k, 0, 0.3), (0.37, 2.4, 0.14), m.random.choice(["plank", "plank_light"]), turn=(0, 0, m.random.uniform(-0.02, 0.02)))
    for x in (-1.9, 0.1, 2.1):
        for y in (-1.2, 1.2):
            m.prism((x, y, -0.4), 0.19, 0.17, 1.35, 7, "timber")
            m.box((x, y, 0.8), (0.44, 0.44, 0.1), "rope")
    put(m.build(0.02))
    put(barn((1.7, 1.4, 1.2), "plank_light", "plank_dark", "roof", 0.2), -1.0, 0.4, 0.3, TURN)
    put(crate(1, 0.55), 0.6, 0.6, 0.37)
    put(crate(2, 0.5), 1.2, 0.5, 0.37, 0.4)
    put(barrel(), 0.9, -0.5, 0.37)
    put(pole_flag(2.8, "cobalt"), 2.1, 1.2)


MAKE = {  # name: puts up a state of it; what it takes is the level, or nothing, and the part of a run for what moves
    "FoodMill": food_mill, "Warehouse": warehouse, "WoodMill": wood_mill, "StoneMill": stone_mill, "IronMill": iron_mill, "Bridge": bridge,
    "StartPoint": start_point, "Bunker": bunker, "Idol": totem, "Shop": shop, "Port": port, "Caravan": caravan, "Goods": goods,
    "CaravanOpen": caravan_opens, "CaravanGoods": caravan_goods,
    "FlagGold": lambda part: flag("gold", part), "FlagSilver": lambda part: flag("silver", part), "FlagBlue": lambda part: flag("cobalt", part),
    "PlayerFence_piece": lambda: put(stakes()), "PlayerFence_tower": lambda: put(fence_tower()), "PlayerFence_site": lambda: put(fence_site()),
    "EnemyFence_piece": lambda: put(stakes("log", "log_light", "ink", True)), "EnemyFence_tower": lambda: put(fence_tower(True)),
    "EnemyFence_site": lambda: put(fence_site(True)),
    "Stone": lambda: put(heap(7, ("stone",), 0.1, 1), 0, 0, -0.5, 0, 1.6),
}


def build(name, state, part=0.0):
    """Puts up what the state shows; part is how far through its run it is, 0 to 1."""
    if not is_numbered(state):
        return MAKE[name](part) if LOOKS[name].moving else MAKE[name]()
    level = int(state.rsplit("_", 1)[1])
    return MAKE[name](level, part) if LOOKS[name].moving else MAKE[name](level)
