"""Renders what the screens show besides the start screen's valley:
blender -b -P render_interface.py -- DIR [load] [hive] [bees] [help]

load.png: the road to the bridge from lower down. hive.png: a meadow with a beehive; bee_0.png ... bee_2.png: the bee
that is calm, that points, that is alarmed. help_0.png ... help_2.png: one picture a page. All at SCALE times the size
on the screen.
"""
import math
import os
import random
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import props
import scene
import valley

SCALE = 2
HIVE, BEE, HELP = (416, 150), (132, 121), (420, 170)  # sizes on the screen


def render_load(out):
    """The valley as the carter sees it, 800 x 600."""
    scene.reset(haze=valley.HAZE)
    valley.build(post=False, caravans=((20.5, 1), (36.5, 2)))
    tower, wheel = valley.build_mill()
    valley.stand_sails(wheel, tower.location, valley.MILL_TURN, 1.0, 0.62)
    scene.vista_camera((-1.0, -15.0, 7.2), math.radians(4.5), 34)
    scene.render(f"{out}/load.png", (800 * SCALE, 600 * SCALE), 48)


def _meadow(name, width, depth, back):
    """Waving ground with grass and flowers, from y = -depth to back."""
    r = random.Random(name)

    def rise(x, y):
        return 0.12 * math.sin(x * 0.7 + y * 0.4) + 0.08 * math.sin(x * 1.7 - y) + 0.02 * max(0.0, y) ** 1.5

    m, n = scene.Model(name), 60
    rows = [-depth + (back + depth) * (k / 30) ** 1.3 for k in range(31)]
    for y in rows:
        for i in range(n + 1):
            x = width * (2 * i / n - 1) + r.uniform(-0.08, 0.08)
            m.points.append((x, y, rise(x, y)))
    for j in range(30):
        for i in range(n):
            a = j * (n + 1) + i
            for f in ((a, a + 1, a + n + 2), (a, a + n + 2, a + n + 1)):
                m.faces.append(f)
                m.colours.append(r.choice(("meadow", "meadow", "meadow_light", "meadow_dark")))
    scene.place(m.build())
    return rise


def _scatter(name, rise, count, xs, ys, what, sizes):
    r = random.Random(name)
    for _ in range(count):
        x, y = r.uniform(*xs), r.uniform(*ys)
        scene.place(r.choice(what), (x, y, rise(x, y)), r.uniform(0, 6), r.uniform(*sizes))


def _skep():
    """A beehive of straw ropes on a bench."""
    m = scene.Model("skep")
    m.box((0, 0, 0.62), (2.3, 1.3, 0.12), "plank")
    for x in (-0.9, 0.9):
        for y in (-0.45, 0.45):
            m.box((x, y, 0.28), (0.14, 0.14, 0.65), "plank_dark")
    for i in range(7):
        u = i / 7
        m.prism((0, 0, 0.68 + 0.165 * i), 0.80 * math.sqrt(1 - u ** 2.2), 0.78 * math.sqrt(1 - u ** 2.2), 0.16, 16, "thatch" if i % 2 else "wheat", spin=0.1 * i)
    m.blob((0, 0, 1.84), (0.16, 0.16, 0.12), "wheat_dark")
    m.prism((0, -0.8, 0.80), 0.2, 0.2, 0.08, 12, "ink", turn=(math.pi / 2, 0, 0))
    m.box((0, -0.78, 0.70), (0.7, 0.3, 0.05), "plank_light")
    return m.build(0.02)


def render_hive(out):
    """The bees' meadow behind the question whether to leave."""
    scene.reset(haze=(14, 60, 0.75))
    rise = _meadow("bee meadow", 16, 3, 26)
    tufts, blooms = [props.grass(i) for i in range(4)], [props.flowers(i) for i in range(4)]
    _scatter("bee grass", rise, 150, (-6, 6), (-2.2, 7), tufts, (0.5, 0.9))
    _scatter("bee blooms", rise, 46, (-6, 6), (-1.6, 6), blooms, (0.6, 1.0))
    _scatter("bee bushes", rise, 16, (-12, 12), (12, 18), [props.bush(i, c) for i, c in enumerate(("leaf_dark", "leaf"))], (1.0, 1.6))
    trees = [props.round_tree(1), props.round_tree(2, "leaf_dark", "leaf"), props.round_tree(5, "leaf_autumn", "wheat"), props.poplar(1)]
    for x, y, k, size in ((-7, 13, 0, 1.0), (-10.5, 17, 1, 1.2), (7.5, 14, 2, 1.0), (10.8, 18, 0, 1.3), (2.5, 20, 3, 1.0), (-2.0, 21, 1, 1.0)):
        scene.place(trees[k], (x, y, rise(x, y) - 0.1), x, size)
    skep = _skep()
    for x, y, turn, size in ((-2.5, 1.4, 0.25, 1.0), (2.9, 2.4, -0.3, 0.95)):
        scene.place(skep, (x, y, rise(x, y) - 0.05), turn, size)
    scene.place(props.fence(6.0), (3.4, 6.5, rise(5, 6.5)), 0.1, 1.0)
    scene.place(props.fence(6.0), (-9.0, 6.2, rise(-6, 6.2)), -0.06, 1.0)
    scene.vista_camera((0, -7.2, 2.6), math.radians(9), 40)
    scene.render(f"{out}/hive.png", (HIVE[0] * SCALE, HIVE[1] * SCALE), 40)


def _bee(mood):
    """A round bee that looks at the viewer; mood 0 is calm, 1 cheers and points to the right, 2 is alarmed."""
    m = scene.Model("bee", str(mood))
    for k in range(7):
        y = 0.62 - 0.2 * k
        r = 0.74 * math.sqrt(max(0.06, 1 - (y / 0.95) ** 2))
        m.prism((0, y + 0.1, 0), r, r, 0.205, 20, "ink" if k % 2 else "gold", turn=(math.pi / 2, 0, 0))
    m.blob((0, -0.62, 0.16), (0.6, 0.5, 0.56), "gold", rough=0.0, fine=3)
    for side in (-1, 1):
        _bee_eye(m, mood, side)
        m.blob((side * 0.42, -0.98, 0.03), (0.09, 0.04, 0.06), "flower_red", rough=0.0, fine=2)
        tip = (side * 0.42, -0.85, 0.98) if mood < 2 else (side * 0.56, -0.85, 0.86)
        props.beam(m, (side * 0.16, -0.75, 0.62), tip, 0.05, "ink")
        m.blob(tip, 0.085, "ink", rough=0.0, fine=2)
        lift = (0.55, 0.75, 1.05)[mood]
        m.blob((side * 0.82, 0.15, 0.5 + 0.28 * lift), (0.52, 0.2, 0.3), "foam", rough=0.0, fine=2)
    _bee_mouth(m, mood)
    _bee_limbs(m, mood)
    return m.build(0.006)


def _bee_eye(m, mood, side):
    if mood == 1:  # shut for joy
        _arc(m, (side * 0.23, -1.09, 0.22), 0.13, 0.13, 0)
        return
    wide, pupil = (0.15, 0.20)[mood // 2], (0.085, 0.06)[mood // 2]
    m.blob((side * 0.23, -1.02, 0.26), (wide, 0.1, wide * 1.25), "flower_white", rough=0.0, fine=2)
    m.blob((side * 0.23, -1.11, 0.25), (pupil, 0.05, pupil * 1.25), "ink", rough=0.0, fine=2)
    if mood == 2:
        props.beam(m, (side * 0.10, -1.12, 0.50), (side * 0.36, -1.08, 0.62), 0.06, "ink")


def _arc(m, at, wide, high, start):
    """Half a turn of thick line, from the angle `start` on, as the viewer sees it."""
    points = [(at[0] + wide * math.cos(start + math.pi * i / 6), at[1], at[2] + high * math.sin(start + math.pi * i / 6)) for i in range(7)]
    for p, q in zip(points, points[1:]):
        props.beam(m, p, q, 0.05, "ink")


def _bee_mouth(m, mood):
    if mood == 2:
        m.blob((0, -1.07, -0.10), (0.10, 0.05, 0.13), "ink", rough=0.0, fine=2)
    else:
        _arc(m, (0, -1.10, 0.03), (0.13, 0.2)[mood], (0.10, 0.17)[mood], math.pi)


def _bee_limbs(m, mood):
    hands = (((-0.42, -0.95, -0.38), (0.42, -0.95, -0.38)), ((-0.70, -0.9, 0.62), (1.10, -0.9, 0.30)), ((-0.74, -0.9, 0.55), (0.74, -0.9, 0.55)))[mood]
    for side, hand in zip((-1, 1), hands):
        props.beam(m, (side * 0.42, -0.6, -0.18), hand, 0.09, "ink")
        m.blob(hand, 0.14, "flower_white", rough=0.0, fine=2)
        props.beam(m, (side * 0.25, -0.2, -0.6), (side * 0.3, -0.35, -0.92), 0.08, "ink")
    if mood == 1:
        props.beam(m, hands[1], (hands[1][0] + 0.26, hands[1][1], hands[1][2] + 0.02), 0.10, "flower_white")


def render_bees(out):
    for mood in range(3):
        scene.reset(sun=3.2, sky=0.95)
        bee = scene.place(_bee(mood), (0, 0, 0), (0.35, 0.0, 0.0)[mood], 1.0)
        bee.rotation_euler[0] = math.radians(-4)
        scene.front_camera((0, 0, 0.05), 2.9)
        scene.render(f"{out}/bee_{mood}.png", (BEE[0] * SCALE, BEE[1] * SCALE), 48)


def render_help(out):
    for page, fill in enumerate((_page_roads, _page_mills, _page_fences)):
        scene.reset(haze=(22, 110, 0.7))
        fill()
        scene.render(f"{out}/help_{page}.png", (HELP[0] * SCALE, HELP[1] * SCALE), 36)


def _road_strip(rise, path, width, name):
    m, r = scene.Model(name), random.Random(name)
    offsets = (-width / 2 - 0.2, -width / 2 + 0.2, -0.2, 0.2, width / 2 - 0.2, width / 2 + 0.2)
    xs = [path[0][0] + (path[-1][0] - path[0][0]) * k / 60 for k in range(61)]
    for x in xs:
        y = valley.between(path, x)
        m.points += [(x, y + o + r.uniform(-0.1, 0.1), rise(x, y + o) + (0.03 if abs(o) > width / 2 else 0.07)) for o in offsets]
    for i in range(60):
        for k in range(5):
            a = i * 6 + k
            m.faces.append((a, a + 6, a + 7, a + 1))
            m.colours.append(("road_edge", "road", "road_edge", "road", "road_edge")[k])
    scene.place(m.build())


def _countryside(name):
    rise = _meadow(name, 34, 6, 60)
    _scatter(name + "grass", rise, 120, (-11, 11), (-4, 9), [props.grass(i) for i in range(4)], (0.7, 1.1))
    _scatter(name + "blooms", rise, 20, (-11, 11), (-4, 5), [props.flowers(i) for i in range(3)], (0.7, 1.0))
    trees = [props.round_tree(1), props.round_tree(2, "leaf_dark", "leaf"), props.fir(1), props.round_tree(5, "leaf_autumn", "wheat")]
    _scatter(name + "woods", rise, 70, (-34, 34), (18, 50), trees, (0.9, 1.4))
    return rise


def _page_roads():
    """A caravan on its road."""
    rise = _countryside("help roads")
    path = [(-20, 3.0), (-10, 1.4), (0, 0.4), (8, 0.9), (20, 3.4)]
    _road_strip(rise, path, 2.2, "help road")
    for k, (x, band) in enumerate(((-5.6, "paint_red"), (3.6, "cobalt"))):
        y = valley.between(path, x)
        scene.place(props.cart("canvas", band), (x, y, rise(x, y) + 0.08), 0, 1.15)
        for side, hide in ((0.42, "ox"), (-0.42, "soil")):
            scene.place(props.ox(hide, "ox_light"), (x + 3.6, valley.between(path, x + 3.6) + side, rise(x + 3.6, y) + 0.08), 0, 1.15)
    for x, y, shirt, load in ((9.2, -0.2, "shirt_red", "staff"), (-9.2, 0.9, "shirt_blue", "sack"), (0.2, -1.0, "shirt_green", None)):
        scene.place(props.man(shirt, load), (x, y, rise(x, y) + 0.05), 0.05, 1.2)
    scene.place(props.house(1), (-13, 11, rise(-13, 11)), 0.3, 1.1)
    scene.place(props.house(3, "thatch", (3.8, 3.0)), (12, 10, rise(12, 10)), -0.35, 1.1)
    scene.vista_camera((0, -13.5, 4.6), math.radians(9.5), 30)


def _page_mills():
    """A mill, and what it has made: sacks, planks, stone and iron."""
    rise = _countryside("help mills")
    scene.place(props.windmill(), (-4.5, 8, rise(-4.5, 8)), math.radians(20), 0.72)
    valley.stand_sails(props.sails(), (-4.5, 8, rise(-4.5, 8)), math.radians(20), 0.72, 0.5)
    scene.place(props.house(2, "roof_dark", (5.2, 3.4)), (7.8, 8.5, rise(8, 8.5)), -0.3, 1.15)
    m = scene.Model("goods")
    for x, y, z in ((-5.4, -2.6, 0.35), (-4.4, -2.8, 0.35), (-4.9, -2.2, 0.9)):
        m.blob((x, y, z), (0.55, 0.42, 0.42), "canvas", rough=0.06)
        m.blob((x, y, z + 0.42), (0.16, 0.14, 0.14), "rope", rough=0.05)
    for k in range(9):
        m.prism((-2.6, -3.2 + 0.36 * (k % 4 + 0.5 * (k // 4)), 0.2 + 0.3 * (k // 4)), 0.18, 0.18, 2.1, 8, "trunk" if k % 2 else "plank_light", turn=(0, math.pi / 2, 0))
    for x, y, z, s in ((1.4, -2.7, 0.3, 0.5), (2.2, -2.4, 0.3, 0.55), (1.9, -2.6, 0.85, 0.42)):
        m.box((x, y, z), (s * 1.5, s * 1.2, s), "stone" if s > 0.5 else "stone_dark", turn=(0, 0, x))
    for k in range(5):
        m.box((4.2 + 0.5 * (k % 3) + 0.25 * (k // 3), -2.6, 0.2 + 0.26 * (k // 3)), (0.38, 0.95, 0.24), "iron", turn=(0, 0, 0.1))
    for k in range(7):
        m.prism((6.6 + 0.34 * (k % 3), -2.9 + 0.25 * (k % 2), 0.05 + 0.09 * (k // 2)), 0.22, 0.22, 0.09, 12, "gold")
    scene.place(m.build(0.03))
    scene.place(props.man("shirt_blue", "sack"), (-7.4, -2.2, rise(-7.4, -2.2)), 0.3, 1.25)
    scene.vista_camera((0, -16.0, 5.4), math.radians(8.0), 27)


def _page_fences():
    """Strangers before a fence, their camp behind them."""
    rise = _countryside("help fences")
    for k in range(4):
        scene.place(props.fence(4.0), (-1.6 + 0.5 * k, -3.4 + 3.9 * k, rise(-1.2 + 0.5 * k, -3.4 + 3.9 * k) - 0.05), 1.45, 1.25)
    scene.place(props.bunker(), (9.0, 6.0, rise(9, 6)), 0.2, 1.2)
    for x, y, load in ((1.7, -1.2, "staff"), (3.4, 0.6, None), (5.0, -0.8, "staff")):
        scene.place(props.man("enemy_shirt", load, 7, "enemy_red"), (x, y, rise(x, y)), math.pi, 1.25)
    scene.place(props.house(1), (-8.5, 5.5, rise(-8.5, 5.5)), 0.3, 1.15)
    scene.place(props.man("shirt_red", "staff"), (-4.4, -1.4, rise(-4.4, -1.4)), 0.1, 1.25)
    scene.place(props.haystack(), (-6.8, 0.6, rise(-6.8, 0.6)), 0, 1.0)
    scene.vista_camera((0, -12.0, 4.4), math.radians(7.5), 30)


def main():
    out, *wanted = scene.arguments()
    for name in wanted:
        {"load": render_load, "hive": render_hive, "bees": render_bees, "help": render_help}[name](out)


main()
