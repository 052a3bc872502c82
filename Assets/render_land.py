"""Renders the land of a level: blender -b -P render_land.py -- DIR [samples=N] [trees] [0] ... [4]

land_N.png: the whole level at SCALE times its size; trees that men walk behind are there as shadows alone.
tree_KIND.png: one tree of a kind, without its shadow.
"""
import math
import os
import random
import sys

import bpy
import numpy

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.join(HERE, "levels"), os.path.join(HERE, "buildings")]
import models
import palette
import props
import scene
import shape

SCALE, SAMPLES = 2, 24
STEP = (9.0, 8.0)  # units between the corners of the ground's triangles
TREE_SIZE, TREE_FOOT = (96, 112), (48, 92)
KINDS = {
    "leaf": lambda: props.round_tree(0), "deep": lambda: props.round_tree(1, "leaf_dark", "leaf"), "fir": lambda: props.fir(1),
    "gold": lambda: props.round_tree(3, "leaf_light", "meadow_light"), "light": lambda: props.poplar(1),
    "autumn": lambda: props.round_tree(4, "leaf_autumn", "wheat"), "dead": lambda: props.dead_tree(1),
}


def ground_material():
    """Takes its colour from the corners of the mesh."""
    m = bpy.data.materials.new("ground")
    m.use_nodes = True
    nodes, links = m.node_tree.nodes, m.node_tree.links
    colour = nodes.new("ShaderNodeVertexColor")
    colour.layer_name = "colour"
    links.new(colour.outputs[0], nodes["Principled BSDF"].inputs["Base Color"])
    nodes["Principled BSDF"].inputs["Roughness"].default_value = 0.9
    nodes["Principled BSDF"].inputs["Specular"].default_value = 0.08
    return m


def _step(low, high, v):
    t = numpy.clip((v - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)


def waves(x, y):
    """Soft patches, about -1 to 1."""
    return (numpy.sin(x * 0.021 + 1.3 + 1.2 * numpy.sin(y * 0.013)) * numpy.cos(y * 0.027 + 0.4) + 0.5 * numpy.sin(x * 0.047 + y * 0.038)
            + 0.3 * numpy.sin(x * 0.093 - y * 0.081 + 2)) / 1.5


def height(away, x, y):
    """Metres: a meadow of low waves, a beach, then down to the bottom."""
    h = 0.16 * waves(x * 1.3 + 40, y * 1.3) * _step(8, 40, away)
    h -= 0.30 * (1 - _step(-2, 15, away))
    return h - 0.5 * (1 - _step(-16, -2, away))


def ground(lv):
    r = numpy.random.default_rng(7)
    xs, ys = numpy.arange(-20, lv.SIZE[0] + 21, STEP[0]), numpy.arange(-30, lv.SIZE[1] + 41, STEP[1])
    x, y = numpy.meshgrid(xs, ys)
    x, y = x + r.uniform(-2.6, 2.6, x.shape), y + r.uniform(-2.2, 2.2, y.shape)
    away = shape.shore(lv, x, y)
    z = height(away, x, y) + r.uniform(-0.035, 0.035, x.shape)
    points = [scene.on_map(a, b, c) for a, b, c in zip(x.flat, y.flat, z.flat)]
    columns, faces = len(xs), []
    for j in range(len(ys) - 1):
        for i in range(columns - 1):
            a = j * columns + i
            b, c, d = a + 1, a + columns, a + columns + 1
            faces += [(a, d, b), (a, c, d)] if (i + j) % 2 else [(a, c, b), (b, c, d)]
    mesh = bpy.data.meshes.new("ground")
    mesh.from_pydata(points, [], faces)
    mesh.materials.append(ground_material())
    corner = numpy.array(faces)
    middle = [v.reshape(-1)[corner].mean(axis=1) for v in (x, y, away)]
    smooth = colours(lv, x.reshape(-1), y.reshape(-1), away.reshape(-1), 0 * x.reshape(-1))
    flat = colours(lv, *middle, r.uniform(-1, 1, len(faces)))
    mixed = 0.45 * smooth[corner] + 0.55 * flat[:, None, :]
    layer = mesh.vertex_colors.new(name="colour")
    rgba = numpy.ones((len(faces) * 3, 4))
    rgba[:, :3] = mixed.reshape(-1, 3)
    layer.data.foreach_set("color", _srgb(rgba).reshape(-1))
    return mesh


def _srgb(linear):
    return numpy.where(linear <= 0.0031308, linear * 12.92, 1.055 * numpy.maximum(linear, 1e-6) ** (1 / 2.4) - 0.055)


def colours(lv, x, y, away, grain):
    """Linear colours of places: meadow in patches, worn where people walk, sand at the shore."""
    c = {name: numpy.array(palette.linear(name)) for name in ("log", "meadow", "meadow_light", "meadow_dark", "meadow_dry", "bank", "soil", "road_edge", "road", "foam")}
    patch = (waves(x, y) + 0.22 * grain)[:, None]
    out = c["meadow"] + (c["meadow_light"] - c["meadow"]) * _step(0.05, 0.75, patch)
    out = out + (c["meadow_dark"] - out) * _step(0.1, 0.8, -patch) * 0.9
    out = out + (c["meadow_dry"] - out) * _step(0.62, 1.1, patch + 0.1 * grain[:, None]) * 0.55
    burnt = (1 - _step(0.62, 1.08, shape.waste(lv, x, y) + 0.10 * waves(x * 2.3, y * 2.3) + 0.05 * grain))[:, None]
    ash = c["log"] * (1.15 + 0.25 * grain[:, None]) + (c["soil"] - c["log"]) * _step(-0.2, 0.9, patch) * 0.55
    out = out + (ash - out) * burnt * 0.86
    worn = numpy.full(x.shape, 1e9)
    for i, (px, py, _) in enumerate(lv.POINTS):
        size = 58 if any(b["point"] == i for b in lv.BUILDINGS) else 20
        worn = numpy.minimum(worn, numpy.hypot(x - px, (y - py) / 0.72) / size)
    worn = (1 - _step(0.35, 1.0, worn + 0.14 * grain))[:, None]
    out = out + (c["road_edge"] * 0.86 - out) * worn * 0.52
    for fx, fy, w, h in lv.FIELDS:
        off = numpy.maximum(abs(x - fx) - w / 2, (abs(y - fy) - h / 2) * 1.3) + 3 * grain
        out = out + (c["soil"] - out) * (1 - _step(-1, 7, off))[:, None] * 0.8
    path = shape.distance_to_lines(x, y, shape.arc_lines(lv))
    out = out + (c["meadow_dry"] - out) * (1 - _step(4, 15, path + 3 * grain))[:, None] * 0.28
    sand = (1 - _step(7, 15, away + 2.5 * grain + 3 * waves(x * 3, y * 3)))[:, None]
    out = out + (c["road"] * 0.98 - out) * sand
    wet = (1 - _step(-1, 5, away + grain))[:, None]
    return out + (c["bank"] * 0.8 - out) * wet * sand


def stand(mesh, x, y, z=0.0, turn=0.0, size=1.0):
    return scene.place(mesh, scene.on_map(x, y, z), turn, size)


def growth(lv):
    """Grass, flowers, stones, bushes and reeds, off the paths."""
    r = random.Random(f"growth{lv.SIZE}{len(lv.POINTS)}")
    area = lv.SIZE[0] * lv.SIZE[1] / 480000
    lines = shape.arc_lines(lv)
    tufts, blooms = [props.grass(i) for i in range(5)], [props.flowers(i) for i in range(4)]
    stones, bushes = [props.rock(i) for i in range(3)], [props.bush(i, c) for i, c in enumerate(("leaf_dark", "leaf", "leaf_dark"))]
    skulls = [props.bones(i) for i in range(3)]
    rushes = [props.reeds(i) for i in range(3)]
    houses = [lv.POINTS[b["point"]][:2] for b in lv.BUILDINGS]
    places = [(r.uniform(8, lv.SIZE[0] - 8), r.uniform(30, lv.SIZE[1] - 4)) for _ in range(round(5200 * area))]
    x, y = numpy.array(places).T
    away, path = shape.shore(lv, x, y), shape.distance_to_lines(x, y, lines)
    patch = waves(x, y)
    feet = [(tx, ty) for tx, ty, *_ in shape.trees(lv)]
    for a, b, d, p, w in zip(x, y, away, path, patch):
        if any(abs(tx - a) < 20 and -32 < b - ty < 8 for tx, ty in feet):
            continue
        house = min((math.hypot(hx - a, (hy - b) * 1.3) for hx, hy in houses), default=1e9)
        point = min(math.hypot(px - a, (py - b) * 1.3) for px, py, _ in lv.POINTS)
        pick, turn = r.random(), r.uniform(0, 6.28)
        if any(abs(fx - a) < w2 / 2 + 8 and abs(fy - b) < h2 / 2 + 10 for fx, fy, w2, h2 in lv.FIELDS):
            continue
        if d > 14 and p > 12 and point > 24 and shape.waste(lv, a, b) < 0.95 and pick < 0.9:
            if pick < 0.03 and house > 50:
                stand(r.choice(skulls), a, b, 0, turn, r.uniform(0.6, 0.9))
            elif pick < 0.06:
                stand(r.choice(stones), a, b, 0, turn, r.uniform(0.3, 0.7))
            continue
        if 4 < d < 9 and pick > 0.90:
            stand(r.choice(rushes), a, b, -0.1, turn, r.uniform(0.6, 0.9))
        elif 1 < d < 12 and pick < 0.10:
            stand(r.choice(stones), a, b, -0.15, turn, r.uniform(0.25, 0.6))
        elif d < 17 or p < 13 or house < 52 or point < 24:
            continue
        elif pick < 0.50:
            stand(r.choice(tufts), a, b, 0, turn, r.uniform(0.45, 0.8))
        elif pick < 0.56 and w > -0.1:
            stand(r.choice(blooms), a, b, 0, turn, r.uniform(0.55, 0.8))
        elif pick < 0.575 and p > 30 and house > 84 and point > 40:
            stand(r.choice(bushes), a, b, 0, turn, r.uniform(0.5, 0.85))
        elif pick < 0.585 and p > 22 and point > 34:
            stand(r.choice(stones), a, b, 0, turn, r.uniform(0.35, 0.8))


def fields(lv):
    """Wheat in rows, with a rail behind it and a stack beside."""
    for i, (x, y, w, h) in enumerate(lv.FIELDS):
        across, along = w / scene.MAP_UNITS, h / scene.MAP_UNITS / math.cos(scene.MAP_PITCH)
        stand(models.wheat_patch(i + 10, across, along), x, y, 0.02)
        stand(props.fence(across), x - w / 2, y - h / 2 - 4)
        stand(props.haystack(i), x + w / 2 + 7, y + h / 2 - 4, 0, 0, 0.55)


def render_level(out, number, samples):
    lv = shape.level(number)
    scene.reset()
    scene.place(ground(lv))
    growth(lv)
    fields(lv)
    meshes = {kind: make() for kind, make in KINDS.items()}
    for x, y, kind, size, stands in shape.trees(lv):
        o = stand(meshes[kind], x, y, 0, (x * 7 + y) % 6.28 if not stands else 0, size)
        o.visible_camera = not stands
    scene.map_camera(scene.on_map(lv.SIZE[0] / 2, lv.SIZE[1] / 2), max(lv.SIZE) / scene.MAP_UNITS)
    scene.render(f"{out}/land_{number}.png", tuple(v * SCALE for v in lv.SIZE), samples)


def render_trees(out, samples):
    for kind, make in KINDS.items():
        scene.reset()
        scene.place(make())
        scene.map_camera_on(TREE_SIZE, TREE_FOOT)
        scene.render(f"{out}/tree_{kind}.png", tuple(v * SCALE * 2 for v in TREE_SIZE), samples)


def main():
    out, samples, wanted = scene.quick_arguments(SAMPLES)
    for what in wanted:
        if what == "trees":
            render_trees(out, samples)
        else:
            render_level(out, int(what), samples)


main()
