"""Renders the wooden signs, the tick and the cloud: blender -b -P render_signs.py -- DIR [leave] [fullscreen] [tick] [cloud]

Signs come as DIR/leave_normal.png and so on for normal, hover, pressed and disabled, without their words; all at
SCALE times their size on the screen.
"""
import math
import os
import random
import sys

import bpy

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import scene

SCALE = 3
PIXELS_PER_METRE = 100
SIGNS = {"leave": (148, 80), "fullscreen": (200, 84)}  # frames in screen pixels, ropes included
ROPE = 20  # pixels of rope above the board
LOOKS = {  # strength of sun and sky, size of the board
    "normal": (3.5, 0.66, 1.0), "hover": (4.5, 0.9, 1.0), "pressed": (2.3, 0.45, 0.955), "disabled": (2.6, 0.8, 1.0),
}


def board(name, size):
    """Planks with worn ends on two ropes, the face at y = 0; the frame's middle is the origin."""
    m = scene.Model(name)
    w, h = (size[0] - 14) / PIXELS_PER_METRE, (size[1] - ROPE - 10) / PIXELS_PER_METRE
    low = -size[1] / 2 / PIXELS_PER_METRE + 0.05
    rows = 3
    for k in range(rows):
        left, right = (w / 2 - m.random.uniform(0, 0.035) for _ in range(2))
        colour = ("plank_light", "plank", "plank_light")[k]
        m.box(((right - left) / 2, m.random.uniform(0, 0.012), low + h * (k + 0.5) / rows), (left + right, 0.1, h / rows - 0.012), colour,
              turn=(0, m.random.uniform(-0.006, 0.006), 0))
    for side in (-1, 1):
        x = side * (w / 2 - 0.17)
        m.box((x, 0.06, low + h / 2), (0.12, 0.08, h + 0.03), "plank_dark")
        m.prism((x, 0.04, low + h - 0.04), 0.022, 0.022, 0.4, 7, "rope")
        for z in (low + 0.09, low + h - 0.09):
            m.prism((side * (w / 2 - 0.1), -0.04, z), 0.026, 0.018, 0.035, 8, "iron", turn=(math.pi / 2, 0, 0))
    return m.build(0.018)


def grain(m, size):
    """Fine lines along the boards."""
    r = random.Random(m.name)
    w, h = (size[0] - 30) / PIXELS_PER_METRE, (size[1] - ROPE - 18) / PIXELS_PER_METRE
    low = -size[1] / 2 / PIXELS_PER_METRE + 0.09
    for _ in range(22):
        length = r.uniform(0.15, 0.5)
        x, z = r.uniform(-w / 2, w / 2 - length), low + r.uniform(0, h)
        m.box((x + length / 2, -0.049, z), (length, 0.004, 0.006), "plank")
    return m


def checkbox(at, width):
    m = scene.Model("checkbox")
    m.box((at[0], -0.045, at[1]), (width, 0.02, width), "ink")
    t = 0.035
    for d in (-1, 1):
        m.box((at[0] + d * (width / 2), -0.06, at[1]), (t, 0.06, width + t), "plank_dark")
        m.box((at[0], -0.06, at[1] + d * (width / 2)), (width + t, 0.06, t), "plank_dark")
    return m.build(0.008)


def tick():
    """A tick in thick gold paint about the origin."""
    m = scene.Model("tick")
    outline = [(-0.115, 0.0), (-0.07, 0.045), (-0.03, 0.0), (0.095, 0.14), (0.135, 0.105), (-0.03, -0.085)]
    n = len(outline)
    points = [(x, y, z) for y in (-0.03, 0.03) for x, z in outline]
    m.add(points, [tuple(range(n)), tuple(reversed(range(n, 2 * n)))] + [(i, (i + 1) % n, n + (i + 1) % n, n + i) for i in range(n)], "gold")
    return m.build(0.012)


def render_sign(out, name):
    size = SIGNS[name]
    for look, (sun, sky, grow) in LOOKS.items():
        scene.reset(sun=sun, sky=sky)
        scene.place(board(name, size), scale=grow)
        scene.place(grain(scene.Model(name + "_grain"), size).build(), scale=grow)
        if name == "fullscreen":
            scene.place(checkbox(box_place(size), 0.24), scale=grow)
        scene.front_camera((0, 0, 0), size[0] / PIXELS_PER_METRE)
        scene.render(f"{out}/{name}_{look}.png", (size[0] * SCALE, size[1] * SCALE), 40)


def box_place(size):
    """Middle of the box on the full screen sign, metres from the frame's middle."""
    return (-size[0] / 2 / PIXELS_PER_METRE + 0.335, (-size[1] / 2 + 5 + (size[1] - ROPE - 10) / 2) / PIXELS_PER_METRE)


def render_tick(out):
    scene.reset(sun=3.6, sky=0.8)
    scene.place(tick())
    scene.front_camera((0, 0, 0.02), 0.32)
    scene.render(f"{out}/tick.png", (32 * SCALE, 32 * SCALE), 64)


def render_cloud(out):
    """A heap of soft lumps with a flat base."""
    scene.reset(sun=2.6, sky=0.95)
    m = scene.Model("cloud", 4)
    r = m.random
    for x, z, size in ((-1.9, 0.1, 0.55), (-1.1, 0.3, 0.85), (-0.1, 0.55, 1.15), (1.0, 0.3, 0.9), (1.8, 0.12, 0.6), (0.5, 0.8, 0.75), (-0.7, 0.75, 0.7),
                       (2.4, 0.0, 0.35), (-2.5, 0.0, 0.35)):
        m.blob((x, r.uniform(-0.3, 0.3), z), (size, size * 0.8, size * 0.75), "cloud", rough=0.03, fine=2)
    o = scene.place(m.build())
    for p in o.data.polygons:
        p.use_smooth = True
    scene.front_camera((0, 0, 0.45), 6.4)
    scene.render(f"{out}/cloud.png", (256 * 2, 96 * 2), 64)


def main():
    out, *wanted = scene.arguments()
    for name in wanted:
        {"tick": render_tick, "cloud": render_cloud}.get(name, lambda o, n=name: render_sign(o, n))(out)


main()
