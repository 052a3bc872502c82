"""Renders the tick and the cloud: blender -b -P render_small.py -- DIR [tick] [cloud]"""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
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


def main():
    out, *wanted = scene.arguments()
    for name in wanted:
        {"tick": render_tick, "cloud": render_cloud}[name](out)


main()
