"""The map of levels, drawn without Blender: islands in the sea with what stands on the levels, small, and its flags.

    build.py strategic

What stands on it are the pictures of render_land.py and render_buildings.py, so those come first.
"""
import math
import os
import random
import sys

import numpy
from PIL import Image, ImageChops, ImageDraw

import palette
import picture
import widgets as wood

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "levels"))
from land import _cliff, colour, noise, over, step  # noqa: E402

SIZE, K = (800, 600), 2  # units; pixels to a unit while it is drawn
NODES = ((250, 420), (400, 330), (560, 260), (672, 402), (498, 494))  # as Data/GameUI/Strategic/StrategicMap.xml places them
ISLANDS = (  # middle, half width, half height of the lobes of each
    ((245, 428), 98, 52), ((190, 456), 58, 34), ((300, 398), 46, 30),
    ((402, 338), 78, 46), ((446, 360), 44, 28), ((366, 312), 40, 24),
    ((566, 268), 104, 56), ((630, 244), 62, 36), ((520, 300), 46, 26),
    ((672, 410), 86, 48), ((722, 388), 46, 30), ((642, 432), 40, 26),
    ((494, 504), 84, 44), ((434, 526), 44, 26), ((544, 490), 34, 24),
    ((120, 230), 62, 34), ((160, 214), 40, 24), ((330, 160), 48, 26), ((720, 530), 48, 24),
)
BRIDGES = (((326, 382), (356, 364)), ((462, 328), (492, 304)), ((602, 310), (634, 374)), ((602, 446), (570, 476)))
HOUSES = (("FoodMill_2", (206, 452), 0.42), ("Warehouse_2", (296, 424), 0.34), ("WoodMill_1", (446, 366), 0.36),
          ("Shop", (616, 288), 0.36), ("StoneMill_2", (640, 246), 0.36),
          ("WoodMill_2", (728, 398), 0.36), ("StoneMill_1", (636, 436), 0.32), ("IronMill_2", (440, 528), 0.36), ("Warehouse_3", (544, 512), 0.34))
WOODS = ((168, 450, 9), (232, 392, 5), (300, 404, 4), (366, 318, 7), (432, 322, 5), (520, 292, 6), (604, 236, 7), (690, 440, 8), (708, 372, 5),
         (468, 514, 6), (524, 528, 5), (720, 528, 9), (118, 228, 10), (162, 212, 7), (330, 160, 9))
CLIFF = 7  # units


def _away():
    """How far each pixel lies inside the shore, units; below 0 in the sea."""
    h, w = SIZE[1] * K, SIZE[0] * K
    y, x = numpy.mgrid[0:h, 0:w].astype(numpy.float64) / K
    away = numpy.full((h, w), -60.0)
    for (cx, cy), a, b in ISLANDS:
        r = numpy.hypot((x - cx) / a, (y - cy) / b)
        lobe = (1 - r) * (a + b) / 2
        t = numpy.clip(0.5 + (lobe - away) / 24, 0, 1)  # lobes melt into each other
        away = away + (lobe - away) * t + 6 * t * (1 - t)
    return away + 14 * (noise((h, w), 34 * K, 21) - 0.5) + 6 * (noise((h, w), 11 * K, 22) - 0.5), x, y


def _sea(away, x, y):
    h, w = away.shape
    swell = noise((h, w), 46 * K, 1) * 0.6 + noise((h, w), 15 * K, 2) * 0.4
    ripple = 0.5 + 0.5 * numpy.sin(y * 0.55 + 5 * swell + 0.05 * x)
    deep = colour("water") * (0.72 + 0.16 * swell + 0.05 * ripple)[..., None]
    deep = deep + (colour("cobalt") - deep) * (0.26 * (1 - y / SIZE[1]))[..., None]
    shallow = (1 - step(4, 34, -away + 14 * (swell - 0.5)))[..., None] * 0.75
    sea = deep + (colour("water") * 1.15 + (colour("foam") - colour("water")) * 0.3 - deep) * shallow
    for place, soft, strength in ((-3.0, 1.5, 0.8), (-9.0, 1.3, 0.35)):
        foam = numpy.exp(-((away - CLIFF * 0 - place + 2.5 * (swell - 0.5)) / soft) ** 2) * strength
        sea = sea + (colour("foam") - sea) * foam[..., None]
    return sea


def _land(away, x, y):
    h, w = away.shape
    hills = noise((h, w), 30 * K, 11) * 0.65 + noise((h, w), 12 * K, 12) * 0.35
    slope = numpy.roll(hills, 3, axis=1) - hills + numpy.roll(hills, 3, axis=0) - hills
    t = hills[..., None]
    rgb = colour("meadow_dark") + (colour("meadow_light") - colour("meadow_dark")) * numpy.clip(t * 1.5 - 0.25, 0, 1)
    dry = step(0.62, 0.78, noise((h, w), 26 * K, 13))[..., None] * 0.55
    rgb = rgb + (colour("meadow_dry") - rgb) * dry
    rgb = rgb * (1 + numpy.clip(slope * 3.2, -0.22, 0.22))[..., None]
    beach = numpy.exp(-((away - 1.5) / 2.6) ** 2)[..., None] * 0.75
    return rgb + (colour("haze") - rgb) * beach


def _ground():
    away, x, y = _away()
    sea = _sea(away, x, y)
    wall, rise = numpy.zeros(away.shape), numpy.zeros(away.shape)
    for k in range(CLIFF * K):
        raised = numpy.roll(away, k, axis=0)
        inside = raised > 0
        rise = numpy.where(inside & (wall == 0), k / (CLIFF * K), rise)
        wall = numpy.maximum(wall, step(-0.6, 0.6, raised))
    out, alpha = over((sea, numpy.ones(away.shape)), _cliff(rise, x, y, K), wall)
    out, alpha = over((out, alpha), _land(away, x, y), step(-0.6, 0.6, away))
    return Image.fromarray(numpy.rint(out).clip(0, 255).astype(numpy.uint8), "RGB").convert("RGBA")


def _bridge(draw, a, b):
    """Planks over two beams."""
    (ax, ay), (bx, by) = a, b
    long = math.hypot(bx - ax, by - ay)
    ux, uy = (bx - ax) / long, (by - ay) / long
    for side in (-4.4, 4.4):
        draw.line([(p * K) for p in (ax - uy * side, ay + ux * side + 2, bx - uy * side, by + ux * side + 2)], fill=palette.rgb("timber"), width=3 * K)
    for i in range(int(long / 3.4) + 1):
        px, py = ax + ux * i * 3.4, ay + uy * i * 3.4
        tone = ("plank", "plank_light", "plank_dark")[i % 3]
        draw.line([p * K for p in (px - uy * 5, py + ux * 5, px + uy * 5, py - ux * 5)], fill=palette.rgb(tone), width=round(2.6 * K))


def _road(ground, a, b):
    layer = Image.new("L", ground.size, 0)
    draw = ImageDraw.Draw(layer)
    points = []
    for i in range(21):
        t = i / 20
        bend = math.sin(t * math.pi) * 10
        points.append(((a[0] + (b[0] - a[0]) * t) * K, (a[1] + (b[1] - a[1]) * t + bend) * K))
    draw.line(points, fill=255, width=5 * K, joint="curve")
    layer = picture.blurred(layer, 1.2 * K)
    return picture.fill(ground, layer, "road", 0.85)


def _stand(ground, name, at, size):
    """A picture of Data/ with its lower edge there; the sun throws its shade to the right."""
    image = Image.open(os.path.join(picture.DATA, name)).convert("RGBA")
    image = image.resize((max(1, round(image.width * size * K)), max(1, round(image.height * size * K))), Image.LANCZOS)
    place = (round(at[0] * K - image.width / 2), round(at[1] * K - image.height))
    shade = Image.new("L", ground.size, 0)
    wide = image.width * 0.36
    ImageDraw.Draw(shade).ellipse([at[0] * K - wide * 0.8, at[1] * K - wide * 0.42, at[0] * K + wide * 1.3, at[1] * K + wide * 0.3], fill=150)
    ground = picture.fill(ground, picture.blurred(shade, 2 * K), "hedge_deep", 0.5)
    return picture.paste(ground, image, place)


def _things():
    """What stands on the land, the farthest first."""
    r = random.Random("woods")
    trees = ("leaf", "deep", "fir", "light", "fir", "autumn")
    out = []
    for cx, cy, count in WOODS:
        for _ in range(count):
            out.append(((cx + r.gauss(0, 15), cy + r.gauss(0, 7)), f"Land/tree_{r.choice(trees)}.png", r.uniform(0.26, 0.38)))
    far = [t for t in out if all(math.hypot(t[0][0] - x, (t[0][1] - 6 - y) * 1.4) > 30 for x, y in NODES)]
    far += [(at, f"Buildings/{name}.png", size) for name, at, size in HOUSES]
    return sorted(far, key=lambda t: t[0][1])


def _back():
    ground = _ground()
    for (x0, y0), (x1, y1), (a, b) in zip(NODES, NODES[1:], BRIDGES):
        ground = _road(ground, (x0, y0), a)
        ground = _road(ground, b, (x1, y1))
    draw = ImageDraw.Draw(ground)
    for a, b in BRIDGES:
        _bridge(draw, a, b)
    for at, name, size in _things():
        ground = _stand(ground, name, at, size)
    return picture.vignette(picture.shrink(ground, K), 0.3)


# Flags -----------------------------------------------------------------------------------------------------------------

FLAG = (34, 46)


def _flag(top, bottom):
    """A swallow-tailed cloth on a pole, blown to the right."""
    k = 4
    out = Image.new("RGBA", (FLAG[0] * k, FLAG[1] * k), (*palette.rgb("ink"), 0))
    shade = Image.new("L", out.size, 0)
    ImageDraw.Draw(shade).ellipse([2 * k, 40 * k, 16 * k, 45 * k], fill=170)
    out = picture.fill(out, picture.blurred(shade, k), "ink", 0.6)
    pole = Image.new("L", out.size, 0)
    ImageDraw.Draw(pole).rounded_rectangle([6 * k, 3 * k, 8.6 * k, 43 * k], k, fill=255)
    out = picture.fill(out, picture.grown(pole, 2), "ink", 0.9)
    out = picture.fill_shaded(out, pole, "plank_light", "timber", (3 * k, 43 * k))
    upper = [(8.6 + i, 6 + 1.9 * math.sin(i * 0.34)) for i in range(23)]
    lower = [(x, y + 15 - 0.16 * (x - 8.6)) for x, y in upper]
    notch = (upper[-1][0] - 6, (upper[-1][1] + lower[-1][1]) / 2)
    cloth = Image.new("L", out.size, 0)
    ImageDraw.Draw(cloth).polygon([(x * k, y * k) for x, y in [*upper, notch, *lower[::-1]]], fill=255)
    cloth = picture.blurred(cloth, 1)
    out = picture.fill(out, picture.grown(cloth, 4), "ink", 0.9)
    out = picture.fill_shaded(out, cloth, top, bottom, (5 * k, 22 * k))
    folds = Image.new("L", out.size, 0)
    for i in (5, 14):
        ImageDraw.Draw(folds).line([((8.6 + i) * k, 4 * k), ((8.6 + i) * k, 26 * k)], fill=120, width=3 * k)
    folds = Image.composite(picture.blurred(folds, 1.6 * k), Image.new("L", out.size, 0), cloth)
    out = picture.fill(out, folds, "cream", 0.55)
    knob = Image.new("L", out.size, 0)
    ImageDraw.Draw(knob).ellipse([4.9 * k, 0.8 * k, 9.7 * k, 5.6 * k], fill=255)
    out = picture.fill(out, picture.grown(knob, 2), "ink", 0.9)
    return picture.shrink(picture.fill(out, knob, "gold"), k)


# Nodes -----------------------------------------------------------------------------------------------------------------

NODE = 64


def _node():
    """A round of wood with a golden rim; the program writes the level's number on it."""
    k = wood.SCALE
    out = wood.knob("node", NODE)
    full, middle = out.size, (out.width / 2, out.height / 2)
    outer, inner = ((NODE / 2 - wood.MARGIN - off) * k for off in (2.5, 7))
    ring = ImageChops.subtract(wood._disc(full, middle, outer), wood._disc(full, middle, inner))
    ring = picture.blurred(ring, 0.8)
    flat = numpy.broadcast_to(numpy.array(palette.rgb("gold"), dtype=numpy.float64), (*full[::-1], 3))
    out = Image.alpha_composite(out, wood._image(wood.raised(flat, ring, 2.4, 1.4), ring))
    face = picture.blurred(wood._disc(full, middle, inner), 0.8)
    out = picture.fill(out, face, "walnut", 0.55)
    shade = ImageChops.multiply(face, ImageChops.invert(picture.shifted(picture.blurred(face, 3 * k), 2 * k, 3 * k)))
    return picture.fill(out, shade, "ink", 0.75)


def draw():
    picture.save(_back(), "GameUI/Strategic/back.jpg")
    for name, top, bottom in (("gold", "gold", "wheat_dark"), ("silver", "cream", "slate"), ("blue", "zenith", "cobalt")):
        picture.save(_flag(top, bottom), f"GameUI/Strategic/flag_{name}.png")
    looks = [picture.shrink(look, wood.SCALE) for look in wood.looks_of(_node())]
    picture.save(picture.row_of(looks, 4), "GameUI/Strategic/node.png")
