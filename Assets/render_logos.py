"""Renders what lies behind the three logos: blender -b -P render_logos.py -- DIR [lane] [craft] [title] [icon]"""
import math
import os
import random
import sys

import bpy

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import props
import scene
import valley

SCALE = 2


def render_lane(out):
    """The studio's emblem: a lane between two hedgerows that leads over a hill, 360 x 360."""
    scene.reset(haze=(18, 95, 0.75))

    def rise(x, y):
        return 0.0016 * y * y * (1 if y > 0 else 0) + 0.35 * math.sin(x * 0.21 + y * 0.1) * min(1, abs(x) / 6)

    def bend(y):
        return 2.6 * math.sin(y * 0.085) - 0.02 * y

    _lane_ground(rise, bend)
    r = random.Random("lane")
    hedge = [props.bush(i, c) for i, c in enumerate(("leaf_dark", "leaf", "leaf_dark", "fir"))]
    blooms, tufts = [props.flowers(i) for i in range(3)], [props.grass(i) for i in range(3)]
    trees = [props.round_tree(1), props.round_tree(2, "leaf_dark", "leaf"), props.round_tree(5, "leaf_autumn", "wheat")]
    y = -7.0
    while y < 46:
        for side in (-1, 1):
            x = bend(y) + side * (2.35 + r.uniform(-0.12, 0.12))
            scene.place(r.choice(hedge), (x, y, rise(x, y)), r.uniform(0, 6), r.uniform(1.05, 1.35))
            if r.random() < 0.45:
                scene.place(r.choice(blooms), (x - side * 0.9, y, rise(x, y)), r.uniform(0, 6), 0.8)
            if r.random() < 0.5:
                x += side * r.uniform(1.2, 5)
                scene.place(r.choice(tufts), (x, y, rise(x, y)), r.uniform(0, 6), 1.0)
        y += 0.72
    for x, y, k, size in ((-6.4, 7, 0, 1.5), (7.2, 12, 1, 1.35), (-11.5, 22, 1, 1.5), (9.5, 26, 2, 1.3), (-12, 34, 1, 1.6), (12, 36, 0, 1.6), (5, 44, 1, 1.4),
                          (-5.5, 46, 0, 1.5)):
        scene.place(trees[k], (x, y, rise(x, y)), x, size)
    house = scene.place(props.house(3, "thatch", (3.8, 3.0)), (6.4, 31, rise(6.4, 31)), -0.5, 1.25)
    house.location.z -= 0.1
    scene.vista_camera((bend(-12), -14.5, 5.4), math.radians(7.5), 46)
    scene.render(f"{out}/lane.png", (360 * SCALE, 360 * SCALE), 28)


def _lane_ground(rise, bend):
    m, r = scene.Model("lane_ground"), random.Random("lane ground")
    ys, columns = [-15 + 0.8 * k for k in range(84)], 64
    for y in ys:
        for i in range(columns + 1):
            x = -26 + 52 * i / columns
            edge = 0.0 if abs(x - bend(y)) < 3 else r.uniform(-0.25, 0.25)
            m.points.append((x + edge, y, rise(x, y)))
    for j in range(len(ys) - 1):
        for i in range(columns):
            a = j * (columns + 1) + i
            for f in ((a, a + 1, a + columns + 2), (a, a + columns + 2, a + columns + 1)):
                m.faces.append(f)
                m.colours.append(r.choice(["meadow", "meadow", "meadow_light", "meadow_dark"]))
    scene.place(m.build())
    lane, w = scene.Model("lane"), (-1.35, -0.85, -0.3, 0.3, 0.85, 1.35)
    for y in ys:
        lane.points += [(bend(y) + o, y, rise(bend(y) + o, y) + 0.05) for o in w]
    for j in range(len(ys) - 1):
        for k in range(5):
            a = j * 6 + k
            lane.faces.append((a, a + 1, a + 7, a + 6))
            lane.colours.append(("road_edge", "road", "meadow_light", "road", "road_edge")[k])
    scene.place(lane.build())


def render_craft(out):
    """A cart wheel on a wall of planks with a quill laid across, 800 x 600."""
    scene.reset(sun=3.2, sky=0.55)
    wall, r = scene.Model("wall"), random.Random("wall")
    for k in range(10):
        z = -3.15 + 0.7 * k
        shift = r.uniform(0.5, 2.5)
        for x in (-6 + shift, 0.2 + shift, 6.4 + shift, -12.2 + shift):
            wall.box((x, 0.2 + r.uniform(-0.012, 0.012), z), (6.18, 0.3, 0.685), r.choice(["walnut", "walnut", "walnut_light"]))
    wall.box((0, 0.5, 0), (14, 0.1, 9), "ink")
    scene.place(wall.build(0.02))
    wheel = scene.Model("wheel")
    wheel.wheel((0, 0, 0), 1.5, "plank", rim=0.27, width=0.26, spokes=10, sides=40)
    wheel.wheel((0, 0, 0), 1.56, "iron", rim=0.07, width=0.28, spokes=0, sides=40)
    wheel.prism((0, -0.12, 0), 0.36, 0.30, 0.32, 12, "plank_light", turn=(math.pi / 2, 0, 0))
    wheel.prism((0, -0.40, 0), 0.15, 0.12, 0.12, 10, "gold", turn=(math.pi / 2, 0, 0))
    for i in range(10):
        a = 2 * math.pi * (i + 0.5) / 10
        wheel.prism((1.37 * math.cos(a), -0.11, 1.37 * math.sin(a)), 0.05, 0.035, 0.05, 8, "gold", turn=(math.pi / 2, 0, 0))
    scene.place(wheel.build(0.03), (0, -0.12, 0.86))
    o = scene.place(_quill(), (0.18, -0.72, 0.82))
    o.rotation_euler = (0, math.radians(38), 0)
    scene.front_camera((0, 0, 0), 8.0)
    scene.render(f"{out}/craft.png", (800 * SCALE, 600 * SCALE), 18)


def _quill():
    """A goose quill along z, its nib down, 4.3 long, bent like a bow."""
    m = scene.Model("quill")
    n, low, high = 48, -0.55, 2.35

    def bow(z):
        return 0.05 * (z - 0.4) ** 2

    for side in (-1, 1):
        first = len(m.points)
        for i in range(n + 1):
            t = i / n
            z = low + (high - low) * t
            width = (0.46 if side > 0 else 0.30) * min(1, t * 6) ** 0.6 * (1 - t ** 3.2) ** 0.8
            width *= 0.84 if i in (13, 29) or (side > 0 and i == 38) else 1.0
            m.points += [(bow(z), -0.03, z), (bow(z) + side * width, 0.06, z + 0.42 * width * (1 if side > 0 else 1.3))]
        for i in range(n):
            a = first + 2 * i
            m.faces.append((a, a + 1, a + 3, a + 2))
            m.colours.append("quill" if (i // 2) % 2 or side < 0 else "flower_white")
    for i in range(20):
        z, up = -1.75 + 4.1 * i / 20, -1.75 + 4.1 * (i + 1) / 20
        props.beam(m, (bow(z), -0.06, z), (bow(up), -0.06, up), 0.10 - 0.0042 * i, "horn")
    m.prism((bow(-2.05), -0.06, -2.1), 0.006, 0.055, 0.36, 6, "ink", turn=(0, -0.212, 0))
    return m.build(0.004)


def render_title(out):
    """The valley from lower down, much sky above it, 800 x 600."""
    scene.reset(haze=valley.HAZE)
    valley.build(post=False, caravans=((17.5, 1), (36.5, 2)))
    tower, wheel = valley.build_mill()
    valley.stand_sails(wheel, tower.location, valley.MILL_TURN, 1.0, 0.62)
    _enemy_camp(14.6, 7.5)
    scene.vista_camera((1.5, -30.0, 9.5), math.radians(-3.5), 36)
    scene.render(f"{out}/title.png", (800 * SCALE, 600 * SCALE), 40)


def _enemy_camp(x, y):
    """A bunker in the meadow, and three of its men on their way to the caravan."""
    scene.place(props.bunker(), (x, y, valley.land(x, y) - 0.05), 0.25, 1.12)
    for dx, dy, load in ((-5.6, 0.9, "staff"), (-7.0, 2.4, None), (-4.6, 2.6, "staff")):
        px, py = x + dx, y + dy
        scene.place(props.man("enemy_shirt", load, 7, "enemy_red"), (px, py, valley.land(px, py)), 2.5, 1.15)


def render_icon(out):
    """The mill, for 64 x 64."""
    scene.reset()
    scene.place(props.windmill(), (0, 0, 0), math.radians(24))
    valley.stand_sails(props.sails(), (0, 0, 0), math.radians(24), 1.0, math.pi / 4 - 0.12)
    tree = props.round_tree(1)
    scene.place(tree, (-4.2, 1.5, 0), 0, 1.1)
    scene.place(props.bush(1), (3.6, -1.2, -0.2), 0, 1.4)
    hill = scene.Model("hill")
    hill.blob((0, 0, -2.6), (9.5, 6.5, 2.6), "meadow", rough=0.02, fine=2)
    scene.place(hill.build())
    data = scene.map_camera((0.3, 0, 6.4), 15.4)
    data.rotation_euler[0], data.location = math.radians(80), (0.3, -59.1, 6.9 + 10.4)
    scene.render(f"{out}/icon.png", (64 * 8, 64 * 8), 32)


def main():
    out, *wanted = scene.arguments()
    for name in wanted:
        {"lane": render_lane, "craft": render_craft, "title": render_title, "icon": render_icon}[name](out)


main()
