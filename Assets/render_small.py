"""Renders the tick, the cloud, the birds and the pointer's burdens: blender -b -P render_small.py -- DIR [tick] [cloud] [birds] [cursors]"""
import math
import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.join(HERE, "buildings"), os.path.join(HERE, "men")]
import scene

SCALE = 3  # of the tick, to its size on the screen


def tick():
    """A tick in thick gold paint about the origin."""
    m = scene.Model("tick")
    outline = [(-0.115, 0.0), (-0.07, 0.045), (-0.03, 0.0), (0.095, 0.14), (0.135, 0.105), (-0.03, -0.085)]
    n = len(outline)
    points = [(x, y, z) for y in (-0.03, 0.03) for x, z in outline]
    m.add(points, [tuple(range(n)), tuple(reversed(range(n, 2 * n)))] + [(i, (i + 1) % n, n + (i + 1) % n, n + i) for i in range(n)], "gold")
    return m.build(0.012)


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


BIRD_FRAMES, BIRD_SIZE = 8, 64


def bird(flap, body, wing, tip):
    """A bird from above that flies to the left, its wings raised by the angle flap."""
    m = scene.Model("bird", f"{body}{flap}")
    m.blob((0, 0, 0), (0.62, 0.2, 0.17), body, rough=0.03)
    m.blob((-0.62, 0, 0.05), (0.2, 0.15, 0.14), body, rough=0.03)
    m.prism((-0.78, 0, 0.05), 0.07, 0.0, 0.2, 5, "gold", turn=(0, -math.pi / 2, 0))
    m.add([(0.5, 0.05, 0), (0.5, -0.05, 0), (1.0, -0.24, 0.02), (0.86, 0, 0.02), (1.0, 0.24, 0.02)], [(0, 1, 2, 3, 4)], tip)
    for side in (-1, 1):
        def along(out, up_more=0.0):
            a = flap * (0.8 + up_more)
            return side * (0.12 + out * math.cos(a)), out * math.sin(a)
        (y1, z1), (y2, z2) = along(0.85), along(1.62, 0.35)
        m.add([(-0.32, side * 0.1, 0.05), (0.28, side * 0.1, 0.05), (0.22, y1, z1), (-0.42, y1, z1)], [(0, 1, 2, 3)], wing)
        m.add([(-0.42, y1, z1), (0.22, y1, z1), (0.42, y2, z2), (0.2, y2, z2)], [(0, 1, 2, 3)], tip)
    return m.build(0.0)


def render_birds(out):
    for name, colours in (("gull", ("quill", "flower_white", "slate")), ("swallow", ("cobalt", "ink", "log"))):
        for i in range(BIRD_FRAMES):
            scene.reset(sun=3.0, sky=0.9)
            scene.place(bird(0.75 * math.sin(2 * math.pi * i / BIRD_FRAMES) + 0.1, *colours))
            scene.top_camera((0.05, 0, 0), 3.6)
            scene.render(f"{out}/{name}_{i}.png", (BIRD_SIZE * SCALE, BIRD_SIZE * SCALE), 24)


def small_catapult():
    """The catapult as it lies ready, a stone in its spoon."""
    import catapult
    m = scene.Model("catapult")
    for figure in (catapult.make_frame(), catapult.make_stone()):
        m.add(figure.points, figure.faces, figure.colours)
    return m.build(0.01)


CURSOR = 52  # units, of both


def render_cursors(out):
    """What the pointer carries while a place for it is looked for."""
    import models
    scene.reset()
    models.totem(1)
    scene.map_camera((0.0, 0, 1.15), 3.5)
    scene.render(f"{out}/idol_cursor.png", (CURSOR * SCALE, CURSOR * SCALE), 48)
    scene.reset()
    scene.place(small_catapult(), (0, 0, 0), math.radians(-40))
    scene.map_camera((0.0, 0, 0.45), 2.5)
    scene.render(f"{out}/catapult_cursor.png", (CURSOR * SCALE, CURSOR * SCALE), 48)


def main():
    out, *wanted = scene.arguments()
    for name in wanted:
        {"tick": render_tick, "cloud": render_cloud, "birds": render_birds, "cursors": render_cursors}[name](out)


main()
