"""The catapult of both sides and its stone: meshes with bones and how they charge and shoot, written to Data/Catapults/.

    blender -b --python-exit-code 1 -P Assets/men/catapult.py -- FOLDER

It stands at the origin and throws along -y. The stone is a unit of its own that lies in the arm's spoon and moves as it does.
"""
import math
import os
import sys

import bpy

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.dirname(HERE)]
sys.dont_write_bytecode = True
import export_unit
from figure import Figure, make_actions, make_armature

SCALE = 32.0  # logical units in a metre
AXLE, SPOON = (0.0, -0.30, 0.62), (0.0, 0.92, 0.50)
BONES = {"frame": (None, (0, 0, 0), (0, 0, 0.3)), "arm": ("frame", AXLE, SPOON)}
UP = 84  # degrees that the arm turns from lying to standing
ENEMY_DRESS = {"plank": "log", "plank_light": "log_light", "timber": "ink", "paint_red": "enemy_red", "rope": "quill_shade", "iron": "enemy_shirt"}


def box(f, at, size, colour, follows="frame", turn=0.0):
    """A box by its centre, leaned about the x axis through it."""
    points = []
    for z in (-1, 1):
        for y in (-1, 1):
            for x in (-1, 1):
                px, py, pz = x * size[0] / 2, y * size[1] / 2, z * size[2] / 2
                py, pz = py * math.cos(turn) - pz * math.sin(turn), py * math.sin(turn) + pz * math.cos(turn)
                points.append((px + at[0], py + at[1], pz + at[2]))
    f.add(points, [(0, 2, 3, 1), (4, 5, 7, 6), (0, 1, 5, 4), (2, 6, 7, 3), (0, 4, 6, 2), (1, 3, 7, 5)], colour, follows)


def wheel(f, at, radius):
    n, half = 12, 0.06
    points = [(at[0] + side * half, at[1] + r * math.cos(2 * math.pi * i / n), at[2] + r * math.sin(2 * math.pi * i / n))
              for r in (radius, radius * 0.30) for side in (-1, 1) for i in range(n)]
    faces, colours = [], []
    for i in range(n):
        k = (i + 1) % n
        faces += [(i, k, n + k, n + i)]
        colours += ["timber"]
        for side in (0, n):
            faces += [(side + i, side + k, 2 * n + side + k, 2 * n + side + i)]
            colours += ["plank" if i % 3 else "plank_light"]
    for side in (0, n):
        faces.append(tuple(2 * n + side + i for i in range(n)))
        colours.append("iron")
    f.add(points, _outward(points, faces, at), colours, "frame")


def _outward(points, faces, middle):
    """The faces turned so that they look away from the middle of a solid that bulges nowhere inward."""
    out = []
    for face in faces:
        a, b, c = (points[i] for i in face[:3])
        u, v = [b[i] - a[i] for i in range(3)], [c[i] - a[i] for i in range(3)]
        normal = (u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0])
        centre = [sum(points[i][k] for i in face) / len(face) for k in range(3)]
        out.append(face if sum(n * (c - m) for n, c, m in zip(normal, centre, middle)) > 0 else tuple(reversed(face)))
    return out


def make_frame():
    f = Figure()
    for x in (-0.42, 0.42):
        box(f, (x, 0.05, 0.30), (0.14, 1.95, 0.18), "plank")
        box(f, (x, -0.36, 0.68), (0.13, 0.16, 0.80), "timber")
        box(f, (x, -0.05, 0.62), (0.10, 0.12, 0.82), "plank_light", turn=0.75)
        for y in (-0.68, 0.72):
            wheel(f, (x * 1.42, y, 0.25), 0.26)
    for y in (-0.86, 0.30, 0.96):
        box(f, (0, y, 0.30), (0.95, 0.14, 0.16), "plank_light")
    box(f, (0, -0.36, 1.06), (1.06, 0.20, 0.18), "timber")
    box(f, (0, -0.46, 1.06), (0.5, 0.1, 0.24), "paint_red")
    box(f, (0, AXLE[1], AXLE[2]), (0.98, 0.13, 0.13), "iron")
    for x in (-0.25, 0.25):
        box(f, (x, AXLE[1], AXLE[2]), (0.14, 0.24, 0.24), "rope")
    lean = math.atan2(SPOON[2] - AXLE[2], SPOON[1] - AXLE[1])
    middle = [(a + b) / 2 for a, b in zip(AXLE, SPOON)]
    box(f, middle, (0.13, 1.30, 0.12), "plank_light", "arm", lean)
    box(f, (0, SPOON[1] - 0.05, SPOON[2] + 0.02), (0.36, 0.36, 0.08), "timber", "arm", lean)
    for x in (-0.17, 0.17):
        box(f, (x, SPOON[1] - 0.05, SPOON[2] + 0.09), (0.06, 0.38, 0.14), "plank", "arm", lean)
    for y in (-0.20, 0.16):
        box(f, (0, SPOON[1] + y, SPOON[2] + 0.09 + y * math.tan(lean)), (0.36, 0.06, 0.14), "plank", "arm", lean)
    box(f, (0, 0.25, 0.565), (0.18, 0.10, 0.17), "rope", "arm", lean)
    return f


def make_stone():
    f = Figure()
    f.ball((0, SPOON[1] - 0.05, SPOON[2] + 0.16), (0.15, 0.15, 0.14), "stone", "arm", 8, 5)
    f.ball((0.05, SPOON[1] - 0.10, SPOON[2] + 0.19), (0.11, 0.10, 0.11), "stone_dark", "arm", 7, 4)
    return f


def smooth(t):
    t = min(max(t, 0.0), 1.0)
    return t * t * (3 - 2 * t)


def rest(t):
    return {"arm": (UP, 0, 0)}


def charge(t):
    """The arm comes down in five pulls."""
    pull = (math.floor(t * 5) + smooth((t * 5) % 1.0)) / 5
    return {"arm": (UP * (1 - pull), 0, 0)}


def shoot(t):
    """It lies still for a moment, flies up, shakes and stands."""
    t = t * 1.2 - 0.10
    up = min(max(t / 0.16, 0.0), 1.0) ** 2
    shake = 9 * math.exp(-6 * max(t - 0.16, 0.0)) * math.sin(30 * max(t - 0.16, 0.0))
    return {"arm": (UP * up + shake, 0, 0), "frame": (-2.5 * math.exp(-8 * max(t - 0.16, 0)) * math.sin(24 * max(t - 0.16, 0)), 0, 0)}


def throw(t):
    """The stone's part of a shot: until it leaves the spoon."""
    return {"arm": (UP * 0.9 * min(max((t * 1.2 - 0.38) / 0.82, 0.0), 1.0) ** 2, 0, 0)}


def main(folder):
    for name, make, actions in (("catapult", make_frame, {"rest": (rest, 0.5), "charge": (charge, 1.5), "shot": (shoot, 1.1)}),
                                ("stone", make_stone, {"charge": (charge, 1.5), "shot": (throw, 0.26)})):
        bpy.ops.wm.read_factory_settings(use_empty=True)
        armature = make_armature(name, BONES)
        figure = make()
        figure.build(name, armature, math.radians(30))
        make_actions(armature, actions, "frame")
        os.makedirs(folder, exist_ok=True)
        export_unit.unit(folder, name, SCALE)
        figure.save_texture(os.path.join(folder, f"{name}.png"))
        if name == "catapult":
            figure.save_texture(os.path.join(folder, "enemy.png"), ENEMY_DRESS)


if __name__ == "__main__":
    main(sys.argv[sys.argv.index("--") + 1])
