"""Renders roads and the marks of points: blender -b -P render_roads.py -- DIR [samples=N] [roads] [marks]

road.png, enemy.png: a tile from straight above, SCALE times its size; what lies over its right edge comes back at its left.
mark_STATE.png: the disc of a way point as the map's camera sees it.
"""
import math
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import scene

SCALE = 6
TILE = (48, 26)  # units
MARK, MARK_FOOT = (48, 64), (24, 16)  # the disc lies in the upper half: GameLogic/WayPoint.xml tells why


def wrapped(m, x, place):
    """Calls place(x) for a part and for its neighbours a tile further on."""
    state = m.random.getstate()
    for shift in (-TILE[0], 0, TILE[0]):
        m.random.setstate(state)
        place(x + shift)


def cobbles():
    """Rounded stones in five rows, a few of them loose."""
    m = scene.Model("cobbles", 3)
    colours = ("road", "road", "bank", "stone", "road_edge", "stone", "plaster")
    for row in range(5):
        y = (row - 2) * 4.35
        n = 8 if row in (1, 3) else 9
        edges = sorted(m.random.uniform(-0.7, 0.7) + TILE[0] * i / n + row * 2.1 for i in range(n))
        for i, left in enumerate(edges):
            right = edges[i + 1] if i + 1 < n else edges[0] + TILE[0]
            if row in (0, 4) and m.random.random() < 0.16:
                continue
            colour, turn = m.random.choice(colours), m.random.uniform(-0.12, 0.12)
            middle, half = ((left + right) / 2) % TILE[0] - TILE[0] / 2, (right - left) / 2 - 0.28

            def stone(x, y=y, half=half, colour=colour, turn=turn):
                m.blob((x, y + turn * 4, 0.0), (half * 1.12, 2.4, 1.25), colour, rough=0.06, fine=1)
            wrapped(m, middle, stone)
    return m.build()


def dark_planks():
    """Charred planks across the way, bone spikes at both sides, old blood-red paint."""
    m = scene.Model("dark_planks", 5)
    n = 8
    for i in range(n):
        x = TILE[0] * (i + 0.5) / n - TILE[0] / 2
        colour = m.random.choice(("log", "log", "log_light", "enemy_shirt"))
        turn, long = m.random.uniform(-0.07, 0.07), m.random.uniform(19.5, 22.5)

        def plank(at, colour=colour, turn=turn, long=long, paint=i == 4, i=i):
            m.box((at, 0, 0.5), (TILE[0] / n - 0.7, long, 1.2), colour, turn=(0, 0, turn))
            if paint:
                m.prism((at, 1.5, 1.05), 3.6, 3.3, 0.12, 9, "enemy_red", spin=i)
                m.prism((at + 2.5, -3.5, 1.05), 1.6, 1.4, 0.12, 7, "enemy_red", spin=i)
        wrapped(m, x, plank)
        if i % 2 == 0:
            for side in (-1, 1):
                def spike(at, side=side):
                    m.prism((at + 3, side * 8.6, 1.0), 1.25, 0.0, 4.6, 6, "horn", turn=(-side * 1.15, 0.25, 0))
                wrapped(m, x, spike)
    return m.build(0.15)


BRIDGE_TILE, BRIDGE_END, BRIDGE_BROKEN = (32, 44), (24, 52), (32, 52)
PLAYER_WOOD, ENEMY_WOOD = ("plank", "plank_light", "timber"), ("log", "log_light", "ink")


def bridge_deck(wood, left=-16.0, right=16.0, gaps=()):
    """Planks across with a rail on both sides, on two beams; gaps are the planks that are missing."""
    m = scene.Model("bridge_deck", f"{wood}{left}{right}")
    n = round((right - left) / 6.4)
    middle, length = (left + right) / 2, right - left + 0.4
    for side in (-1, 1):
        m.box((middle, side * 12, -2.4), (length, 3, 3), wood[2])
    for i in range(n):
        if i not in gaps:
            x = left + (right - left) * (i + 0.5) / n
            m.box((x, 0, 0), (5.7, 31 + m.random.uniform(-1.5, 1.5), 1.6), m.random.choice(wood[:2]), turn=(0, 0, m.random.uniform(-0.03, 0.03) * (4 if gaps else 1)))
    for side in (-1, 1):
        if not gaps:
            m.box((middle, side * 14.5, 7), (length, 1.7, 1.7), wood[1])
        for x in (left + 8, right - 8):
            m.box((x, side * 14.5, 3), (2.2, 2.2, 9), wood[2])
    return m


def bridge_end(wood):
    """The landing at the left end: a stone kerb with two posts."""
    m = bridge_deck(wood, -7, 12)
    for k in range(7):
        m.box((-8.5, -18 + 6 * k, 0), (6.5, 5.6, 3), "stone" if k % 2 else "stone_dark")
    for side in (-1, 1):
        m.prism((-8, side * 19, 0), 4.2, 3.6, 11, 8, "stone" if wood is PLAYER_WOOD else "stone_dark")
        m.prism((-8, side * 19, 11), 4.6, 0.5, 5, 8, "roof" if wood is PLAYER_WOOD else "enemy_red")
    return m


def bridge_broken(wood):
    """The left end of a bridge that is gone: the kerb and a few planks."""
    m = bridge_deck(wood, -11, 12, (1, 3))
    for k in range(7):
        m.box((-12.5, -18 + 6 * k, 0), (6.5, 5.6, 3), "stone" if k % 2 else "stone_dark", turn=(0, 0, 0.12 * (k % 3 - 1)))
    m.box((13, -9, -1), (5.5, 14, 1.5), wood[0], turn=(0.2, 0, 0.5))
    return m


def bridge_place(wood):
    """Stumps in the water with ropes from one to the next, and a plank that was left: here the bridge would go on."""
    m = scene.Model("bridge_place", str(wood))
    for side in (-1, 1):
        for x in (-8, 8):
            m.prism((x, side * 12, -3), 3.2, 2.9, 9, 8, wood[2])
            m.prism((x, side * 12, 6), 2.6, 2.4, 0.5, 8, wood[1])
        m.box((0, side * 12, 4.5), (BRIDGE_TILE[0] * 1.02, 1.2, 1.0), "rope")
    for x, turn in ((-11, 0.12), (4, -0.2)):
        m.box((x, 1, 0), (4.6, 25, 1.4), wood[0] if x < 0 else wood[1], turn=(0, 0, turn))
    return m


GATE, GATE_FRAMES = (56, 56), 12


def gate(wood, opened):
    """A gate across a way, from above; opened is the angle of its two leaves. Its posts stand at both ends of the picture's middle line."""
    m = scene.Model("gate", f"{wood}{opened}")
    for side in (-1, 1):
        m.prism((side * 23, 0, 0), 4.2, 3.8, 16, 8, wood[2])
        m.prism((side * 23, 0, 16), 4.8, 0.6, 5, 8, "roof" if wood is PLAYER_WOOD else "enemy_red")
        c, s = math.cos(opened), math.sin(opened)
        for k in range(5):
            along = 4 + 4.1 * k
            m.box((side * (23 - along * c), along * s, 6), (3.8, 3.6, 11 + (k % 2)), wood[k % 2], turn=(0, 0, -side * opened))
        m.box((side * (23 - 12 * c), 12 * s, 13), (20, 1.6, 1.6), wood[2], turn=(0, 0, -side * opened))
    return m


def bridge_gaps(wood):
    """A piece that has lost two of its planks: one can still walk over it, not drive."""
    return bridge_deck(wood, gaps=(1, 3))


BRIDGES = {"": (bridge_deck, BRIDGE_TILE), "_gaps": (bridge_gaps, BRIDGE_TILE), "_end": (bridge_end, BRIDGE_END), "_broken": (bridge_broken, BRIDGE_BROKEN), "_place": (bridge_place, BRIDGE_TILE)}


MARKS = {"neutral": ("stone", "stone_dark", "meadow_dry"), "player": ("bank", "gold", "road"), "enemy": ("log_light", "enemy_red", "enemy_shirt"),
         "border": ("bank", "enemy_red", "road"), "hidden": ("rock_dark", "rock", "soil")}


def mark(rim, jewel, floor):
    """A ring of stones round a floor; four of the stones carry the colour of the side."""
    m = scene.Model("mark", rim + jewel)
    m.prism((0, 0, -0.1), 0.98, 0.92, 0.2, 20, floor)
    n = 12
    for i in range(n):
        a = 2 * math.pi * (i + 0.5) / n
        colour = jewel if i % 3 == 1 else rim
        m.blob((1.0 * math.cos(a), 1.0 * math.sin(a), 0.1), (0.27, 0.27, 0.20 if colour == rim else 0.26), colour, rough=0.10)
    m.prism((0, 0, 0.05), 0.34, 0.30, 0.10, 10, jewel)
    return m.build(0.03)


def main():
    out, samples, wanted = scene.quick_arguments(20)
    if not wanted or "roads" in wanted:
        for name, make in (("road", cobbles), ("enemy", dark_planks)):
            scene.reset(sun=2.9, sky=0.85)
            scene.place(make())
            scene.top_camera((0, 0, 0), TILE[0])
            scene.render(f"{out}/{name}.png", (TILE[0] * SCALE, TILE[1] * SCALE), samples)
        for side, wood in (("bridge", PLAYER_WOOD), ("enemy_bridge", ENEMY_WOOD)):
            for part, (make, size) in BRIDGES.items():
                if part == "_gaps" and wood is not PLAYER_WOOD:
                    continue
                scene.reset(sun=2.9, sky=0.85)
                scene.place(make(wood).build(0.25))
                scene.top_camera((0, 0, 0), max(size))
                scene.render(f"{out}/{side}{part}.png", (size[0] * SCALE, size[1] * SCALE), samples)
        for side, wood in (("gate", PLAYER_WOOD), ("enemy_gate", ENEMY_WOOD)):
            for i in range(GATE_FRAMES):
                scene.reset(sun=2.9, sky=0.85)
                scene.place(gate(wood, math.radians(86) * math.sin(math.pi * i / GATE_FRAMES)).build(0.25))
                scene.top_camera((0, 0, 0), GATE[0])
                scene.render(f"{out}/{side}_{i:02}.png", (GATE[0] * SCALE, GATE[1] * SCALE), samples)
    if not wanted or "marks" in wanted:
        for name, colours in MARKS.items():
            scene.reset()
            scene.place(mark(*colours), (0, 0, 0), 0, 0.84)
            scene.map_camera_on(MARK, MARK_FOOT)
            scene.render(f"{out}/mark_{name}.png", (MARK[0] * SCALE, MARK[1] * SCALE), samples)


main()
